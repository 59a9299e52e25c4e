// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tests/support.h"

#include <sstream>
#include <utility>

#include "game/cards.h"
#include "game/computer.h"
#include "game/human.h"
#include "table/painting.h"

namespace test {
namespace {

constexpr std::string_view suits = "dcbs";

/// "7" alone is the first seven that is not used yet.
Cards read(std::string_view notation, Array<bool, 40>& used) {
    Cards ids;
    std::istringstream in{std::string(notation)};
    for (std::string word; in >> word;) {
        const auto suit = suits.find(word.back());
        int id = word == "." ? 0 : word[0] == 'A' ? 1 : std::stoi(word);
        if (suit != std::string_view::npos) id += 10 * static_cast<int>(suit);
        while (suit == std::string_view::npos && used(id)) id += 10;
        used(id) = id != 0;
        ids.push_back(id);
    }
    return ids;
}

}  // namespace

Cards cards(std::string_view notation) {
    Array<bool, 40> used;
    return read(notation, used);
}

std::string names(const Cards& ids) {
    std::string text;
    for (const int id : ids) {
        if (!text.empty()) text += ' ';
        text += id == 0 ? "."
                        : std::to_string(cardValue(id)) +
                              suits[static_cast<std::size_t>(suitIndex(id) - 1)];
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
    g.pilaY(human) = 487;
    g.pilaY(computer) = 5;
    g.cimaMazzo = 7;
    BackColor(g.frmscopa, tableColour);
}

void Desk::layTable(std::string_view text) {
    Cards ids = read(text, used_);
    ids.resize(tablePlaces);
    for (std::size_t i = 0; i < tablePlaces; ++i) {
        const auto [row, column] = tableOrder[i];
        g.tavolo(row, column) = ids[i];
        if (ids[i] != 0) showCard(g, ids[i], placeLeft(g, column), placeTop(g, row));
    }
}

void Desk::giveHuman(std::string_view text) {
    Cards ids = read(text, used_);
    ids.resize(3);
    for (int s = 0; s <= 2; ++s) {
        const int id = g.mazzo(g.cimaMazzo + s - 2) = ids[static_cast<std::size_t>(s)];
        if (id != 0) showCard(g, id, handLeft(g, s), handTop(g));
    }
}

void Desk::giveComputer(std::string_view text) {
    Cards ids = read(text, used_);
    ids.resize(3);
    for (int s = 0; s <= 2; ++s) {
        const int id = ids[static_cast<std::size_t>(s)];
        g.dorso(s).Tag = std::to_string(id);
        Move(g.dorso(s), handLeft(g, s), 5);
        if (id != 0) paintAtCardSize(g, picture::back, handLeft(g, s), 5);
    }
}

Press Desk::place(int number) const {
    const auto [row, column] = tableOrder[static_cast<std::size_t>(number - 1)];
    return {placeLeft(g, column) + 31, placeTop(g, row) + 54};
}

Press Desk::slot(int k) const {
    return {handLeft(g, k - 1) + 31, handTop(g) + 54};
}

void Desk::script(std::vector<Press> presses) {
    backend.time.user = [this, presses = std::move(presses),
                         next = std::size_t{0}](double until) mutable {
        if (until == atOnce)
            for (const int p : std::exchange(late, {})) press(place(p));
        if (until != never || next == presses.size()) return false;
        press(presses[next++]);
        return true;
    };
}

void Desk::beginMove(int player) {
    g.giocatore = player;
    g.cartaGiocata = g.valoreGiocato = g.numeroPresa = g.sommaPresa = 0;
}

bool Desk::humanPlays(const std::vector<int>& places) {
    std::vector<Press> presses{slot(1)};
    for (const int p : places) presses.push_back(place(p));
    script(presses);
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
    const auto red = [&](float x, float y) { return seenAt({left + x, top + y}) == frameRed; };
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
