#include "overlay/Pixelation.h"

#include "base/Painting.h"
#include "base/Rect.h"
#include "base/ViewSpace.h"
#include "overlay/Annotation.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

namespace {

constexpr double smallestSide = 2; // points
constexpr double blockPoints = 10;
constexpr int smallestBlock = 6; // device pixels
constexpr size_t keptMosaics = 64;
constexpr double overlap = 1e-6; // points; blocks that end where the next begins may leave a gap when rounded

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

// The first block that the stretch from low to high touches, and the one after the last.
std::pair<int, int> touched(double low, double high, double length, int count)
{
    const auto within = [&](double block) { return static_cast<int>(std::clamp(block, 0.0, double(count))); };
    return {within(std::floor(low / length)), within(std::ceil(high / length))};
}

} // namespace

namespace Pixelation {

// Block by block: where the toolkit enlarges a picture, the borders depend on
// which part of it is painted.
void draw(QPainter &painter, const Annotation &mark, const QRectF &exposed)
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
    painter.setRenderHint(QPainter::Antialiasing, false);
    const double width = rect.width() / blocks.width();
    const double height = rect.height() / blocks.height();
    const auto [left, right]
        = touched(minX(exposed) - minX(rect), maxX(exposed) - minX(rect), width, blocks.width());
    const auto [top, bottom]
        = touched(maxY(rect) - maxY(exposed), maxY(rect) - minY(exposed), height, blocks.height());
    const auto block = [&](int column, int row) {
        return QRectF(minX(rect) + column * width, maxY(rect) - (row + 1) * height - overlap, width + overlap,
                      height + overlap);
    };
    for (int row = top; row < bottom; ++row)
        for (int column = left; column < right; ++column)
            painter.fillRect(block(column, row), blocks.pixelColor(column, row));
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
