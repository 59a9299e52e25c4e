// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// Hides the rules and the information panel.
void hidePanels(Game&);

void Italiano_Click(Game&);
void english_Click(Game&);
void menu_about_Click(Game&);
void Text1_Click(Game&);
void Text3_Click(Game&);
void Verde_Click(Game&);
void Rosso_Click(Game&);

}  // namespace frmscopa
