// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "game/state.h"

namespace frmscopa {

/// The ace sweep: the player's mascot, then the whole table marked. Expects giocatore and
/// postiVuoti; does nothing on a bare table (12). Leaves presaOk true; for the human valoreGiocato
/// at the sum of the table and numeroPresa at 0, since verifica collects the marked cards itself;
/// for the computer presa filled with the table and valoreGiocato at 0. Runs events.
void velarda(Game&);

void Timer1_Timer(Game&);  ///< steps the Gorilla frames, 80 ms a tick
void Timer2_Timer(Game&);  ///< steps the Mask2 frames and sets its own next interval

}  // namespace frmscopa
