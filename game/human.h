// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// A press on the bare surface or a painted card; x and y in units, the button does not matter.
/// Closes the panels, then picks a hand card or marks a table card, as fase says. Picking leaves
/// cartaGiocata, valoreGiocato and postoMano. Runs no events.
void Form_MouseDown(Game&, int Button, int Shift, float X, float Y);

/// Waits until the human has clicked a card of the hand. Expects cartaGiocata at 0; leaves the
/// pick of Form_MouseDown and mosseGiocate one higher. Runs events.
void gioco1(Game&);

/// Checks the human's card and holds the turn until the marked cards are a legal capture, where
/// one is compulsory. Expects cartaGiocata and valoreGiocato; leaves presa, presaX, presaY and
/// numeroPresa, 0 when the card is placed, and fase empty. Runs events.
void verifica(Game&);

}  // namespace frmscopa
