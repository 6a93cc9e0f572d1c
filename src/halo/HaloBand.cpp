#include "halo/HaloBand.h"

#include "base/Rect.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace {

constexpr float stepsInPixel = 16; // of the falloff
constexpr float roundUp = 0.5F;    // and cut off: a call would keep loops from becoming vector code

// A pulse makes the strokes wider, and the whole glow larger on top of that.
double halfWidth(const HaloBand::Ring &ring, const HaloBand::Shape &shape)
{
    return ring.width / 2 * shape.scale * shape.swell * shape.swell;
}

double reach(const HaloBand::Ring &ring, const HaloBand::Shape &shape) { return halfWidth(ring, shape) + 1; }

QRectF swollen(const HaloBand::Shape &shape)
{
    const QRectF &rect = shape.selection;
    const QSizeF size = rect.size() * shape.swell;
    return {QPointF{midX(rect) - size.width() / 2, midY(rect) - size.height() / 2}, size};
}

// How much of the soft glow there is that many steps from the outline.
std::vector<float> falloff(const HaloBand::Shape &shape, double reach)
{
    std::vector<float> values(static_cast<std::size_t>(reach * stepsInPixel) + 2);
    for (std::size_t i = 0; i < values.size(); ++i) {
        double through = 1;
        for (const auto &ring : HaloBand::rings)
            through *= 1
                       - ring.alpha
                             * std::clamp(halfWidth(ring, shape) - double(i) / stepsInPixel + 0.5, 0.0, 1.0);
        values[i] = static_cast<float>(shape.opacity * (1 - through));
    }
    values.back() = 0;
    return values;
}

// The arc tangent of 0 to 1 as a part of a circle. Abramowitz and Stegun,
// Handbook of Mathematical Functions, 4.4.49; its error is below 1e-5 radians.
float arcTangent(float t)
{
    const float square = t * t;
    constexpr float circle = 1 / (2 * std::numbers::pi_v<float>);
    return circle * t
           * (0.9998660F
              + square
                    * (-0.3302995F + square * (0.1801410F + square * (-0.0851330F + square * 0.0208351F))));
}

// The direction as a part of a circle, counter-clockwise from the right.
float direction(float right, float up)
{
    const float across = std::abs(right);
    const float along = std::abs(up);
    const float larger = std::max(std::max(across, along), 1e-6F);
    const float octant = arcTangent(std::min(across, along) / larger);
    const float quadrant = along > across ? 0.25F - octant : octant;
    const float half = right < 0 ? 0.5F - quadrant : quadrant;
    return up < 0 ? 1 - half : half;
}

// The edges of a rectangle in the numbers that rows are computed with.
struct Edges {
    explicit Edges(const QRectF &rect)
        : left(static_cast<float>(minX(rect)))
        , right(static_cast<float>(maxX(rect)))
        , top(static_cast<float>(minY(rect)))
        , bottom(static_cast<float>(maxY(rect)))
    {}

    // How far beyond the nearer edge; negative within.
    [[nodiscard]] float across(float x) const { return std::max(left - x, x - right); }
    [[nodiscard]] float down(float y) const { return std::max(top - y, y - bottom); }

    float left, right, top, bottom;
};

float pixelCentre(int pixel) { return static_cast<float>(pixel) + 0.5F; }

// The passes over a row are plain loops, one thing each, which the compiler
// turns into vector code.

// Distances to the outline in steps, from outside and from inside.
void measureGlow(const Edges &outline, int left, int y, float farthest, std::span<int> steps)
{
    const float down = outline.down(pixelCentre(y));
    const float below = std::max(down, 0.0F);
    for (int i = 0; i < static_cast<int>(steps.size()); ++i) {
        const float across = outline.across(pixelCentre(left + i));
        const float beside = std::max(across, 0.0F);
        const float inside = std::max(across, down);
        const float outside = std::sqrt(beside * beside + below * below);
        const float distance = inside > 0 ? outside : -inside;
        steps[static_cast<std::size_t>(i)]
            = static_cast<int>(std::min(distance * stepsInPixel + roundUp, farthest));
    }
}

// The line has sharp corners.
void measureLine(const Edges &selection, int left, int y, float width, std::span<float> line)
{
    const float down = selection.down(pixelCentre(y));
    for (int i = 0; i < static_cast<int>(line.size()); ++i) {
        const float away = std::max(selection.across(pixelCentre(left + i)), down);
        line[static_cast<std::size_t>(i)] = std::min(std::max(width + 0.5F - away, 0.0F), 1.0F);
    }
}

void cover(std::span<const int> steps, std::span<const float> falloff, std::span<const float> line,
           std::uint8_t *coverage)
{
    for (std::size_t i = 0; i < line.size(); ++i) {
        const float glow = falloff[static_cast<std::size_t>(steps[i])];
        coverage[i] = static_cast<std::uint8_t>(255 * (glow + line[i] - glow * line[i]) + roundUp);
    }
}

