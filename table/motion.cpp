// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/motion.h"

#include "game/cards.h"
#include "platform/chance.h"
#include "table/painting.h"

namespace frmscopa {
namespace {

constexpr float fanStep = 0.3f;  ///< of a card's height, from one taken card to the next
constexpr float slideStep = 2;   ///< units
constexpr float scopaStep = 25;  ///< units, from one scopa card to the next
constexpr float bannerTime = 120;

void drawFreePlace(Game& g) {
    do {
        g.rigaTavolo = randomBelow(g, 3) + 1;
        g.colonnaTavolo = randomBelow(g, 4) + 1;
    } while (g.tavolo(g.rigaTavolo, g.colonnaTavolo) != 0);
}

void layCard(Game& g) {
    drawFreePlace(g);
    showCard(g, g.cartaGiocata, placeLeft(g, g.colonnaTavolo), placeTop(g, g.rigaTavolo));
    // Cleared only now that the card is seen at its new place.
    erase(g, g.posX, g.posY - 1, g.posX + g.larghezzaCarta, g.posY + g.altezzaCarta);
    g.tavolo(g.rigaTavolo, g.colonnaTavolo) = g.cartaGiocata;
    g.carta(g.cartaGiocata).Tag.clear();
}

/// The taken cards climb above the played card one by one. An entry 0 leaves its step empty.
void fan(Game& g) {
    const int entries = g.numeroPresa;
    for (int i = 1; i <= entries; ++i) {
        ritardo(g, 1);
        const int id = g.presa(i);
        if (id == 0) continue;
        const auto left = static_cast<float>(g.presaX(i)), top = static_cast<float>(g.presaY(i));
        erase(g, left - 1, top - 1, left + g.larghezzaCarta, top + g.altezzaCarta);
        showCard(g, id, g.posX, g.posY - static_cast<float>(i) * fanStep * g.altezzaCarta);
    }
}

void dropEmptyEnd(Game& g) {
    while (g.numeroPresa != 0 && g.presa(g.numeroPresa) == 0) --g.numeroPresa;
}

/// The top card runs down over the fan, wiping it, until it covers the played card.
void slide(Game& g) {
    const int top = g.presa(g.numeroPresa);
    g.posZ = g.carta(top).Top;
    while (g.posZ < g.posY) {
        g.posZ += slideStep;
        showFrame(g);
        paintAtCardSize(g, g.carta(top).picture, g.posX, g.posZ + 1);
        erase(g, g.posX, g.posZ - 3, g.posX + g.larghezzaCarta, g.posZ);
    }
}

void turnOverAndPile(Game& g) {
    ritardo(g, 1);
    paintAtCardSize(g, g.Mazzo.picture, g.posX, g.posY + 2);
    ritardo(g, 2);
    erase(g, g.posX, g.posY - 1, g.posX + g.larghezzaCarta, g.posY + g.altezzaCarta + 3);
    paintAtCardSize(g, g.Mazzo.picture, pileLeft, static_cast<float>(g.pilaY(g.giocatore)));
}

void addToPile(Game& g, int id) {
    ++g.presiUmano;
    g.pilaPrese(g.presiUmano) = id;
}

void recordPile(Game& g) {
    // In the final sweep the last card played either took its cards when it was played or lies
    // among the leftovers.
    if (!g.raccoltaFinale) addToPile(g, g.cartaGiocata);
    for (int i = 1; i <= g.numeroPresa; ++i)
        if (g.presa(i) != 0) addToPile(g, g.presa(i));
}

void capture(Game& g) {
    fan(g);
    ritardo(g, 2);
    g.ultimaPresa = g.giocatore;
    dropEmptyEnd(g);
    slide(g);
    turnOverAndPile(g);
    if (g.giocatore == human) recordPile(g);
}

/// Takes the marked cards out of tavolo and returns how many places are free then.
int clearTaken(Game& g) {
    int free = 0;
    for (const auto [row, column] : tableOrder) {
        int& place = g.tavolo(row, column);
        if (marked(g, place)) {
            g.carta(place).Tag.clear();
            place = 0;
        }
        free += place == 0;
    }
    return free;
}

void scopa(Game& g) {
    const int n = ++g.scope(g.giocatore);
    const float towardsMiddle = g.giocatore == human ? -scopaStep : scopaStep;
    g.posX = g.larghezzaCarta + 100;
    g.posY = static_cast<float>(g.pilaY(g.giocatore)) + towardsMiddle * static_cast<float>(n - 1);
    paintAtCardSize(g, g.carta(g.cartaGiocata).picture, g.posX, g.posY);
    g.Picture2.Visible = true;
    // Scaled here and again by ritardo: the banner's time falls with the square of the rate.
    ritardo(g, bannerTime / static_cast<float>(g.velocita));
    g.Picture2.Visible = false;
}

}  // namespace

void ritardo(Game& g, float t) {
    const double duration = static_cast<double>(t) * 10 / g.velocita;
    const double end = rtcGetTimer(g) + duration;
    while (rtcGetTimer(g) < end) rtcDoEvents(g, end);
}

void muovicarte(Game& g) {
    g.posX = g.carta(g.cartaGiocata).Left;
    g.posY = g.carta(g.cartaGiocata).Top;
    if (g.numeroPresa != 0) {
        capture(g);
    } else if (g.raccoltaFinale) {
        return;
    } else {
        layCard(g);
    }
    if (clearTaken(g) == tablePlaces && !lastMove(g)) scopa(g);
    for (int i = 1; i <= g.numeroPresa; ++i) g.presa(i) = 0;
}

}  // namespace frmscopa
