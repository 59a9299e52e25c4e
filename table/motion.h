// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "game/state.h"

namespace frmscopa {

/// The game's pause: t seconds at the "Low" rate, t * 10 / velocita in all. The rate counts as it
/// stands at the call. Runs events.
void ritardo(Game&, float t);

/// Carries out the decided move. Expects cartaGiocata and its holder where the card is shown;
/// with numeroPresa above 0, presa, presaX and presaY filled and the taken cards marked. Lays the
/// card on a free place of the table or takes the cards to the player's pile; leaves tavolo,
/// ultimaPresa, scope, pilaPrese and presiUmano up to date, the marks cleared and presa empty.
/// Runs events.
void muovicarte(Game&);

}  // namespace frmscopa
