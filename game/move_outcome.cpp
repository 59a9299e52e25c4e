// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/move_outcome.h"

#include <algorithm>

#include "platform/chance.h"
#include "speech/announcements.h"
#include "state/card_holders.h"
#include "state/cards.h"
#include "state/state.h"
#include "table/motion.h"
#include "table/pause.h"

namespace frmscopa {
namespace {

void drawFreePlace(Game& g) {
    do {
        g.rigaTavolo = randomBelow(g, 3) + 1;
        g.colonnaTavolo = randomBelow(g, 4) + 1;
    } while (g.tavolo(g.rigaTavolo, g.colonnaTavolo) != 0);
}

void lay(Game& g) {
    drawFreePlace(g);
    showLaid(g, g.rigaTavolo, g.colonnaTavolo);
    g.tavolo(g.rigaTavolo, g.colonnaTavolo) = g.cartaGiocata;
    g.carta(g.cartaGiocata).Tag.clear();
}

/// A mask leaves entries 0 in presa. The last one that counts lies on top of the fan.
void dropEmptyEnd(Game& g) {
    while (g.numeroPresa != 0 && g.presa(g.numeroPresa) == 0) --g.numeroPresa;
}

void addToPile(Game& g, int id) {
    ++g.presiUmano;
    g.pilaPrese(g.presiUmano) = id;
}

/// Only the human's cards are written down; the computer's are the others.
void recordPile(Game& g) {
    if (g.giocatore != human) return;
    // In the final sweep the last card played either took its cards when it was played or lies
    // among the leftovers.
    if (!g.raccoltaFinale) addToPile(g, g.cartaGiocata);
    for (int i = 1; i <= g.numeroPresa; ++i)
        if (g.presa(i) != 0) addToPile(g, g.presa(i));
}

void capture(Game& g) {
    if (g.giocatore == human && !g.raccoltaFinale) tellCapture(g);
    fanOut(g);
    ritardo(g, 2);
    g.ultimaPresa = g.giocatore;
    dropEmptyEnd(g);
    slideTogether(g);
    turnOverAndPile(g);
    recordPile(g);
}

/// Takes the marked cards out of tavolo. Leftovers carry no mark and stay there.
void clearTaken(Game& g) {
    for (const auto [row, column] : tableOrder) {
        int& place = g.tavolo(row, column);
        if (!marked(g, place)) continue;
        g.carta(place).Tag.clear();
        place = 0;
    }
}

bool tableIsBare(const Game& g) {
    return std::ranges::all_of(tableOrder,
                               [&](Place place) { return g.tavolo(place.row, place.column) == 0; });
}

/// The very last card of the hand has been played.
bool lastMove(const Game& g) {
    return g.cimaMazzo == deckSpent && g.mosseGiocate == movesOfRound;
}

/// Whoever leaves the table bare makes a scopa, but not with the last card of the hand.
bool isScopa(const Game& g) {
    return tableIsBare(g) && !lastMove(g);
}

}  // namespace

void muovicarte(Game& g) {
    g.posX = g.carta(g.cartaGiocata).Left;
    g.posY = g.carta(g.cartaGiocata).Top;
    if (g.numeroPresa != 0) {
        capture(g);
    } else if (g.raccoltaFinale) {
        return;
    } else {
        lay(g);
    }
    clearTaken(g);
    if (isScopa(g)) {
        ++g.scope(g.giocatore);
        tellScopa(g);
        showScopa(g);
    }
    for (int i = 1; i <= g.numeroPresa; ++i) g.presa(i) = 0;
}

}  // namespace frmscopa
