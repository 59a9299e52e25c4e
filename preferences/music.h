// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// Opens the chosen melody, which starts with the first hand, and the sound of a card. Expects
/// brano.
void prepareSound(Game&);

/// Changes the melody at once and keeps the choice; Index noMelody to lastMelody.
void canzoni_Click(Game&, int Index);

void MMC1_Done(Game&);  ///< starts a melody that has reached its end over again

}  // namespace frmscopa
