#include "halo/HaloColors.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double up = 0.25; // of a circle

int mixed(double a, double b, double share)
{
    return static_cast<int>(std::lround(255 * (a + (b - a) * share)));
}

QRgb colorAt(double circle)
{
    const double at = circle * double(HaloColors::colors.size() - 1);
    const auto i = std::min(static_cast<std::size_t>(at), HaloColors::colors.size() - 2);
    const auto &a = HaloColors::colors[i];
    const auto &b = HaloColors::colors[i + 1];
    const double share = at - double(i);
    return qRgb(mixed(a.red, b.red, share), mixed(a.green, b.green, share), mixed(a.blue, b.blue, share));
}

// With the first colour at the first direction.
HaloColors::Table unturned()
{
    HaloColors::Table table;
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = colorAt(double(i) / double(table.size()));
    return table;
}

} // namespace

// To the nearest step: that is done with every frame.
void HaloColors::fill(Table &table, double turn)
{
    static const Table base = unturned();
    const auto shift = static_cast<std::size_t>(std::llround((up + turn) * double(steps))) % steps;
    std::ranges::rotate_copy(base, base.end() - shift, table.begin());
}
