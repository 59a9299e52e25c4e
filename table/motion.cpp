// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/motion.h"

#include "state/state.h"
#include "table/painting.h"
#include "table/pause.h"

using frmscopa::ritardo;

namespace {

constexpr float slideStep = 2;  ///< units
constexpr float bannerTime = 120;

}  // namespace

void showLaid(Game& g, int row, int column) {
    showCard(g, g.cartaGiocata, placeSpot(g, {row, column}));
    // Cleared only now that the card is seen at its new place.
    eraseCard(g, {g.posX, g.posY}, {.top = 1});
}

void fanOut(Game& g) {
    const int entries = g.numeroPresa;
    for (int i = 1; i <= entries; ++i) {
        ritardo(g, 1);
        const int id = g.presa(i);
        if (id == 0) continue;
        const auto left = static_cast<float>(g.presaX(i)), top = static_cast<float>(g.presaY(i));
        eraseCard(g, {left, top}, {.left = 1, .top = 1});
        showCard(g, id, fanSpot(g, i));
    }
}

void slideTogether(Game& g) {
    const int top = g.presa(g.numeroPresa);
    g.posZ = g.carta(top).Top;
    while (g.posZ < g.posY) {
        g.posZ += slideStep;
        showFrame(g);
        paintAtCardSize(g, g.carta(top).picture, {g.posX, g.posZ + 1});
        erase(g, g.posX, g.posZ - 3, g.posX + g.larghezzaCarta, g.posZ);
    }
}

void turnOverAndPile(Game& g) {
    ritardo(g, 1);
    paintAtCardSize(g, g.Mazzo.picture, {g.posX, g.posY + 2});
    ritardo(g, 2);
    eraseCard(g, {g.posX, g.posY}, {.top = 1, .bottom = 3});
    paintAtCardSize(g, g.Mazzo.picture, pileSpot(g, g.giocatore));
}

void showScopa(Game& g) {
    const Spot spot = scopaSpot(g, g.giocatore, g.scope(g.giocatore));
    g.posX = spot.left;
    g.posY = spot.top;
    paintAtCardSize(g, g.carta(g.cartaGiocata).picture, spot);
    g.Picture2.Visible = true;
    // Scaled here and again by ritardo: the banner's time falls with the square of the rate.
    ritardo(g, bannerTime / static_cast<float>(g.velocita));
    g.Picture2.Visible = false;
}
