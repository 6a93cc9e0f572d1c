#include "halo/HaloDrift.h"

#include "halo/HaloColors.h"
#include "halo/HaloMotion.h"

#include <algorithm>
#include <cmath>

namespace {

using HaloColors::Color;

// What a whole turn would change, in shades, if it went on as where the colours
// change fastest.
double shadesInTurn()
{
    double steepest = 0;
    for (std::size_t i = 1; i < HaloColors::colors.size(); ++i) {
        const Color &a = HaloColors::colors[i - 1];
        const Color &b = HaloColors::colors[i];
        steepest = std::max(
            {steepest, std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
    }
    return 255 * steepest * double(HaloColors::colors.size() - 1);
}

// The same where a ring ends and the next one inwards begins: there it takes no
// more of the colours than this ring and those beyond it make together.
std::array<double, HaloBand::rings.size()> shadesInRings()
{
    std::array<double, HaloBand::rings.size()> shades{};
    double through = 1;
    for (std::size_t i = shades.size(); i-- > 0;) {
        through *= 1 - HaloBand::rings[i].alpha;
        shades[i] = shadesInTurn() * HaloMotion::restOpacity * (1 - through);
    }
    shades.front() = shadesInTurn(); // the line
    return shades;
}

} // namespace

std::size_t HaloDrift::catchUp(double turn)
{
    static const auto shades = shadesInRings();
    std::size_t innermost = 1;
    for (std::size_t i = 1; i < m_shown.size(); ++i) {
        const double behind = turn - m_shown[i];
        if (shades[i] * (behind - std::floor(behind)) >= 1)
            innermost = i + 1;
    }
    std::fill_n(m_shown.begin(), innermost, turn);
    return innermost;
}
