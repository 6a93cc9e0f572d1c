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
    if (m_image.isNull())
        unpack();
    fade();
    return m_image;
}

void TilePicture::fade()
{
    if (const std::uint32_t opacity = std::exchange(m_opacity, wholly); opacity != wholly)
        for (int y = 0; y < TileGrid::side; ++y)
            PixelRows::fade(reinterpret_cast<QRgb *>(m_image.scanLine(y)), TileGrid::side, opacity);
}

void TilePicture::unpack()
{
    QImage image(TileGrid::side, TileGrid::side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (int y = 0; m_packed && y < TileGrid::side; ++y)
        PixelRows::unpack(reinterpret_cast<QRgb *>(image.scanLine(y)), ink(y));
    m_image = std::move(image);
    m_packed = false;
    m_ink = {};
}

void TilePicture::take(QImage picture, double opacity)
{
    Q_ASSERT(isNull());
    m_image = std::move(picture);
    m_opacity = outOf255(opacity);
    assumeFull();
}

void TilePicture::assumeFull()
{
    if (m_image.isNull())
        return;
    m_blocks.fill(0xff);
}

void TilePicture::measure()
{
    if (m_image.isNull())
        return;
    fade();
    m_color = 0;
    m_blocks = {};
    for (int y = 0; y < TileGrid::side; ++y)
        packRow(y);
    m_ink.shrink_to_fit();
    m_image = {};
    m_packed = true;
    if (std::ranges::all_of(m_blocks, [](std::uint8_t row) { return row == 0; }))
        clear();
}

// The first colour that fills a stretch is the tile's plain one; few tiles have two.
void TilePicture::packRow(int y)
{
    const auto *line = reinterpret_cast<const QRgb *>(m_image.constScanLine(y));
    const auto row = std::size_t(y);
    m_inked[row] = m_plain[row] = 0;
    m_first[row] = static_cast<std::uint16_t>(m_ink.size() / PixelRows::stretch);
    for (int bit = 0; bit < stretches; ++bit, line += PixelRows::stretch) {
        QRgb any = 0;
        QRgb other = 0;
        for (int x = 0; x < PixelRows::stretch; ++x) {
            any |= line[x];
            other |= line[x] ^ line[0];
        }
        if (any == 0)
            continue;
        m_inked[row] |= static_cast<std::uint16_t>(1U << bit);
        m_blocks[std::size_t(y / blockSide)]
            |= static_cast<std::uint8_t>(1U << bit * PixelRows::stretch / blockSide);
        if (other == 0 && m_color == 0)
            m_color = line[0];
        if (other == 0 && m_color == line[0])
            m_plain[row] |= static_cast<std::uint16_t>(1U << bit);
        else
            m_ink.insert(m_ink.end(), line, line + PixelRows::stretch);
    }
}

void TilePicture::blend(const Raster &over, QPoint upperLeft, const QRect &part) const
{
    const QRect own = QRect(0, 0, TileGrid::side, TileGrid::side) & part.translated(-upperLeft);
    if (isNull() || own.isEmpty())
        return;
    const int end = own.right() + 1;
    const PixelRows::Parts parts = PixelRows::partsOf(own.left(), end);
    for (int y = own.top(); y <= own.bottom(); ++y) {
        QRgb *to = over.at(upperLeft.x(), upperLeft.y() + y);
        if (!m_packed) {
            blendImage(to, y, own.left(), end);
            continue;
        }
        const PixelRows::Stretches inked = m_inked[std::size_t(y)];
        if ((inked & parts.whole) != 0)
            PixelRows::lay(to, to, ink(y), inked & parts.whole);
        if ((inked & parts.cut) != 0)
            PixelRows::lay(to, to, ink(y), inked & parts.cut, own.left(), end);
    }
}

// Nobody has looked where there is anything.
void TilePicture::blendImage(QRgb *to, int y, int begin, int end) const
{
    const auto *line = reinterpret_cast<const QRgb *>(m_image.constScanLine(y));
    if (m_opacity == wholly)
        PixelRows::blend(to + begin, line + begin, end - begin);
    else
        PixelRows::blendFaded(to + begin, line + begin, end - begin, m_opacity);
}
