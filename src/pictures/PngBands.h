#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

#include <optional>

// Compresses the pixels of a PNG, which are one zlib stream. The picture is cut
// into bands of rows; each is compressed on its own, on any core, and the results
// are joined by writing them one after another.
namespace PngBands {

struct Rows {
    int first = 0;
    int count = 0;
};

// Holds a piece of a raw deflate stream that ends on a whole byte, without an end
// mark.
struct Band {
    QByteArray deflated;
    uint checksum = 1;      // Adler-32 of the bytes before compression
    qsizetype rawBytes = 0; // how many there were
};

// Returns the bands into which the picture is best cut, from the top down.
[[nodiscard]] QList<Rows> cut(const QImage &picture);

// Filters and compresses some rows of a picture whose pixels are QRgb words. Absent
// when zlib gets no memory.
[[nodiscard]] std::optional<Band> pack(const QImage &picture, Rows rows);

} // namespace PngBands
