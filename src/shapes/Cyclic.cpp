#include "shapes/Cyclic.h"

namespace ShapeRecognizer {

std::size_t cyclicIndex(std::size_t index, int offset, std::size_t count)
{
    const auto whole = static_cast<std::ptrdiff_t>(count);
    const std::ptrdiff_t moved = (static_cast<std::ptrdiff_t>(index) + offset) % whole;
    return static_cast<std::size_t>(moved < 0 ? moved + whole : moved);
}

bool isPeak(std::span<const double> values, std::size_t index, int reach)
{
    const double value = values[index];
    for (int offset = -reach; offset <= reach; ++offset) {
        const double neighbour = values[cyclicIndex(index, offset, values.size())];
        if (neighbour > value || (offset < 0 && neighbour == value))
            return false;
    }
    return true;
}

} // namespace ShapeRecognizer
