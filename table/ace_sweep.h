// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

/// What an ace's sweep looks like: the player's mascot comes out at its place, plays and goes. The
/// human's is the mask, the computer's the gorilla. Expects the mascots at their places. Runs
/// events.
void playMascot(Game&, int player);

namespace frmscopa {

void Timer1_Timer(Game&);  ///< steps the Gorilla frames, 80 ms a tick
void Timer2_Timer(Game&);  ///< steps the Mask2 frames and sets its own next interval

}  // namespace frmscopa
