// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/human.h"

#include "game/capture.h"
#include "game/keys.h"
#include "preferences/panels.h"
#include "speech/announcements.h"
#include "state/card_holders.h"
#include "state/cards.h"
#include "state/state.h"
#include "table/painting.h"
#include "table/pause.h"

namespace frmscopa {
namespace {

/// True when a card is in play now, as before.
bool pickHandCard(Game& g, float X, float Y) {
    // A card is in play already: its sweep runs, or a second press came along with the first.
    if (g.cartaGiocata != 0) return true;
    const int slot = handSlotAt(g, X, Y);
    if (slot == 0) return false;
    g.postoMano = slot;
    g.cartaGiocata = g.mazzo(g.cimaMazzo + g.postoMano - 3);
    g.valoreGiocato = cardValue(g.cartaGiocata);
    Command(g, g.MMCw, "Play");
    g.MMCw.From = 0;
    const Image& card = g.carta(g.cartaGiocata);
    eraseCard(g, {card.Left, card.Top});
    showCard(g, g.cartaGiocata, playedSpot(g));
    return true;
}

/// True when there was a card to mark or to let go.
bool pickTableCard(Game& g, float X, float Y) {
    const Place place = tablePlaceAt(g, X, Y);
    g.rigaTavolo = place.row;
    g.colonnaTavolo = place.column;
    if (!onTable(place)) return false;
    const int id = g.tavolo(place.row, place.column);
    if (id == 0) return false;
    if (marked(g, id)) {
        g.carta(id).Tag.clear();
        repaintCard(g, id);
    } else {
        mark(g, id);
    }
    tellMark(g, id);
    return true;
}

/// False when the press is not possible now.
bool play(Game& g, float X, float Y) {
    if (Point(g.frmscopa, X, Y) == tableColour) return false;
    if (g.fase == "gioco1") return pickHandCard(g, X, Y);
    return g.fase == "selezione" && pickTableCard(g, X, Y);
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
    collectSelection(g);
    // After a sweep there is nothing left to choose.
    if (!legalSelection(g)) ringFirst(g);
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
    const bool closes = g.Text1.Visible || g.Text3.Visible || g.Text4.Visible;
    hidePanels(g);
    if (!play(g, X, Y) && !closes) tellRefusal(g);
}

void gioco1(Game& g) {
    g.fase = "gioco1";
    ringFirst(g);
    while (g.cartaGiocata == 0) rtcDoEvents(g, never);
    withdrawRing(g);
    ++g.mosseGiocate;
}

void verifica(Game& g) {
    combina(g);
    tellHumansCard(g);
    if (g.presaOk) {
        waitForSelection(g);
    } else {
        repaintTable(g);
        g.numeroPresa = g.sommaPresa = 0;
    }
    g.fase.clear();
    withdrawRing(g);
    ritardo(g, 1);
}

}  // namespace frmscopa
