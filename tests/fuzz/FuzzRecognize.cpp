#include "shapes/ShapeRecognizer.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using ShapeRecognizer::Point;
using ShapeRecognizer::Points;

namespace {

template <typename Number>
double take(const std::uint8_t *&bytes)
{
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    bytes += sizeof number;
    return static_cast<double>(number);
}

// Small whole coordinates find their way into the fitters, raw doubles into
// infinities and NaN.
template <typename Number>
Points pointsFrom(const std::uint8_t *bytes, std::size_t size)
{
    Points points;
    for (std::size_t left = size / (2 * sizeof(Number)); left > 0; --left) {
        const double x = take<Number>(bytes);
        points.push_back({x, take<Number>(bytes)});
    }
    return points;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const bool yUp = data[0] & 1;
    const bool raw = data[0] & 2;
    const Points points
        = raw ? pointsFrom<double>(data + 1, size - 1) : pointsFrom<std::int8_t>(data + 1, size - 1);
    const auto result = ShapeRecognizer::recognize(points, yUp);
    if (!result)
        return 0;
    if (result->name.empty() || result->points.size() < 2)
        std::abort();
    for (const Point p : result->points) {
        if (!std::isfinite(p.x) || !std::isfinite(p.y))
            std::abort();
    }
    return 0;
}
