// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/opening_screen.h"

#include "preferences/panels.h"
#include "state/state.h"
#include "table/geometry.h"

namespace frmscopa {
namespace {

void drawPanel(Game& g) {
    const auto [left, top, right, bottom] = openingPanel(g);
    Line(g.frmscopa, left, top, right, bottom, pureBlue, LineStyle::BF);
    Line(g.frmscopa, left - 2, top - 2, right + 2, bottom + 2, 0, LineStyle::B);
    const Spot title = openingTitleSpot(g);
    PaintPicture(g.frmscopa, g.Picture4.picture, title.left, title.top,
                 openingTitleScale * g.Picture2.Width, openingTitleScale * g.Picture2.Height);
}

void showChoice(Game& g, bool visible) {
    for (OptionButton& option : g.Option1) option.Visible = visible;
    g.GO.Visible = visible;
}

template <int Last>
void placeFrames(Array<Image, Last>& frames, Spot spot, bool visible) {
    for (int i = 1; i <= Last; ++i) {
        moveTo(frames(i), spot);
        frames(i).Visible = visible;
    }
}

void startMascots(Game& g) {
    placeFrames(g.Gorilla, openingGorillaSpot(g), true);
    Enabled(g, g.Timer1, true);
    placeFrames(g.Mask2, openingMaskSpot(g), true);
    Enabled(g, g.Timer2, true);
}

void sendMascotsToTheirPlaces(Game& g) {
    Enabled(g, g.Timer1, false);
    Enabled(g, g.Timer2, false);
    placeFrames(g.Gorilla, gorillaSpot(g), false);
    placeFrames(g.Mask2, maskSpot(g), false);
}

}  // namespace

void prepareOpening(Game& g) {
    for (TextBox* panel : {&g.Text1, &g.Text3, &g.Text4}) Move(*panel, 0, 0);
    moveTo(g.Picture4, titleSpot(g));
    g.Picture4.Visible = true;
    for (int i = 0; i <= 2; ++i) moveTo(g.Option1(i), optionSpot(g, i));
    moveTo(g.GO, goSpot(g));
    showChoice(g, false);
}

void hideTitle(Game& g) {
    g.Picture4.Visible = false;
}

void sceltaPartita(Game& g) {
    g.totaleUmano = g.totaleComputer = 0;
    drawPanel(g);
    showChoice(g, true);
    startMascots(g);
    g.sceltaFatta = false;
    while (!g.sceltaFatta) rtcDoEvents(g, never);
    showChoice(g, false);
    sendMascotsToTheirPlaces(g);
}

void GO_Click(Game& g) {
    hidePanels(g);
    g.sceltaFatta = true;
}

void Option1_Click(Game& g, int Index) {
    g.progressoPartita = 0;
    g.tipoPartita = Index;
}

}  // namespace frmscopa
