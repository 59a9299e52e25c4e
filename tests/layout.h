// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// Where things lie on the table, worked out from the design alone.

#include "tests/script.h"

namespace script {

inline constexpr Colour green = 0x7000;
inline constexpr float playedLeft = 578, playedTop = 300 - cardHeight / 2;
inline constexpr float humanTop = 595 - cardHeight, computersTop = 5;
inline constexpr float pileTop[] = {0, 487, 5};  ///< by player; 600 - 108.35 - 5 is 486.65

inline float tableLeft(int column) {
    return 400 - 2 * cardWidth - 9 + static_cast<float>(column - 1) * (cardWidth + 6);
}
inline float tableTop(int row) {
    return 300 - 1.5f * cardHeight - 6 + static_cast<float>(row - 1) * (cardHeight + 6);
}
inline float slotLeft(int slot) {
    return 400 - 1.5f * cardWidth - 6 + static_cast<float>(slot) * (cardWidth + 6);
}

/// The middle of a card's place shows the table.
inline bool bare(const Game& g, float left, float top) {
    return Point(g.frmscopa, left + cardWidth / 2, top + cardHeight / 2) == green;
}

inline void expectPlace(const Control& control, float left, float top, const char* name = "") {
    EXPECT_NEAR(control.Left, left, 0.01) << name;
    EXPECT_NEAR(control.Top, top, 0.01) << name;
}

}  // namespace script
