#include "overlay/canvas/TilePicture.h"

#include "base/PixelRows.h"
#include "base/Raster.h"

#include <algorithm>

QImage &TilePicture::image()
{
    if (m_image.isNull()) {
        m_image = QImage(TileGrid::side, TileGrid::side, QImage::Format_ARGB32_Premultiplied);
        m_image.fill(Qt::transparent);
    }
    return m_image;
}

// All rows of a block laid upon each other, which becomes vector code.
void TilePicture::measure()
{
    if (isNull())
        return;
    for (int row = 0; row < blocks; ++row) {
        std::array<QRgb, TileGrid::side> ink{};
        for (int y = 0; y < blockSide; ++y) {
            const auto *line = reinterpret_cast<const QRgb *>(m_image.constScanLine(row * blockSide + y));
            for (std::size_t x = 0; x < ink.size(); ++x)
                ink[x] |= line[x];
        }
        unsigned inked = 0;
        for (unsigned column = 0; column < blocks; ++column) {
            const auto *first = ink.data() + std::ptrdiff_t(column) * blockSide;
            if (std::any_of(first, first + blockSide, [](QRgb pixels) { return pixels != 0; }))
                inked |= 1U << column;
        }
        m_inked[std::size_t(row)] = static_cast<std::uint8_t>(inked);
    }
    if (std::ranges::all_of(m_inked, [](std::uint8_t row) { return row == 0; }))
        clear();
}

void TilePicture::blend(const Raster &over, QPoint upperLeft, const QRect &part) const
{
    if (isNull())
        return;
    const QRect own = QRect(0, 0, TileGrid::side, TileGrid::side) & part.translated(-upperLeft);
    for (int y = own.top(); y <= own.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(m_image.constScanLine(y));
        forInked(y / blockSide, [&](int first, int end) {
            const int begin = std::max(first, own.left());
            const int count = std::min(end, own.right() + 1) - begin;
            if (count > 0)
                PixelRows::blend(over.at(upperLeft.x() + begin, upperLeft.y() + y), line + begin, count);
        });
    }
}
