#pragma once

#include "halo/HaloBand.h"

#include <array>
#include <cstddef>

// Knows how far the colours on the screen lag behind the turning ones. Where the
// glow is faint a whole frame changes less than the eye, or the screen, can tell,
// and most of the glow is faint.
class HaloDrift {
public:
    // Notes that everything shows the colours of this turn, a part of a circle.
    void reset(double turn) { m_shown.fill(turn); }

    // Returns how many of the rings, from the innermost on, have to be repainted
    // with this turn, being a shade of 255 off or more; they count as repainted.
    [[nodiscard]] std::size_t catchUp(double turn);

private:
    std::array<double, HaloBand::rings.size()> m_shown{}; // turns
};
