#include "overlay/canvas/Backdrop.h"

#include "base/Painting.h"
#include "toolbar/Theme.h"

#include <QPainter>

#include <algorithm>
#include <cstdint>

namespace {

constexpr int pixelsAtOnce = 8 * 1024; // they stay in the processor's cache from one step to the next
constexpr int wideRow = 1024;          // from here on Qt's blending of rows is quicker, the same to the bit
constexpr QRgb opaque = 0xff000000;

// A row of pixels under the scrim, which is black: every channel times what shows
// through, rounded as Qt blends. One thing at a time, so that it becomes vector code.
void dim(QRgb *row, qsizetype count)
{
    const auto through = static_cast<std::uint16_t>(255 - Theme::scrim.alpha());
    auto *channels = reinterpret_cast<uchar *>(row);
    for (qsizetype i = 0; i < count * qsizetype(sizeof(QRgb)); ++i) {
        const auto product = static_cast<std::uint16_t>(channels[i] * through);
        channels[i] = static_cast<uchar>(static_cast<std::uint16_t>(product + (product >> 8) + 128) >> 8);
    }
    for (qsizetype i = 0; i < count; ++i)
        row[i] |= opaque;
}

} // namespace

QImage Backdrop::dimmed(const QRect &pixels) const
{
    if (!m_shot.image.rect().contains(pixels))
        return {};
    QImage part = m_shot.image.copy(pixels).convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < part.height(); ++y)
        dim(reinterpret_cast<QRgb *>(part.scanLine(y)), part.width());
    return part;
}

void Backdrop::drawDimmed(QPainter &painter, const QRect &pixels) const
{
    const int rows = std::clamp(pixelsAtOnce / pixels.width(), 1, pixels.height());
    for (int top = pixels.top(); top <= pixels.bottom(); top += rows) {
        const QRect strip = pixels & QRect(pixels.left(), top, pixels.width(), rows);
        if (strip.width() < wideRow) {
            painter.drawImage(strip.topLeft(), dimmed(strip));
            continue;
        }
        painter.drawImage(strip.topLeft(), m_shot.image, strip);
        painter.fillRect(strip, Theme::scrim);
    }
}

void Backdrop::draw(QPainter &painter, const QRect &bright, const QRegion &exposed) const
{
    const Painting::Saved saved(painter);
    for (const QRect &area : exposed) {
        const QRect pixels = area & m_shot.image.rect();
        // Under a clip that is one rectangle Qt copies rows; under the whole
        // exposed region it would go span by span, in several threads.
        painter.setClipRect(pixels);
        for (const QRect &outside : QRegion(pixels).subtracted(bright))
            drawDimmed(painter, outside);
        if (pixels.intersects(bright))
            painter.drawImage((pixels & bright).topLeft(), m_shot.image, pixels & bright);
    }
}
