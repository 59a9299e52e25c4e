// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// Counts the human's denari, finds the settebello and completes pilaPrese with the computer's
/// cards in ascending order of id. Expects the human's pile of a finished hand.
void tallyHand(Game&);

/// Works out the primiera from the completed pilaPrese: primieraSomma, primieraCarte and
/// primieraVinta. A missing suit only adds nothing.
void calcsettanta(Game&);

/// Primiera points of a card's digit, 0 to 9; 0 for anything else.
int valoresettanta(int cifra);

/// The id of the card that the player counts in a suit; 0 if he has none. Expects primieraCarte.
int primieraCard(const Game&, int player, int suit);

}  // namespace frmscopa

namespace frmscore {

/// Adds the hand's points to totaleUmano and totaleComputer.
void awardPoints(Game&);

}  // namespace frmscore
