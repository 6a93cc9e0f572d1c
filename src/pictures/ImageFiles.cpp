#include "pictures/ImageFiles.h"

#include "pictures/PngBands.h"
#include "pictures/TiffFile.h"

#include <QtConcurrent>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>
#include <cmath>

namespace {

using PngBands::Band;
using PngBands::Rows;

constexpr double pointsPerInch = 72;
constexpr double metresPerInch = 0.0254;
constexpr qsizetype chunkBytes = 12;     // a chunk's length, name and checksum
constexpr qsizetype overheadBytes = 256; // more than everything but the bands takes

constexpr QByteArrayView signature("\x89PNG\r\n\x1a\n", 8);
constexpr QByteArrayView zlibHeader("\x78\x5e", 2); // deflate, 32 KiB looked back, a fast level
constexpr QByteArrayView lastBlock("\x03\x00", 2);  // empty, with the end mark that the bands lack

// The encoders read QRgb words and leave alpha out.
// Null when there is no memory for it.
QImage asWords(const QImage &picture)
{
    const bool already
        = picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32_Premultiplied;
    return already ? picture : picture.convertToFormat(QImage::Format_RGB32);
}

QByteArray bigEndian(quint32 number)
{
    const quint32 swapped = qToBigEndian(number);
    return {reinterpret_cast<const char *>(&swapped), sizeof swapped};
}

void appendChunk(QByteArray &file, QByteArrayView type, QByteArrayView data)
{
    file += bigEndian(quint32(data.size()));
    const qsizetype summed = file.size();
    file.append(type).append(data);
    const auto *const from = reinterpret_cast<const Bytef *>(file.constData() + summed);
    file += bigEndian(quint32(crc32(0, from, uInt(file.size() - summed))));
}

QByteArray headerOf(const QImage &picture)
{
    constexpr QByteArrayView rgb("\x08\x02\x00\x00\x00", 5); // 8 bits, RGB, neither choice nor interlace
    return bigEndian(quint32(picture.width())) + bigEndian(quint32(picture.height())) + rgb.toByteArray();
}

QByteArray densityOf(double scale)
{
    const QByteArray perMetre = bigEndian(quint32(std::lround(pointsPerInch * scale / metresPerInch)));
    return perMetre + perMetre + '\x01';
}

QByteArray joined(const QImage &picture, double scale, const QList<std::optional<Band>> &bands)
{
    QByteArray file;
    qsizetype size = overheadBytes;
    for (const auto &band : bands)
        size += band->deflated.size() + chunkBytes;
    file.reserve(size);
    file.append(signature);
    appendChunk(file, "IHDR", headerOf(picture));
    appendChunk(file, "sRGB", QByteArrayView("\x00", 1)); // rendered perceptually
    appendChunk(file, "pHYs", densityOf(scale));
    appendChunk(file, "IDAT", zlibHeader);
    uLong checksum = 1;
    for (const auto &band : bands) {
        appendChunk(file, "IDAT", band->deflated);
        checksum = adler32_combine(checksum, band->checksum, z_off_t(band->rawBytes));
    }
    appendChunk(file, "IDAT", lastBlock.toByteArray() + bigEndian(quint32(checksum)));
    appendChunk(file, "IEND", {});
    return file;
}

} // namespace

namespace ImageFiles {

std::optional<QByteArray> png(const QImage &picture, double scale)
{
    if (picture.isNull())
        return std::nullopt;
    const QImage words = asWords(picture);
    if (words.isNull())
        return std::nullopt;
    const auto bands = QtConcurrent::blockingMapped<QList<std::optional<Band>>>(
        PngBands::cut(words), [&words](Rows rows) { return PngBands::pack(words, rows); });
    if (!std::ranges::all_of(bands, &std::optional<Band>::has_value))
        return std::nullopt;
    return joined(words, scale, bands);
}

std::optional<QByteArray> tiff(const QImage &picture, double scale)
{
    if (picture.isNull())
        return std::nullopt;
    const QImage words = asWords(picture);
    if (words.isNull())
        return std::nullopt;
    return TiffFile::write(words, pointsPerInch * scale);
}

std::optional<Both> both(const QImage &picture, double scale)
{
    if (picture.isNull())
        return std::nullopt;
    const QImage words = asWords(picture);
    if (words.isNull())
        return std::nullopt;
    const auto inBackground = QtConcurrent::run(tiff, words, scale);
    auto pngBytes = png(words, scale);
    auto tiffBytes = inBackground.result();
    if (!pngBytes || !tiffBytes)
        return std::nullopt;
    return Both{std::move(*pngBytes), std::move(*tiffBytes)};
}

} // namespace ImageFiles
