// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/human.h"

#include <cmath>

#include "game/capture.h"
#include "game/cards.h"
#include "preferences/panels.h"
#include "table/motion.h"
#include "table/painting.h"

namespace frmscopa {
namespace {

bool insideHandBand(const Game& g, float X, float Y) {
    return X > handLeft(g, 0) && X < handLeft(g, 3) && Y > handTop(g) && Y < handBottom;
}

void pickHandCard(Game& g, float X, float Y) {
    // A card is in play already: its sweep runs, or a second press came along with the first.
    if (g.cartaGiocata != 0 || !insideHandBand(g, X, Y)) return;
    g.postoMano = X > handLeft(g, 2) ? 3 : X > handLeft(g, 1) - 1 ? 2 : 1;
    g.cartaGiocata = g.mazzo(g.cimaMazzo + g.postoMano - 3);
    g.valoreGiocato = cardValue(g.cartaGiocata);
    Command(g, g.MMCw, "Play");
    g.MMCw.From = 0;
    const Image& card = g.carta(g.cartaGiocata);
    erase(g, card.Left, card.Top, card.Left + g.larghezzaCarta, card.Top + g.altezzaCarta);
    showCard(g, g.cartaGiocata, playedLeft(g), playedTop(g));
}

int gridLine(float distance, float pitch) {
    return static_cast<int>(std::floor(distance / pitch)) + 1;
}

void pickTableCard(Game& g, float X, float Y) {
    g.rigaTavolo = gridLine(Y - g.tavoloY, g.altezzaCarta + gap);
    g.colonnaTavolo = gridLine(X - g.tavoloX, g.larghezzaCarta + gap);
    if (g.rigaTavolo < 1 || g.rigaTavolo > 3) return;
    if (g.colonnaTavolo < 1 || g.colonnaTavolo > 4) return;
    const int id = g.tavolo(g.rigaTavolo, g.colonnaTavolo);
    if (id == 0) return;
    if (marked(g, id)) {
        g.carta(id).Tag.clear();
        repaintCard(g, id);
    } else {
        mark(g, id);
    }
}

void collectSelection(Game& g) {
    g.numeroPresa = g.sommaPresa = 0;
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        if (!marked(g, id)) continue;
        enterTaken(g, ++g.numeroPresa, id);
        g.sommaPresa += cardValue(id);
    }
}

/// velarda sums the table the same way into valoreGiocato, so a sweep passes at once.
bool legalSelection(const Game& g) {
    if (g.presaUguale && g.numeroPresa > 1) return false;
    return g.sommaPresa == g.valoreGiocato;
}

/// A click may have come in since the selection was collected, one card may even have been
/// changed for another.
bool selectionStands(const Game& g) {
    for (int i = 1; i <= g.numeroPresa; ++i)
        if (!marked(g, g.presa(i))) return false;
    return markedCount(g) == g.numeroPresa;
}

void waitForSelection(Game& g) {
    g.fase = "selezione";
    while (true) {
        collectSelection(g);
        rtcDoEvents(g, legalSelection(g) ? atOnce : never);
        if (!legalSelection(g)) continue;
        if (selectionStands(g)) return;
        repaintTable(g);
    }
}

}  // namespace

void Form_MouseDown(Game& g, int, int, float X, float Y) {
    hidePanels(g);
    if (Point(g.frmscopa, X, Y) == tableColour) return;
    if (g.fase == "gioco1") {
        pickHandCard(g, X, Y);
    } else if (g.fase == "selezione") {
        pickTableCard(g, X, Y);
    }
}

void gioco1(Game& g) {
    g.fase = "gioco1";
    while (g.cartaGiocata == 0) rtcDoEvents(g, never);
    ++g.mosseGiocate;
}

void verifica(Game& g) {
    combina(g);
    if (g.presaOk) {
        waitForSelection(g);
    } else {
        repaintTable(g);
        g.numeroPresa = g.sommaPresa = 0;
    }
    g.fase.clear();
    ritardo(g, 1);
}

}  // namespace frmscopa
