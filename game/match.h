// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscore {

/// Starts the score sheet afresh: design values, maximised, 800 by 600 units.
void Form_Load(Game&);
void Form_Resize(Game&);

/// Scores the hand and fills the sheet. Runs once for each showing; runs no events.
void Form_Activate(Game&);

/// Ends the program when the window's own close command asks for it (UnloadMode 0).
void Form_QueryUnload(Game&, int UnloadMode);

/// Passes the deal, writes the hand's row, awards its points and decides the caption of Command1:
/// "CONTINUE" when another hand follows, "NEW GAME" when the match is over.
void risultato(Game&);

/// Goes on as the caption says: the next hand, or a clean sheet and the title.
void Command1_Click(Game&);

/// Ends the program.
void Command2_Click(Game&);

}  // namespace frmscore
