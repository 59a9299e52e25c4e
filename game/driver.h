// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// Prepares the table once: masks, settings, sound, the first dealer.
void Form_Load(Game&);

/// Plays one whole hand: measures the table, in a new match leads through the title and the
/// opening screen, then shuffles, deals and plays. Runs events.
void Form_Activate(Game&);

/// Sets the surface to 800 by 600 units unless the window is minimised.
void Form_Resize(Game&);

/// Ends the program when the window's own close command asks for it (UnloadMode 0).
void Form_QueryUnload(Game&, int UnloadMode);

/// Closes the sound devices.
void Form_Unload(Game&);

/// Ends the program.
void esci_Click(Game&);

/// Plays a hand from the first lead to the last taker's leftovers, tallies it and shows the score
/// sheet. Expects a dealt table. Runs events.
void gioco(Game&);

}  // namespace frmscopa
