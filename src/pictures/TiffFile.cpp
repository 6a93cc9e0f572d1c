#include "pictures/TiffFile.h"

#include "pictures/RgbRow.h"

#include <tiffio.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr qsizetype stripBytes = 256 * 1024LL; // small enough to stay in a core's cache
constexpr qsizetype tagBytes = 4096;           // more than the tags take, besides two numbers a strip

// What libtiff takes for a file.
struct MemoryFile {
    QByteArray bytes;
    qsizetype at = 0;
};

MemoryFile &file(thandle_t handle) { return *static_cast<MemoryFile *>(handle); }

tmsize_t readBytes(thandle_t handle, void *to, tmsize_t size)
{
    MemoryFile &from = file(handle);
    const tmsize_t count = std::clamp<tmsize_t>(from.bytes.size() - from.at, 0, size);
    std::memcpy(to, from.bytes.constData() + from.at, size_t(count));
    from.at += count;
    return count;
}

tmsize_t writeBytes(thandle_t handle, void *from, tmsize_t size)
{
    MemoryFile &to = file(handle);
    if (to.bytes.size() < to.at + size)
        to.bytes.resize(to.at + size);
    std::memcpy(to.bytes.data() + to.at, from, size_t(size));
    to.at += size;
    return size;
}

toff_t seek(thandle_t handle, toff_t offset, int whence)
{
    MemoryFile &in = file(handle);
    const qsizetype base = whence == SEEK_CUR ? in.at : whence == SEEK_END ? in.bytes.size() : 0;
    in.at = base + qsizetype(offset);
    return toff_t(in.at);
}

int keepOpen(thandle_t) { return 0; }

toff_t sizeOf(thandle_t handle) { return toff_t(file(handle).bytes.size()); }

void describe(TIFF *tiff, const QImage &picture, int rowsPerStrip, double dotsPerInch)
{
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, picture.width());
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, picture.height());
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 3);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rowsPerStrip);
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, dotsPerInch);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, dotsPerInch);
}

bool writeStrips(TIFF *tiff, const QImage &picture, int rowsPerStrip)
{
    const qsizetype rowBytes = qsizetype{3} * picture.width();
    std::vector<uchar> strip(size_t(rowBytes * rowsPerStrip));
    for (int first = 0; first < picture.height(); first += rowsPerStrip) {
        const int rows = std::min(rowsPerStrip, picture.height() - first);
        for (int row = 0; row < rows; ++row)
            copyRgbRow(picture, first + row, strip.data() + row * rowBytes);
        if (TIFFWriteEncodedStrip(tiff, uint32_t(first / rowsPerStrip), strip.data(), rows * rowBytes) < 0)
            return false;
    }
    return true;
}

} // namespace

namespace TiffFile {

std::optional<QByteArray> write(const QImage &picture, double dotsPerInch)
{
    const qsizetype rowBytes = qsizetype{3} * picture.width();
    const int rowsPerStrip = int(std::clamp<qsizetype>(stripBytes / rowBytes, 1, picture.height()));
    MemoryFile memory;
    // Room for everything at once: growing would copy the whole picture.
    memory.bytes.reserve(rowBytes * picture.height() + tagBytes
                         + 8LL * (picture.height() / rowsPerStrip + 1));
    const std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff(TIFFClientOpen("picture", "w", &memory, readBytes,
                                                                          writeBytes, seek, keepOpen, sizeOf,
                                                                          nullptr, nullptr),
                                                           TIFFClose);
    if (!tiff)
        return std::nullopt;
    describe(tiff.get(), picture, rowsPerStrip, dotsPerInch);
    if (!writeStrips(tiff.get(), picture, rowsPerStrip) || !TIFFWriteDirectory(tiff.get()))
        return std::nullopt;
    return std::move(memory.bytes);
}

} // namespace TiffFile
