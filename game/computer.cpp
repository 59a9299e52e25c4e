// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/computer.h"

#include "game/capture.h"
#include "platform/chance.h"
#include "speech/announcements.h"
#include "state/card_holders.h"
#include "state/cards.h"
#include "state/state.h"
#include "table/painting.h"
#include "table/pause.h"

namespace frmscopa {
namespace {

constexpr int lastSlot = 2;

int heldCard(const Game& g, int slot) {
    return heldBy(g.dorso(slot));
}

/// Takes frames and marks off the table.
void tidyTable(Game& g) {
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        if (id == 0) continue;
        repaintCard(g, id);
        g.carta(id).Tag.clear();
    }
}

void countHand(Game& g) {
    g.carteMano = g.assiMano = 0;
    for (int slot = 0; slot <= lastSlot; ++slot) {
        const int id = heldCard(g, slot);
        g.carteMano += id != 0;
        g.assiMano += isAce(id);
    }
}

void choose(Game& g, int slot) {
    g.postoMano = slot;
    g.cartaGiocata = heldCard(g, slot);
    g.valoreGiocato = cardValue(g.cartaGiocata);
}

/// Tries the cards in slot order; true once one captures, or may not be searched and is placed.
bool tryCaptures(Game& g) {
    for (int slot = 0; slot <= lastSlot; ++slot) {
        if (heldCard(g, slot) == 0) continue;
        choose(g, slot);
        combina(g);
        if (g.cartaGiocata != 0) return true;
    }
    return false;
}

int countSevens(const Game& g) {
    int sevens = 0;
    for (int slot = 0; slot <= lastSlot; ++slot) sevens += heldCard(g, slot) % 10 == 7;
    return sevens;
}

/// The verdicts on a drawn discard; the first that applies counts. They always let one card
/// through, so drawing again comes to an end.
bool accepted(const Game& g, int id, int sevens) {
    if (g.carteMano == 1) return true;
    if (sevens == g.carteMano) return id != settebello;
    if (g.assiMano == g.carteMano) return true;
    return !isAce(id);
}

void discard(Game& g) {
    const int sevens = countSevens(g);
    int slot = 0;
    do {
        slot = randomBelow(g, 3);
    } while (heldCard(g, slot) == 0 || !accepted(g, heldCard(g, slot), sevens));
    choose(g, slot);
    g.numeroPresa = g.sommaPresa = 0;
    if (isAce(g.cartaGiocata) && g.postiVuoti < tablePlaces) velarda(g);
}

void showPlayed(Game& g) {
    Command(g, g.MMCw, "Play");
    g.MMCw.From = 0;
    Image& slot = g.dorso(g.postoMano);
    eraseCard(g, {slot.Left, slot.Top}, {.top = 1});
    showCard(g, g.cartaGiocata, playedSpot(g));
    slot.Tag = "0";
    tellComputersMove(g);
    ritardo(g, 2);
}

}  // namespace

void gioco2(Game& g) {
    tidyTable(g);
    ritardo(g, 2);
    countHand(g);
    if (!tryCaptures(g)) discard(g);
    showPlayed(g);
}

}  // namespace frmscopa
