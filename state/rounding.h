// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>

/// The integer nearest to a value; halves go to the even one.
inline int rounded(float value) {
    const float down = std::floor(value);
    const float over = value - down;
    const int below = static_cast<int>(down);
    if (over < 0.5f) return below;
    if (over > 0.5f) return below + 1;
    return below % 2 == 0 ? below : below + 1;
}
