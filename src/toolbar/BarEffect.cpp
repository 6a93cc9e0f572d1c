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
#include <vector>

namespace {

constexpr double blur = 20;          // points, the standard deviation
constexpr double fall = 10;          // points downwards
constexpr double reach = 2.5 * blur; // beyond, the shadow is less than one shade of 255
constexpr double opacity = 0.55;

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
    painter->translate(bar.topLeft() + QPointF{-reach, fall - reach});
    painter->scale(1 / scale, 1 / scale); // from here on in pixels
    Bands::blend(*painter, m_whole.rect(), [this](const Raster &raster, const QRegion &band) {
        for (const QRect &rect : band)
            blendOn(raster, rect);
    });
}

void BarEffect::blendOn(const Raster &raster, const QRect &rect) const
{
    constexpr std::uint32_t wholly = 255;
    const auto opacity = static_cast<std::uint32_t>(std::lround(m_alpha * wholly));
    const auto row
        = [&](int y) { return reinterpret_cast<const QRgb *>(m_whole.constScanLine(y)) + rect.left(); };
    const auto fetch = [&](int y) {
        Prefetch::toWrite(raster.at(rect.left(), y), rect.width());
        Prefetch::toRead(row(y), rect.width());
    };
    Prefetch::forRows(rect.top(), rect.bottom(), fetch, [&](int y) {
        QRgb *to = raster.at(rect.left(), y);
        if (opacity == wholly)
            PixelRows::blend(to, row(y), rect.width());
        else
            PixelRows::blendFaded(to, row(y), rect.width(), opacity);
    });
}

QImage BarEffect::whole(QSizeF bar, double scale)
{
    QImage image = shadow(bar, scale);
    QPainter painter(&image);
    QPoint offset;
    const QPixmap buttons = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    painter.drawPixmap(QPointF{reach, reach - fall}, buttons);
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
