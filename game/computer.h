// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// The computer's turn: plays the first card of its hand, in slot order, that captures, or else
/// discards one at random by fixed verdicts. Expects giocatore at 2 and the move cleared; leaves
/// the card shown at the played-card place, postoMano, and the capture as combina does. Runs
/// events.
void gioco2(Game&);

}  // namespace frmscopa
