#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

#include <optional>

// A PNG's pixels are one zlib stream. It is cut into bands of rows that are
// packed apart, each on any core, and joined by writing them one after another.
namespace PngBands {

struct Rows {
    int first = 0;
    int count = 0;
};

// A piece of a raw deflate stream that ends on a whole byte, without an end mark.
struct Band {
    QByteArray deflated;
    uint checksum = 1;      // Adler-32 of what was packed
    qsizetype rawBytes = 0; // how much that was
};

// How the picture is best cut, from the top down.
[[nodiscard]] QList<Rows> cut(const QImage &picture);

// Filters and packs some rows of a picture whose pixels are QRgb words. Nothing
// when zlib is refused its memory.
[[nodiscard]] std::optional<Band> pack(const QImage &picture, Rows rows);

} // namespace PngBands
