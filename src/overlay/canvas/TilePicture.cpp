#include "overlay/canvas/TilePicture.h"

#include "base/PixelRows.h"
#include "base/Raster.h"

#include <algorithm>
#include <utility>

namespace {

// As a painter counts it, so that no tile is a shade off from its neighbours.
std::uint32_t outOf255(double opacity)
{
    return static_cast<std::uint32_t>(static_cast<int>(opacity * 256) * 255 >> 8);
}

} // namespace

QImage &TilePicture::image()
{
    if (const std::uint32_t opacity = std::exchange(m_opacity, wholly); opacity != wholly)
        for (int y = 0; y < TileGrid::side; ++y)
            PixelRows::fade(reinterpret_cast<QRgb *>(m_image.scanLine(y)), TileGrid::side, opacity);
    if (m_image.isNull()) {
        m_image = QImage(TileGrid::side, TileGrid::side, QImage::Format_ARGB32_Premultiplied);
        m_image.fill(Qt::transparent);
    }
    return m_image;
}

void TilePicture::take(QImage picture, double opacity)
{
    m_image = std::move(picture);
    m_opacity = outOf255(opacity);
    assumeFull();
}

void TilePicture::assumeFull()
{
    m_inked.fill(allBlocks);
    m_assumed = true;
}

void TilePicture::settle()
{
    if (m_assumed)
        measure();
}

// All rows of a block laid upon each other, which becomes vector code.
void TilePicture::measure()
{
    m_assumed = false;
    if (isNull())
        return;
    const QImage &image = std::as_const(this->image());
    for (int row = 0; row < blocks; ++row) {
        std::array<QRgb, TileGrid::side> ink{};
        for (int y = 0; y < blockSide; ++y) {
            const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(row * blockSide + y));
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
            if (count <= 0)
                return;
            QRgb *to = over.at(upperLeft.x() + begin, upperLeft.y() + y);
            if (m_opacity == wholly)
                PixelRows::blend(to, line + begin, count);
            else
                PixelRows::blendFaded(to, line + begin, count, m_opacity);
        });
    }
}
