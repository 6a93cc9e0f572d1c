#pragma once

#include "halo/HaloBand.h"

#include <array>
#include <cstddef>

// Keeps track of how far the colours on the screen lag behind the turning ones.
// Most of the glow is so faint that one frame changes it by less than the eye, or
// the screen, can tell.
class HaloDrift {
public:
    // Records that every ring shows the colours of this turn, a part of a circle.
    void reset(double turn) { m_shown.fill(turn); }

    // Returns how many of the rings, from the innermost outwards, have to be
    // repainted at this turn because the last of them is off by a shade of 255 or
    // more. They count as repainted from then on.
    [[nodiscard]] std::size_t catchUp(double turn);

private:
    std::array<double, HaloBand::rings.size()> m_shown{}; // turns
};
