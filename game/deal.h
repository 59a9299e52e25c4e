// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// Opens a hand: shuffles, wipes the table, lays four cards in row 2, sets the piles' places,
/// shows the deck on the dealer's side and starts the music. Expects mazziere and the geometry;
/// leaves mazzo, tavolo, pilaY, cimaMazzo at 4 and pilaPrese empty. Runs no events.
void Mescola(Game&);

/// Gives three cards to each player. Expects cimaMazzo at 19 or less and leaves it 3 higher. The
/// human's slot s holds mazzo(cimaMazzo + s - 3), s from 1 to 3; the computer's is in the Tag of
/// dorso(s), s from 0 to 2. Runs no events.
void daicarte(Game&);

}  // namespace frmscopa
