// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "preferences/panels.h"

#include <sstream>

#include "platform/backend.h"
#include "state/state.h"

namespace frmscopa {
namespace {

/// Says a panel that has been opened, paragraph by paragraph; any key stops the voice.
void tellPanel(Game& g, const TextBox& panel) {
    if (!g.backend.listening()) return;
    g.backend.announce(panel.name + '.');
    std::istringstream paragraphs(panel.Text);
    for (std::string line; std::getline(paragraphs, line);) {
        const bool ruled = line.starts_with('-');
        if (line.empty() || ruled) continue;
        if (const auto tab = line.find('\t'); tab != std::string::npos) line.replace(tab, 1, ", ");
        g.backend.announce(line);
    }
}

}  // namespace

void hidePanels(Game& g) {
    g.Text1.Visible = g.Text3.Visible = g.Text4.Visible = false;
}

void Italiano_Click(Game& g) {
    g.Text3.Visible = true;
    ZOrder(g, g.Text3);
    g.Text1.Visible = false;
    tellPanel(g, g.Text3);
}

void english_Click(Game& g) {
    g.Text1.Visible = true;
    ZOrder(g, g.Text1);
    g.Text3.Visible = false;
    tellPanel(g, g.Text1);
}

/// A switch for the information; it closes the Italian rules and leaves the English ones alone.
void menu_about_Click(Game& g) {
    g.Text3.Visible = false;
    g.Text4.Visible = !g.Text4.Visible;
    if (!g.Text4.Visible) return;
    ZOrder(g, g.Text4);
    tellPanel(g, g.Text4);
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
