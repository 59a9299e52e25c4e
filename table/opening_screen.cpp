// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/opening_screen.h"

#include "preferences/panels.h"

namespace frmscopa {
namespace {

constexpr float panelHalfWidth = 200, panelAbove = 250, panelBelow = 210;
constexpr float titleTop = 20 + twipsToUnitsDown(3024);
constexpr float optionTop = 100, optionPitch = 30, goTop = 300;
constexpr float sweepLeft = 100, gorillaAbove = 180, maskBelow = 100;

void moveToMiddle(const Game& g, Control& control, float top) {
    Move(control, g.centroX - control.Width / 2, top);
}

void drawPanel(Game& g) {
    const float left = g.centroX - panelHalfWidth, right = g.centroX + panelHalfWidth;
    const float top = g.centroY - panelAbove, bottom = g.centroY + panelBelow;
    Line(g.frmscopa, left, top, right, bottom, pureBlue, LineStyle::BF);
    Line(g.frmscopa, left - 2, top - 2, right + 2, bottom + 2, 0, LineStyle::B);
    PaintPicture(g.frmscopa, g.Picture4.picture, g.centroX - 1.5f * g.Picture2.Width,
                 g.centroY - 100, 3 * g.Picture2.Width, 3 * g.Picture2.Height);
}

void showChoice(Game& g, bool visible) {
    for (OptionButton& option : g.Option1) option.Visible = visible;
    g.GO.Visible = visible;
}

template <int Last>
void placeFrames(Array<Image, Last>& frames, float left, float top, bool visible) {
    for (int i = 1; i <= Last; ++i) {
        Move(frames(i), left, top);
        frames(i).Visible = visible;
    }
}

void startMascots(Game& g) {
    const float below = g.GO.Top + g.GO.Height;
    placeFrames(g.Gorilla, g.centroX - 100, below + 10, true);
    Enabled(g, g.Timer1, true);
    placeFrames(g.Mask2, g.centroX + 10, below + 20, true);
    Enabled(g, g.Timer2, true);
}

void sendMascotsToTheirPlaces(Game& g) {
    Enabled(g, g.Timer1, false);
    Enabled(g, g.Timer2, false);
    placeFrames(g.Gorilla, sweepLeft, g.centroY - gorillaAbove, false);
    placeFrames(g.Mask2, sweepLeft, g.centroY + maskBelow, false);
}

}  // namespace

void prepareOpening(Game& g) {
    for (TextBox* panel : {&g.Text1, &g.Text3, &g.Text4}) Move(*panel, 0, 0);
    moveToMiddle(g, g.Picture4, titleTop);
    g.Picture4.Visible = true;
    for (int i = 0; i <= 2; ++i)
        moveToMiddle(g, g.Option1(i), optionTop + optionPitch * static_cast<float>(i));
    moveToMiddle(g, g.GO, goTop);
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
