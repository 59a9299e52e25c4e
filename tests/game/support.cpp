// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "support.h"

#include <sstream>
#include <utility>

#include "game/computer.h"
#include "game/human.h"
#include "state/cards.h"
#include "state/holders.h"
#include "state/scoring.h"
#include "table/painting.h"

namespace test {

constexpr std::string_view suits = "dcbs";

std::string names(const Cards& ids) {
    std::string text;
    for (const int id : ids)
        text += id == 0 ? " ."
                        : ' ' + std::to_string(cardValue(id)) +
                              suits[static_cast<std::size_t>(suitIndex(id) - 1)];
    return text.substr(text.empty() ? 0 : 1);
}

Desk::Desk() {
    Load(g, g.frmscopa);
    g.queue.clear();  // The sound devices report that they are open.
    g.velocita = 10;
    g.larghezzaCarta = 62;
    g.altezzaCarta = 108;
    g.tavoloX = 267;
    g.tavoloY = 132;
    g.pilaY(human) = 487;
    g.pilaY(computer) = 5;
    g.cimaMazzo = 7;
    BackColor(g.frmscopa, tableColour);
}

Cards Desk::lay(std::string_view notation, std::size_t places) {
    Cards ids;
    std::istringstream in{std::string(notation)};
    for (std::string word; in >> word;) {
        const auto suit = suits.find(word.back());
        int id = word == "." ? 0 : std::stoi(word);
        if (suit != std::string_view::npos) id += 10 * static_cast<int>(suit);
        while (suit == std::string_view::npos && used_(id)) id += 10;
        used_(id) = id != 0;
        ids.push_back(id);
    }
    ids.resize(places);
    return ids;
}

void Desk::layTable(std::string_view text) {
    for (std::size_t i = 0; const int id : lay(text, tablePlaces)) {
        const auto [row, column] = tableOrder[i++];
        g.tavolo(row, column) = id;
        if (id != 0) showCard(g, id, placeSpot(g, {row, column}));
    }
}

void Desk::giveHuman(std::string_view text) {
    for (int s = 0; const int id : lay(text, 3)) {
        g.mazzo(g.cimaMazzo + s - 2) = id;
        if (id != 0) showCard(g, id, handSpot(g, s));
        ++s;
    }
}

void Desk::giveComputer(std::string_view text) {
    for (int s = 0; const int id : lay(text, 3)) {
        g.dorso(s).Tag = std::to_string(id);
        moveTo(g.dorso(s), computersSpot(g, s));
        ++s;
    }
}

void Desk::count(const Cards& taken) {
    std::ranges::copy(taken, g.pilaPrese.begin() + 1);
    g.presiUmano = static_cast<int>(taken.size());
    g.denariUmano = 0;
    frmscopa::tallyHand(g);
    frmscopa::calcsettanta(g);
}

void Desk::beginMove(int player) {
    g.giocatore = player;
    g.cartaGiocata = g.valoreGiocato = g.numeroPresa = g.sommaPresa = 0;
}

void Desk::pressPlace(int number) {
    const auto [row, column] = tableOrder[static_cast<std::size_t>(number - 1)];
    const Spot card = placeSpot(g, {row, column});
    pressAt(g, g.frmscopa, card.left + 31, card.top + 54, 1);
}

bool Desk::humanPlays(const std::vector<int>& places) {
    backend.time.user = [&, next = places.begin()](double until) mutable {
        if (until == atOnce)
            for (const int p : std::exchange(late, {})) pressPlace(p);
        if (until != never) return false;
        if (g.cartaGiocata == 0) {
            const Spot card = handSpot(g, 0);
            pressAt(g, g.frmscopa, card.left + 31, card.top + 54, 1);
        } else if (next != places.end()) {
            pressPlace(*next++);
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
    const float left = g.carta(id).Left, top = g.carta(id).Top;
    const auto red = [&](float x, float y) {
        return Point(g.frmscopa, left + x, top + y) == frameRed;
    };
    return (red(3.5f, 54) && !red(2.5f, 54)) + (red(59.5f, 54) && !red(60.5f, 54)) +
           (red(31, 3.5f) && !red(31, 2.5f)) + (red(31, 105.5f) && !red(31, 106.5f));
}

Cards Desk::marked() const {
    Cards found;
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        const bool isMarked = ::marked(g, id);
        if (isMarked) found.push_back(id);
        if (id == 0) continue;
        EXPECT_EQ(framedSides(id), isMarked ? 4 : 0) << "frame of " << names({id});
    }
    return found;
}

}  // namespace test
