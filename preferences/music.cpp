// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "preferences/music.h"

#include "platform/backend.h"
#include "preferences/settings.h"
#include "state/state.h"

namespace frmscopa {
namespace {

/// The spelling of the menu is the spelling of the file names.
std::string melodyPath(Game& g, int index, const char* extension) {
    return g.backend.programFolder() + "/music/" + g.canzoni(index).Caption + extension;
}

}  // namespace

void prepareSound(Game& g) {
    if (g.brano != noMelody) {
        g.MMC1.FileName = melodyPath(g, g.brano, ".mid");
        Command(g, g.MMC1, "Open");
    }
    Command(g, g.MMCw, "Close");
    g.MMCw.FileName = g.backend.programFolder() + "/carta.wav";
    Command(g, g.MMCw, "Open");
}

void canzoni_Click(Game& g, int Index) {
    g.brano = Index;
    Command(g, g.MMC1, "close");
    for (int i = noMelody; i <= lastMelody; ++i) g.canzoni(i).Checked = i == Index;
    if (Index != noMelody) {
        g.MMC1.FileName = melodyPath(g, Index, ".MID");
        Command(g, g.MMC1, "open");
        g.MMC1.From = 0;
        Command(g, g.MMC1, "play");
    }
    writeSettings(g);
}

void MMC1_Done(Game& g) {
    if (Position(g.MMC1) != Length(g.MMC1)) return;
    g.MMC1.From = 0;
    Command(g, g.MMC1, "Play");
}

}  // namespace frmscopa
