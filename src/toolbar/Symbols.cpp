#include "toolbar/Symbols.h"

#include "toolbar/PixelGrid.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

namespace {

// The drawings have a grid of 24 units. At this ratio the usual size of 15 makes
// it 18 pixels, and what stands on 2 + 4/3 n units falls on pixels.
constexpr double sidePerSize = 1.2;
constexpr auto regularStroke = "stroke-width=\"1.8\"";
constexpr auto semiboldStroke = "stroke-width=\"2.3\"";

QByteArray drawing(const Symbols::Symbol &symbol)
{
    QFile file(QStringLiteral(":/vellumora/symbols/%1.svg").arg(symbol.name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray svg = file.readAll();
    return symbol.weight == Symbols::Weight::semibold ? svg.replace(regularStroke, semiboldStroke) : svg;
}

QImage rendered(const Symbols::Symbol &symbol, double scale)
{
    const double pixels = Symbols::side(symbol.size) * scale;
    const int wholePixels = static_cast<int>(std::ceil(pixels));
    QImage image(wholePixels, wholePixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer renderer(drawing(symbol));
    if (renderer.isValid())
        renderer.render(&painter, QRectF(0, 0, pixels, pixels));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), symbol.tint);
    painter.end();
    image.setDevicePixelRatio(scale);
    return image;
}

QString cacheKey(const Symbols::Symbol &symbol, double scale)
{
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(symbol.name)
        .arg(symbol.size)
        .arg(scale)
        .arg(symbol.tint.rgba())
        .arg(static_cast<int>(symbol.weight));
}

} // namespace

namespace Symbols {

double side(double size) { return size * sidePerSize; }

QImage picture(const Symbol &symbol, double scale)
{
    static QHash<QString, QImage> cache;
    QImage &kept = cache[cacheKey(symbol, scale)];
    if (kept.isNull())
        kept = rendered(symbol, scale);
    return kept;
}

void draw(QPainter &painter, QPointF centre, const Symbol &symbol)
{
    const double half = side(symbol.size) / 2;
    const QImage image = picture(symbol, painter.device()->devicePixelRatioF());
    painter.drawImage(PixelGrid::snapped(painter, centre - QPointF{half, half}), image);
}

} // namespace Symbols
