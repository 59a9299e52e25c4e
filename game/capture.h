// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "game/state.h"

namespace frmscopa {

/// Fills maschere: entry k, from 1 to 255, names a subset of the positions 1 to 8 by a string of
/// eight characters, the digit p at place p when bit p - 1 of k is set and "0" otherwise.
void Trova_Combinazioni(Game&);

/// Decides what the card tried takes from the table. Expects giocatore, cartaGiocata and
/// valoreGiocato, for the computer also assiMano and carteMano.
///
/// Human: leaves presaOk when a capture is compulsory, presaUguale when it must be one card of
/// equal value; marks nothing. An ace without an ace on the table sweeps it, which runs events.
/// Computer: leaves the capture in presa and numeroPresa and marks its cards; cartaGiocata 0 says
/// that this card takes nothing or is held back. Both: leaves postiVuoti, and with more than eight
/// candidates the card is simply placed.
void combina(Game&);

}  // namespace frmscopa
