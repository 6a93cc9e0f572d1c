#include "overlay/canvas/HandleSprite.h"

#include "base/Rect.h"

#include <QHash>
#include <QImage>
#include <QPainter>

#include <cmath>

namespace {

constexpr double side = 8;       // points, as are the following
constexpr double shadowBlur = 3; // radius
constexpr double shadowDrop = 1; // downwards
constexpr double shadowAlpha = 0.45;
constexpr double outlineAlpha = 0.35;

// A disc blurred by a Gaussian, seen at a distance from its centre. The edge of
// a disc that is large against the blur is close to that of a half plane.
double blurredDisc(double distance, double radius, double sigma)
{
    return 0.5 * std::erfc((distance - radius) / (std::sqrt(2.0) * sigma));
}

// Square with an even number of pixels a side, the handle in its middle.
QImage shadow(double scale)
{
    const int half = static_cast<int>(std::ceil(HandleSprite::reach * scale));
    QImage image(2 * half, 2 * half, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const double dx = x + 0.5 - half;
            const double dy = y + 0.5 - half - shadowDrop * scale;
            const double cover
                = blurredDisc(std::hypot(dx, dy) / scale, side / 2, shadowBlur / 2) * shadowAlpha;
            image.setPixel(x, y, qRgba(0, 0, 0, static_cast<int>(std::lround(cover * 255))));
        }
    return image;
}

QImage drawn(double scale)
{
    QImage image = shadow(scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(image.rect().width() / 2, image.rect().height() / 2);
    painter.scale(scale, scale);
    const QRectF handle = squareAround({0, 0}, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(handle);
    painter.setPen(QPen(QColor::fromRgbF(0, 0, 0, static_cast<float>(outlineAlpha)), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(grown(handle, -0.5));
    return image;
}

} // namespace

const QImage &HandleSprite::picture(double scale)
{
    static QHash<double, QImage> sprites;
    auto sprite = sprites.find(scale);
    if (sprite == sprites.end())
        sprite = sprites.insert(scale, drawn(scale));
    return *sprite;
}
