// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/deal.h"

#include "game/cards.h"
#include "platform/chance.h"
#include "table/painting.h"
#include "table/wipe.h"

namespace {

constexpr int tableCards = 4;
constexpr int computersPart = 18;  ///< from a human's place of mazzo to the computer's
constexpr int refusedSum = 40;     ///< of the ids of the four table cards
constexpr float computersTop = 5;

/// Draws a card that is left in the source pack; index 0 of it is always empty.
int drawCard(Game& g) {
    while (true) {
        const int k = randomBelow(g, 41);
        const int id = g.pilaPrese(k);
        if (id == 0) continue;
        g.pilaPrese(k) = 0;
        return id;
    }
}

void shuffle(Game& g) {
    do {
        for (int id = 1; id <= 40; ++id) g.pilaPrese(id) = id;
        rtcRandomize(g);
        for (int p = 1; p <= 40; ++p) g.mazzo(p) = drawCard(g);
    } while (g.mazzo(1) + g.mazzo(2) + g.mazzo(3) + g.mazzo(4) == refusedSum);
}

void showLamps(Game& g) {
    for (int i = 0; i <= 1; ++i) g.Verde(i).Visible = g.Rosso(i).Visible = true;
}

void layTable(Game& g) {
    for (int column = 1; column <= tableCards; ++column) {
        ++g.cimaMazzo;
        const int id = g.mazzo(g.cimaMazzo);
        g.tavolo(2, column) = id;
        showCard(g, id, placeLeft(g, column), playedTop(g));
    }
}

}  // namespace

namespace frmscopa {

void Mescola(Game& g) {
    g.tavolo.fill(0);
    g.pilaPrese.fill(0);
    shuffle(g);
    showLamps(g);
    g.cimaMazzo = 0;
    modScopa::sipario(g, g.frmscopa, tableColour);
    layTable(g);
    g.pilaY(human) = rounded(g.centroY * 2 - g.altezzaCarta - 5);
    g.pilaY(computer) = 5;
    paintAtCardSize(g, g.Mazzo.picture, deckLeft, static_cast<float>(g.pilaY(g.mazziere)));
    Command(g, g.MMC1, "Play");
}

void daicarte(Game& g) {
    for (int slot = 0; slot <= 2; ++slot) {
        ++g.cimaMazzo;
        const float left = handLeft(g, slot);
        showCard(g, g.mazzo(g.cimaMazzo), left, handTop(g));
        g.dorso(slot).Tag = std::to_string(g.mazzo(g.cimaMazzo + computersPart));
        paintAtCardSize(g, g.dorso(slot).picture, left, computersTop);
        Move(g.dorso(slot), left, computersTop);
    }
}

}  // namespace frmscopa
