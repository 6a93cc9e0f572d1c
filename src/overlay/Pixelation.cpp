#include "overlay/Pixelation.h"

#include "base/Painting.h"
#include "base/Rect.h"
#include "base/ViewSpace.h"
#include "overlay/Annotation.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace {

constexpr double smallestSide = 2; // points
constexpr double blockPoints = 10;
constexpr int smallestBlock = 6; // device pixels
constexpr size_t keptMosaics = 64;

// A mosaic is made of every pixel below it, so it is not made anew for each
// repaint of a corner.
const QImage &keptMosaic(const QImage &picture, const QRect &part, double scale)
{
    using Key = std::tuple<qint64, int, int, int, int>;
    static std::map<Key, QImage> kept;
    const Key key{picture.cacheKey(), part.x(), part.y(), part.width(), part.height()};
    auto found = kept.find(key);
    if (found != kept.end())
        return found->second;
    if (kept.size() >= keptMosaics)
        kept.clear();
    return kept.emplace(key, Pixelation::mosaic(picture, part, scale)).first->second;
}

} // namespace

namespace Pixelation {

void draw(QPainter &painter, const Annotation &mark)
{
    const QRectF rect = mark.rectFromPoints();
    if (!(rect.width() >= smallestSide && rect.height() >= smallestSide) || Annotation::background.isNull())
        return;
    const ViewSpace space({0, Annotation::viewHeight});
    const double scale = Annotation::backgroundScale;
    const QImage &blocks = keptMosaic(Annotation::background, space.toPixels(rect, scale), scale);
    if (blocks.isNull())
        return;
    const Painting::Saved saved(painter);
    painter.translate(minX(rect), maxY(rect));
    painter.scale(1, -1); // the picture's rows go downwards
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.drawImage(QRectF(QPointF(0, 0), rect.size()), blocks);
}

int blockSide(double scale) { return std::max(static_cast<int>(blockPoints * scale), smallestBlock); }

QImage mosaic(const QImage &picture, const QRect &part, double scale)
{
    const QRect inside = part & picture.rect();
    if (inside.isEmpty())
        return {};
    const int side = blockSide(scale);
    const QSize blocks(std::max(inside.width() / side, 1), std::max(inside.height() / side, 1));
    // A window onto the picture instead of a copy of it.
    const uchar *corner = picture.constScanLine(inside.y()) + qsizetype(inside.x()) * (picture.depth() / 8);
    const QImage window(corner, inside.width(), inside.height(), picture.bytesPerLine(), picture.format());
    return window.scaled(blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace Pixelation
