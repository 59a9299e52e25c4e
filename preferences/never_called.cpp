// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "preferences/never_called.h"

#include "preferences/panels.h"
#include "state/state.h"

namespace frmscopa {

void dorso_Click(Game& g) {
    hidePanels(g);
}

void Mazzo_Click(Game& g) {
    hidePanels(g);
}

void Text4_Change(Game& g) {
    g.Text4.Visible = false;
}

void MMC1_StopCompleted(Game& g) {
    g.MMC1.From = 0;
}

}  // namespace frmscopa
