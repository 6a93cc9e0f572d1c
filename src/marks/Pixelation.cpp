#include "marks/Pixelation.h"

#include "base/Painting.h"
#include "base/Prefetch.h"
#include "base/Raster.h"
#include "base/Rect.h"
#include "base/Vectorized.h"
#include "base/ViewSpace.h"
#include "marks/Annotation.h"
#include "marks/Reach.h"

#include <QPainter>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

constexpr double smallestSide = 2; // points
constexpr double blockPoints = 10;
constexpr int smallestBlock = 6; // device pixels
constexpr int channelBits = 8;
constexpr int pairBits = 16;
constexpr std::uint32_t evenBytes = 0x00ff00ff;
constexpr int rowsAtOnce = 64;
constexpr int rowsTogether = 256; // whose bytes add up to 16 bits at most

// The sums of the channels, two to a word.
struct Sums {
    std::uint64_t redBlue = 0; // red from bit 32 on
    std::uint64_t green = 0;

    void add(std::uint32_t redBlues, std::uint32_t greens)
    {
        redBlue += (std::uint64_t(redBlues >> pairBits) << 32) + (redBlues & 0xffff);
        green += greens;
    }
};

// Eight columns at once, of which the last few may be counted already.
using Eight = std::uint32_t __attribute__((vector_size(32)));
constexpr int lanes = sizeof(Eight) / sizeof(QRgb);

VELLUMORA_VECTORIZED void addColumns(Sums &sums, const QRgb *pixels, qsizetype toNextRow, int rows,
                                     int counted)
{
    Eight redBlue{};
    Eight green{};
    for (int y = 0; y < rows; ++y) {
        Eight row;
        std::memcpy(&row, pixels + y * toNextRow, sizeof row);
        redBlue += row & evenBytes;
        green += (row >> channelBits) & 0xff;
    }
    for (int i = counted; i < lanes; ++i)
        sums.add(redBlue[i], green[i]);
}

void addNarrow(Sums &sums, const QRgb *pixels, qsizetype toNextRow, int rows, int columns)
{
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < columns; ++x) {
            const QRgb pixel = pixels[y * toNextRow + x];
            sums.add(pixel & evenBytes, (pixel >> channelBits) & 0xff);
        }
}

Sums sumsOf(const QImage &screen, const QRect &block)
{
    Sums sums;
    const qsizetype toNextRow = screen.bytesPerLine() / qsizetype(sizeof(QRgb));
    for (int y = block.top(); y <= block.bottom(); y += rowsTogether) {
        const int rows = std::min(rowsTogether, block.bottom() + 1 - y);
        const auto *pixels = reinterpret_cast<const QRgb *>(screen.constScanLine(y)) + block.left();
        if (block.width() < lanes) {
            addNarrow(sums, pixels, toNextRow, rows, block.width());
            continue;
        }
        for (int x = 0; x < block.width(); x += lanes) {
            const int from = std::min(x, block.width() - lanes);
            addColumns(sums, pixels + from, toNextRow, rows, x - from);
        }
    }
    return sums;
}

QRgb mean(const QImage &screen, const QRect &block)
{
    const Sums sums = sumsOf(screen, block);
    const std::uint64_t pixels = std::uint64_t(block.width()) * std::uint64_t(block.height());
    const auto rounded = [&](std::uint64_t sum) { return static_cast<int>((sum + pixels / 2) / pixels); };
    return qRgb(rounded(sums.redBlue >> 32), rounded(sums.green), rounded(sums.redBlue & 0xffffffff));
}

// Where the nth of some equal stretches begins.
int border(int n, int count, double low, double length)
{
    return static_cast<int>(std::lround(low + length * n / count));
}

// The first stretch that ends beyond the pixel, and the one after the last that
// begins before the other.
std::pair<int, int> touched(int first, int last, int count, double low, double length)
{
    const auto within = [&](double n) { return static_cast<int>(std::clamp(n, 0.0, double(count))); };
    const double stretch = length / count;
    return {within(std::floor((first - low) / stretch) - 1),
            within(std::ceil((last + 1 - low) / stretch) + 1)};
}

void draw(QPainter &painter, const Annotation &mark, const QRectF &exposed)
{
    const Mosaic mosaic(mark);
    if (mosaic.isNull())
        return;
    const Painting::Saved saved(painter);
    const QTransform toPixels = painter.combinedTransform();
    painter.setWorldTransform(toPixels.inverted() * painter.worldTransform()); // to the device's own pixels
    const QRectF place = toPixels.mapRect(mark.rectFromPoints());
    const QRect shown = Mosaic::covered(place) & toPixels.mapRect(exposed).toAlignedRect();
    for (int top = shown.top(); top <= shown.bottom(); top += rowsAtOnce) {
        const QRect rows = shown & QRect(shown.left(), top, shown.width(), rowsAtOnce);
        QImage picture(rows.size(), QImage::Format_RGB32);
        mosaic.fill(Raster(picture, rows.topLeft()), place, rows);
        painter.drawImage(rows.topLeft(), picture);
    }
}

