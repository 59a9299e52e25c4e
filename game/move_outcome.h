// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// Carries out the decided move: shows it, and brings the table, the piles and the scope up to
/// date. Expects cartaGiocata and its holder where the card is shown; with numeroPresa above 0,
/// presa, presaX and presaY filled and the taken cards marked. Lays the card on a free place of
/// the table or gives the cards to the player; leaves tavolo, ultimaPresa, scope, pilaPrese and
/// presiUmano up to date, the marks cleared and presa empty. Runs events.
void muovicarte(Game&);

}  // namespace frmscopa
