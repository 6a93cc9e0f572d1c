#include "toolbar/BarEffect.h"

#include "base/Bands.h"
#include "base/Painting.h"
#include "base/PixelRows.h"
#include "base/Prefetch.h"
#include "base/Raster.h"
#include "base/Rect.h"

#include <QPainter>

#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>
#include <vector>

namespace {

constexpr double blur = 20;          // points, the standard deviation
constexpr double fall = 10;          // points downwards
constexpr double reach = 2.5 * blur; // beyond, the shadow is less than one shade of 255
constexpr double opacity = 0.55;
constexpr QPointF pictureFromBar{-reach, fall - reach}; // their upper left corners

// How much of a blurred bar of that length covers each pixel, along one axis. A
// blurred rectangle is the product of two of these; corners that are rounder
// than the blur is wide are few, and theirs are not.
std::vector<double> coverage(double length, double scale)
{
    std::vector<double> values(static_cast<std::size_t>(std::ceil((length + 2 * reach) * scale)));
    const double unit = blur * std::numbers::sqrt2;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double at = (static_cast<double>(i) + 0.5) / scale - reach;
        values[i] = (std::erf(at / unit) - std::erf((at - length) / unit)) / 2;
    }
    return values;
}

QImage shadowOf(QSizeF bar, double scale)
{
    const std::vector<double> across = coverage(bar.width(), scale);
    const std::vector<double> down = coverage(bar.height(), scale);
    QImage image(static_cast<int>(across.size()), static_cast<int>(down.size()),
                 QImage::Format_ARGB32_Premultiplied);
    for (std::size_t y = 0; y < down.size(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(static_cast<int>(y)));
        for (std::size_t x = 0; x < across.size(); ++x)
            line[x] = qRgba(0, 0, 0, static_cast<int>(std::lround(opacity * 255 * across[x] * down[y])));
    }
    image.setDevicePixelRatio(scale);
    return image;
}

} // namespace

void BarEffect::setAlpha(double alpha)
{
    m_alpha = alpha;
    update();
}

QRectF BarEffect::boundingRectFor(const QRectF &bar) const
{
    return grown(bar, reach).translated(0, fall) | bar;
}

void BarEffect::draw(QPainter *painter)
{
    const QRectF bar = sourceBoundingRect();
    const double scale = painter->device()->devicePixelRatioF();
    if (!m_keeps || m_whole.isNull() || m_whole.devicePixelRatio() != scale)
        m_whole = whole(bar.size(), scale);
    const Painting::Saved saved(*painter);
    painter->translate(bar.topLeft() + pictureFromBar);
    painter->scale(1 / scale, 1 / scale); // from here on in pixels
    const QRegion rest = QRegion(m_whole.rect()) - std::exchange(m_leftOut, {});
    Bands::blend(*painter, rest, [this](const Raster &raster, const QRegion &band) {
        for (const QRect &rect : band)
            blendRows(raster, rect, {});
    });
}

QRect BarEffect::pictured(QPoint bar, double scale) const
{
    const QPointF corner = (QPointF(bar) + pictureFromBar) * scale;
    const bool lies
        = m_keeps && !m_whole.isNull() && m_whole.devicePixelRatio() == scale && corner == corner.toPoint();
    return lies ? QRect(corner.toPoint(), m_whole.size()) : QRect();
}

void BarEffect::blend(const Raster &raster, const QRegion &part, QPoint bar) const
{
    for (const QRect &rect : part)
        blendRows(raster, rect, cornerOf(bar));
}

void BarEffect::leaveOut(const QRegion &part, QPoint bar) { m_leftOut = part.translated(-cornerOf(bar)); }

QPoint BarEffect::cornerOf(QPoint bar) const { return pictured(bar, m_whole.devicePixelRatio()).topLeft(); }

// The part is counted as the raster is, in which the picture has that corner.
void BarEffect::blendRows(const Raster &raster, const QRect &part, QPoint corner) const
{
    constexpr std::uint32_t wholly = 255;
    const auto opacity = static_cast<std::uint32_t>(std::lround(m_alpha * wholly));
    const auto row = [&](int y) {
        return reinterpret_cast<const QRgb *>(m_whole.constScanLine(y - corner.y())) + part.left()
               - corner.x();
    };
    const auto fetch = [&](int y) {
        Prefetch::toWrite(raster.at(part.left(), y), part.width());
        Prefetch::toRead(row(y), part.width());
    };
    Prefetch::forRows(part.top(), part.bottom(), fetch, [&](int y) {
        QRgb *to = raster.at(part.left(), y);
        if (opacity == wholly)
            PixelRows::blend(to, row(y), part.width());
        else
            PixelRows::blendFaded(to, row(y), part.width(), opacity);
    });
}

QImage BarEffect::whole(QSizeF bar, double scale)
{
    QImage image = shadow(bar, scale);
    QPainter painter(&image);
    QPoint offset;
    const QPixmap buttons = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    painter.drawPixmap(-pictureFromBar, buttons);
    return image;
}

const QImage &BarEffect::shadow(QSizeF bar, double scale)
{
    if (m_shadow.isNull() || m_shadowOf != bar || m_shadow.devicePixelRatio() != scale) {
        m_shadow = shadowOf(bar, scale);
        m_shadowOf = bar;
    }
    return m_shadow;
}
