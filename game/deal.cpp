// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/deal.h"

#include "platform/chance.h"
#include "state/state.h"
#include "table/lamps.h"
#include "table/painting.h"
#include "table/wipe.h"

namespace {

constexpr int tableCards = 4;
constexpr int computersPart = 18;  ///< from a human's place of mazzo to the computer's
constexpr int refusedSum = 40;     ///< of the ids of the four table cards

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

void layTable(Game& g) {
    for (int column = 1; column <= tableCards; ++column) {
        ++g.cimaMazzo;
        const int id = g.mazzo(g.cimaMazzo);
        g.tavolo(2, column) = id;
        showCard(g, id, {placeSpot(g, {2, column}).left, playedSpot(g).top});
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
    measurePiles(g);
    paintAtCardSize(g, g.Mazzo.picture, deckSpot(g));
    Command(g, g.MMC1, "Play");
}

void daicarte(Game& g) {
    for (int slot = 0; slot <= 2; ++slot) {
        ++g.cimaMazzo;
        showCard(g, g.mazzo(g.cimaMazzo), handSpot(g, slot));
        g.dorso(slot).Tag = std::to_string(g.mazzo(g.cimaMazzo + computersPart));
        paintAtCardSize(g, g.dorso(slot).picture, computersSpot(g, slot));
        moveTo(g.dorso(slot), computersSpot(g, slot));
    }
}

}  // namespace frmscopa
