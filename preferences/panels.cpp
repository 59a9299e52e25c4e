// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "preferences/panels.h"

#include "state/state.h"

namespace frmscopa {

void hidePanels(Game& g) {
    g.Text1.Visible = g.Text3.Visible = g.Text4.Visible = false;
}

void Italiano_Click(Game& g) {
    g.Text3.Visible = true;
    ZOrder(g, g.Text3);
    g.Text1.Visible = false;
}

void english_Click(Game& g) {
    g.Text1.Visible = true;
    ZOrder(g, g.Text1);
    g.Text3.Visible = false;
}

/// A switch for the information; it closes the Italian rules and leaves the English ones alone.
void menu_about_Click(Game& g) {
    g.Text3.Visible = false;
    g.Text4.Visible = !g.Text4.Visible;
    if (g.Text4.Visible) ZOrder(g, g.Text4);
}

void Text1_Click(Game& g) {
    g.Text1.Visible = false;
}

void Text3_Click(Game& g) {
    g.Text3.Visible = false;
}

void Verde_Click(Game& g) {
    hidePanels(g);
}

void Rosso_Click(Game& g) {
    hidePanels(g);
}

}  // namespace frmscopa
