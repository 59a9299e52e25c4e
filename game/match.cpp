// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/match.h"

#include "speech/announcements.h"
#include "state/scoring.h"
#include "state/state.h"
#include "table/score_sheet.h"
#include "table/wipe.h"

namespace frmscore {
namespace {

/// What each kind of match must pass, by tipoPartita; a single game only wants a difference.
constexpr int mark[] = {-1, 10, 20};

void passDeal(Game& g) {
    if (++g.mazziere == 3) g.mazziere = human;
}

/// A draw never ends a match.
bool matchOver(const Game& g) {
    if (g.totaleUmano == g.totaleComputer) return false;
    const int needed = mark[g.tipoPartita];
    return g.totaleUmano > needed || g.totaleComputer > needed;
}

}  // namespace

void Form_Load(Game& g) {
    designScore(g, g.backend);
    g.frmscore.WindowState = maximised;
    Form_Resize(g);
}

void Form_Resize(Game& g) {
    if (g.frmscore.WindowState == minimised) return;
    g.frmscore.ScaleWidth = unitsAcross;
    g.frmscore.ScaleHeight = unitsDown;
}

void Form_Activate(Game& g) {
    layHeadings(g);
    risultato(g);
    mostrasettanta(g);
    notify(g, Moment::scored);
    tellScore(g);
}

void Form_QueryUnload(Game&, int UnloadMode) {
    if (UnloadMode == 0) throw EndProgram{};
}

void risultato(Game& g) {
    if (g.tipoPartita == 0) g.totaleUmano = g.totaleComputer = 0;
    showButtons(g);
    passDeal(g);
    captionPlayers(g);
    fillRow(g);
    placeTotals(g);
    awardPoints(g);
    captionTotals(g);
    g.Command1.Caption = matchOver(g) ? "NEW GAME" : "CONTINUE";
    if (g.tipoPartita > 0) g.progressoPartita += labelsPerHand;
}

void Command1_Click(Game& g) {
    // A second press may arrive after the first has shown the table.
    if (g.front != &g.frmscore) return;
    if (g.Command1.Caption == "NEW GAME") {
        for (Control* control : g.frmscore.controls) control->Visible = false;
        g.progressoPartita = 0;
        modScopa::sipario(g, g.frmscore, pureBlue);
        Unload(g, g.frmscore);
        g.totaleUmano = g.totaleComputer = 0;
    }
    Show(g, g.frmscopa);
}

void Command2_Click(Game& g) {
    Unload(g, g.frmscore);
    throw EndProgram{};
}

}  // namespace frmscore
