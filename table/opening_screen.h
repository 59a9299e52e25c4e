// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// Places the controls of the opening screen, hidden, and shows the title. Expects centroX.
void prepareOpening(Game&);

/// Hides the title again.
void hideTitle(Game&);

/// The choice of game: both mascots play until GO. Leaves tipoPartita as last chosen, the match
/// totals at 0 and the mascots' frames hidden at their places for the sweep. Runs events.
void sceltaPartita(Game&);

void GO_Click(Game&);
void Option1_Click(Game&, int Index);  ///< Index 0 to 2

}  // namespace frmscopa
