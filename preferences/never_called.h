// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

// Answers to events that never come, kept because they say what would be right if they did: the
// holders of the computer's cards and of the deck are never shown, so nobody can click them; the
// information is never edited; and a melody is closed, never stopped. None of these runs events.

void dorso_Click(Game&);         ///< closes the panels
void Mazzo_Click(Game&);         ///< closes the panels
void Text4_Change(Game&);        ///< closes the information
void MMC1_StopCompleted(Game&);  ///< rewinds

}  // namespace frmscopa
