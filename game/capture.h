// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// Fills maschere: entry k, from 1 to 255, names a subset of the positions 1 to 8 by a string of
/// eight characters, the digit p at place p when bit p - 1 of k is set and "0" otherwise.
void Trova_Combinazioni(Game&);

/// Decides what the card tried takes from the table. Expects giocatore, cartaGiocata and
/// valoreGiocato, for the computer also assiMano and carteMano.
///
/// Human: leaves presaOk when a capture is compulsory, presaUguale when it must be one card of
/// equal value; marks nothing. An ace without an ace on the table sweeps it, which runs events.
/// numeroPresa means nothing then: verifica collects what the human marks.
/// Computer: leaves the capture in presa and marks its cards; numeroPresa is 1 for a card of equal
/// value and the number of candidates for a sum, those that are not taken being entries 0.
/// cartaGiocata 0 says that this card takes nothing or is held back; numeroPresa is as it was then
/// where an ace is held back or the table is bare, and 0 otherwise.
/// Both: leaves postiVuoti, and with more than eight candidates numeroPresa 0: the card is placed.
void combina(Game&);

/// The ace sweep: the player's mascot, then the whole table marked. Expects giocatore and
/// postiVuoti; does nothing on a bare table (12). Leaves presaOk true; for the human valoreGiocato
/// at the sum of the table and numeroPresa at 0, since verifica collects the marked cards itself;
/// for the computer presa filled with the table and valoreGiocato at 0. Runs events.
void velarda(Game&);

}  // namespace frmscopa