QRectF bounds(const Annotation &mark) { return mark.rectFromPoints(); }

Look::Boxes boxes(const Annotation &mark) { return {Reach::spill(bounds(mark), 0)}; }

bool isNear(const Annotation &mark, QPointF point, double)
{
    return bounds(mark).contains(point) && !Mosaic(mark).isNull();
}

} // namespace

namespace Looks {
extern const Look mosaic;
const Look mosaic{draw, boxes, bounds, isNear};
} // namespace Looks

Mosaic::Mosaic(const Annotation &mark)
{
    const QRectF rect = mark.rectFromPoints();
    if (!(rect.width() >= smallestSide && rect.height() >= smallestSide) || Annotation::background.isNull())
        return;
    const double scale = Annotation::backgroundScale;
    m_screen = Annotation::background;
    m_part = ViewSpace({0, Annotation::viewHeight}, scale).toPixels(rect) & m_screen.rect();
    if (m_part.isEmpty())
        return;
    const int side = Pixelation::blockSide(scale);
    m_blocks = {std::max(m_part.width() / side, 1), std::max(m_part.height() / side, 1)};
    m_colours.resize(std::size_t(m_blocks.width()) * std::size_t(m_blocks.height()));
}

// Two threads may both find it missing, and then find the same.
QRgb Mosaic::colour(int column, int row) const
{
    const std::atomic_ref kept(
        m_colours[std::size_t(row) * std::size_t(m_blocks.width()) + std::size_t(column)]);
    QRgb colour = kept.load(std::memory_order_relaxed);
    if (colour == 0) {
        colour = workOut(column, row);
        kept.store(colour, std::memory_order_relaxed);
    }
    return colour;
}

QRgb Mosaic::workOut(int column, int row) const
{
    const auto at = [](int n, int count, int length) { return static_cast<int>(qint64(length) * n / count); };
    const QPoint low(at(column, m_blocks.width(), m_part.width()),
                     at(row, m_blocks.height(), m_part.height()));
    const QPoint high(at(column + 1, m_blocks.width(), m_part.width()),
                      at(row + 1, m_blocks.height(), m_part.height()));
    return mean(m_screen, QRect(low, high - QPoint{1, 1}).translated(m_part.topLeft()));
}

QRect Mosaic::covered(const QRectF &place)
{
    const QPoint low = place.topLeft().toPoint();
    return {low, place.bottomRight().toPoint() - QPoint{1, 1}};
}

// Not as a picture that Qt enlarges: there the borders depend on which part of it is
// painted. The rows of blocks are made of their first one.
void Mosaic::fill(const Raster &raster, const QRectF &place, const QRect &exposed) const
{
    const QRect part = covered(place) & exposed;
    if (isNull() || part.isEmpty())
        return;
    const auto [left, right] = touched(part.left(), part.right(), m_blocks.width(), place.x(), place.width());
    const auto [top, bottom]
        = touched(part.top(), part.bottom(), m_blocks.height(), place.y(), place.height());
    for (int row = top; row < bottom; ++row) {
        const int low = std::max(border(row, m_blocks.height(), place.y(), place.height()), part.top());
        const int high
            = std::min(border(row + 1, m_blocks.height(), place.y(), place.height()), part.bottom() + 1);
        if (low >= high)
            continue;
        for (int y = low; y < high; ++y)
            Prefetch::toWrite(raster.at(part.left(), y), part.width());
        QRgb *const first = raster.at(part.left(), low);
        for (int column = left; column < right; ++column) {
            const int begin
                = std::max(border(column, m_blocks.width(), place.x(), place.width()), part.left());
            const int end
                = std::min(border(column + 1, m_blocks.width(), place.x(), place.width()), part.right() + 1);
            if (begin < end)
                std::fill(first + (begin - part.left()), first + (end - part.left()), colour(column, row));
        }
        for (int y = low + 1; y < high; ++y)
            std::copy_n(first, part.width(), raster.at(part.left(), y));
    }
}

namespace Pixelation {

int blockSide(double scale) { return std::max(static_cast<int>(blockPoints * scale), smallestBlock); }

} // namespace Pixelation
