#pragma once

#include "halo/HaloBand.h"

#include <array>
#include <cstddef>

// Knows how far the colours on the screen lag behind the turning ones. Where the
// glow is faint a whole frame changes less than the eye, or the screen, can tell,
// and most of the glow is faint.
class HaloDrift {
public:
    // Everything shows the colours of this turn, a part of a circle.
    void reset(double turn) { m_shown.fill(turn); }

    // How many of the rings, from the innermost on, are at least a shade of 255
    // off by that turn; they count as repainted with it.
    [[nodiscard]] std::size_t catchUp(double turn);

private:
    std::array<double, HaloBand::rings.size()> m_shown{}; // turns
};
