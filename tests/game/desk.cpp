// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "desk.h"

#include <utility>

#include "game/computer.h"
#include "game/human.h"
#include "state/card_holders.h"
#include "state/cards.h"
#include "table/painting.h"

namespace {

Place placeOf(int number) {
    return tableOrder[static_cast<std::size_t>(number - 1)];
}

}  // namespace

std::string notation(const Cards& ids) {
    std::string text;
    for (const int id : ids) {
        if (!text.empty()) text += ' ';
        text += id == 0 ? "." : std::to_string(cardValue(id)) + " dcbs"[suitIndex(id)];
    }
    return text;
}

Desk::Desk() {
    Load(g, g.frmscopa);
    g.queue.clear();  // The sound devices report that they are open.
    g.velocita = 10;
    g.larghezzaCarta = 62;
    g.altezzaCarta = 108;
    g.tavoloX = 267;
    g.tavoloY = 132;
    g.cimaMazzo = 7;
    BackColor(g.frmscopa, tableColour);
}

void Desk::layTable(const Cards& ids) {
    for (int number = 0; const int id : ids) {
        const Place place = placeOf(++number);
        g.tavolo(place.row, place.column) = id;
        if (id != 0) showCard(g, id, placeSpot(g, place));
    }
}

void Desk::giveHuman(const Cards& ids) {
    for (int slot = 0; const int id : ids) {
        g.mazzo(g.cimaMazzo + slot - 2) = id;
        if (id != 0) showCard(g, id, handSpot(g, slot));
        ++slot;
    }
}

void Desk::giveComputer(const Cards& ids) {
    for (int slot = 0; const int id : ids) {
        g.dorso(slot).Tag = std::to_string(id);
        moveTo(g.dorso(slot), computersSpot(g, slot));
        ++slot;
    }
}

void Desk::draw(int k, int n) {
    g.chance.prepared.push_back((static_cast<float>(k) + 0.5f) / static_cast<float>(n));
}

void Desk::beginMove(int player) {
    g.giocatore = player;
    g.cartaGiocata = g.valoreGiocato = g.numeroPresa = g.sommaPresa = 0;
}

void Desk::press(Spot card) {
    pressAt(g, g.frmscopa, card.left + 31, card.top + 54, 1);
}

bool Desk::humanPlays(const std::vector<int>& places, std::vector<int> late) {
    backend.time.user = [this, late = std::move(late), picked = false, next = places.begin(),
                         end = places.end()](double until) mutable {
        if (until == atOnce)
            for (const int number : std::exchange(late, {})) press(placeSpot(g, placeOf(number)));
        if (until != never) return false;
        if (!std::exchange(picked, true)) {
            press(handSpot(g, 0));
        } else if (next != end) {
            press(placeSpot(g, placeOf(*next++)));
        }
        return !g.queue.empty();
    };
    beginMove(human);
    try {
        frmscopa::gioco1(g);
        frmscopa::verifica(g);
    } catch (const ScriptRanOut&) {
        return false;
    }
    return true;
}

void Desk::computerPlays() {
    beginMove(computer);
    frmscopa::gioco2(g);
}

/// The frame lies three units inside the card and is no wider than two.
int Desk::framedSides(int id) const {
    const auto isRed = [&](float across, float down) {
        const Image& card = g.carta(id);
        return Point(g.frmscopa, card.Left + across, card.Top + down) == 0x0000FF;
    };
    return (isRed(3.5f, 54) && !isRed(2.5f, 54)) + (isRed(59.5f, 54) && !isRed(60.5f, 54)) +
           (isRed(31, 3.5f) && !isRed(31, 2.5f)) + (isRed(31, 105.5f) && !isRed(31, 106.5f));
}

Cards Desk::marked() const {
    Cards found;
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        if (id == 0) continue;
        const bool isMarked = ::marked(g, id);
        if (isMarked) found.push_back(id);
        EXPECT_EQ(framedSides(id), isMarked ? 4 : 0) << "sides of the frame of " << notation({id});
    }
    return found;
}