void direct(QPointF middle, int left, int y, std::span<std::uint16_t> directions)
{
    const float up = static_cast<float>(middle.y()) - pixelCentre(y);
    const auto centre = static_cast<float>(middle.x());
    for (int i = 0; i < static_cast<int>(directions.size()); ++i) {
        const float circle = direction(pixelCentre(left + i) - centre, up);
        const int step = static_cast<int>(circle * float(HaloColors::steps));
        directions[static_cast<std::size_t>(i)] = static_cast<std::uint16_t>(step % int(HaloColors::steps));
    }
}

} // namespace

std::optional<QPoint> HaloBand::Shape::wayFrom(const Shape &other) const
{
    constexpr double nearly = 1e-3; // pixels
    const QPointF way = selection.topLeft() - other.selection.topLeft();
    const QPoint whole = way.toPoint();
    Shape moved = other;
    moved.selection = selection;
    moved.hole.translate(whole);
    const QPointF corner = other.selection.bottomRight() + way - selection.bottomRight();
    const bool moves
        = moved == *this && (way - whole).manhattanLength() < nearly && corner.manhattanLength() < nearly;
    return moves ? std::optional(whole) : std::nullopt;
}

HaloBand::HaloBand(const Shape &shape)
    : m_shape(shape)
    , m_outline(swollen(shape))
    , m_reach(reach(rings.back(), shape))
    , m_falloff(falloff(shape, m_reach))
{}

void HaloBand::moveTo(const Shape &shape)
{
    m_shape = shape;
    m_outline = swollen(shape);
}

QRegion HaloBand::area(const QRect &screen, std::size_t innermost) const
{
    const double away = reach(rings[innermost - 1], m_shape);
    QRegion region(grown(m_outline, away).toAlignedRect());
    const QRectF within = grown(m_outline, -away - 1);
    if (within.isValid())
        region -= within.toRect();
    region += grown(m_shape.selection, lineWidth * m_shape.scale + 1).toAlignedRect();
    return (region & screen) - m_shape.hole;
}

void HaloBand::fill(HaloTile &tile, const QRect &pixels) const
{
    tile.setPixels(pixels);
    if (pixels.isEmpty())
        return;
    const QPointF middle{midX(m_shape.selection), midY(m_shape.selection)};
    const auto width = static_cast<std::size_t>(pixels.width());
    const Stretch straight = straightRows();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        std::uint8_t *coverage = tile.coverage.data() + tile.indexOf(pixels.left(), y);
        if (y > pixels.top() && y > straight.begin && y < straight.end)
            std::copy_n(coverage - width, width, coverage); // nothing changes along the sides
        else
            coverRow(y, pixels.left(), {coverage, width});
        direct(middle, pixels.left(), y, {tile.direction.data() + tile.indexOf(pixels.left(), y), width});
    }
}

// The columns between the corners all look alike.
void HaloBand::coverRow(int y, int left, std::span<std::uint8_t> coverage) const
{
    const auto width = static_cast<int>(coverage.size());
    const Stretch columns = straightColumns();
    const int from = std::clamp(columns.begin - left, 0, width);
    const int to = std::clamp(columns.end - left, from, width);
    coverPart(y, left, coverage.first(std::size_t(std::min(from + 1, width))));
    if (from < to)
        std::fill(coverage.begin() + from, coverage.begin() + to, coverage[std::size_t(from)]);
    coverPart(y, left + to, coverage.subspan(std::size_t(to)));
}

void HaloBand::coverPart(int y, int left, std::span<std::uint8_t> coverage) const
{
    std::vector<int> steps(coverage.size());
    std::vector<float> line(coverage.size());
    measureGlow(Edges(m_outline), left, y, static_cast<float>(m_falloff.size() - 1), steps);
    measureLine(Edges(m_shape.selection), left, y, static_cast<float>(lineWidth * m_shape.scale), line);
    cover(steps, m_falloff, line, coverage.data());
}

HaloBand::Stretch HaloBand::straightRows() const
{
    return between(std::max(minY(m_outline) + m_reach, minY(m_shape.selection)),
                   std::min(maxY(m_outline) - m_reach, maxY(m_shape.selection)));
}

HaloBand::Stretch HaloBand::straightColumns() const
{
    return between(std::max(minX(m_outline) + m_reach, minX(m_shape.selection)),
                   std::min(maxX(m_outline) - m_reach, maxX(m_shape.selection)));
}

// The pixels whose centres lie there.
HaloBand::Stretch HaloBand::between(double low, double high)
{
    return {static_cast<int>(std::ceil(low - 0.5)), static_cast<int>(std::floor(high - 0.5)) + 1};
}
