// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

// The turn lamps: a green and a red one for each player at one place, of which the one in front is
// seen. None of these runs events.

void parkLamps(Game&);   ///< out of sight, for the title and the opening screen
void placeLamps(Game&);  ///< beside the hands; expects the cards measured
void showLamps(Game&);
void showTurn(Game&, int player);  ///< green for this player, red for the other
