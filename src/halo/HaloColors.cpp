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

} // namespace

void HaloColors::fill(Table &table, double turn)
{
    for (std::size_t i = 0; i < steps; ++i) {
        const double circle = double(i) / double(steps) - up - turn;
        table[i] = colorAt(circle - std::floor(circle));
    }
}
