// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/keys.h"

#include <algorithm>
#include <cstdlib>

#include "platform/backend.h"
#include "speech/announcements.h"
#include "state/cards.h"
#include "state/state.h"
#include "table/geometry.h"

namespace {

Box cardBox(const Game& g, Spot spot) {
    return {spot.left, spot.top, spot.left + g.larghezzaCarta, spot.top + g.altezzaCarta};
}

Spot middle(const Pressable& card) {
    return {(card.box.left + card.box.right) / 2, (card.box.top + card.box.bottom) / 2};
}

/// The cards of the hand are known by their colour, as they are to the mouse.
std::vector<Pressable> seenInHand(const Game& g) {
    std::vector<Pressable> found;
    for (int slot = 1; slot <= 3; ++slot) {
        const int id = g.mazzo(g.cimaMazzo + slot - 3);
        const Pressable card{id, 0, slot, cardBox(g, handSpot(g, slot - 1))};
        const auto [x, y] = middle(card);
        if (Point(g.frmscopa, x, y) != tableColour) found.push_back(card);
    }
    return found;
}

std::vector<Pressable> onTheTable(const Game& g) {
    std::vector<Pressable> found;
    for (const Place place : tableOrder)
        if (const int id = g.tavolo(place.row, place.column))
            found.push_back({id, place.row, place.column, cardBox(g, placeSpot(g, place))});
    return found;
}

/// Expects some card to be there.
void putRing(Game& g, const std::vector<Pressable>& cards, int ringed) {
    g.ringed = std::clamp(ringed, 0, static_cast<int>(cards.size()) - 1);
    g.frmscopa.ring = cards[static_cast<std::size_t>(g.ringed)].box;
}

/// Where it shows, `ringed` is one of what can be pressed now; else it may be left from before.
bool ringShows(const Game& g) {
    return g.frmscopa.ring.right > g.frmscopa.ring.left;
}

/// Of the nearest row with cards above or below, the card that lies nearest; where there is none,
/// the card itself.
int inNextRow(const std::vector<Pressable>& cards, int from, int step) {
    const auto distance = [&](const Pressable& card) {
        const Pressable& start = cards[static_cast<std::size_t>(from)];
        return std::pair((card.row - start.row) * step, std::abs(card.column - start.column));
    };
    int nearest = from;
    for (int i = 0; i < static_cast<int>(cards.size()); ++i) {
        const auto found = distance(cards[static_cast<std::size_t>(i)]);
        if (found.first <= 0) continue;
        if (nearest == from || found < distance(cards[static_cast<std::size_t>(nearest)]))
            nearest = i;
    }
    return nearest;
}

int ringedAfter(Key key, const std::vector<Pressable>& cards, int ringed) {
    switch (key) {
        case Key::Left:
            return ringed - 1;
        case Key::Right:
            return ringed + 1;
        case Key::Up:
            return inNextRow(cards, ringed, -1);
        case Key::Down:
            return inNextRow(cards, ringed, 1);
        case Key::Home:
            return 0;
        default:
            return static_cast<int>(cards.size()) - 1;
    }
}

/// The first arrow only shows where the ring is.
void moveRing(Game& g, Key key) {
    const auto cards = pressable(g);
    if (cards.empty()) return;
    // There is no row above the hand and none below it: who listens hears the table once more.
    if (g.fase == "gioco1" && (key == Key::Up || key == Key::Down)) tellTable(g);
    const bool arrow = key != Key::Home && key != Key::End;
    putRing(g, cards, ringShows(g) || !arrow ? ringedAfter(key, cards, g.ringed) : g.ringed);
    g.ringInUse = true;
}

void pressRinged(Game& g) {
    const auto cards = pressable(g);
    if (!ringShows(g) || cards.empty()) return tellRefusal(g);
    press(g, cards[static_cast<std::size_t>(g.ringed)]);
}

void pressSlot(Game& g, int slot) {
    for (const Pressable& card : pressable(g))
        if (g.fase == "gioco1" && card.column == slot) return press(g, card);
    tellRefusal(g);
}

/// The arrows go up and down the three kinds of match.
void chooseMatch(Game& g, Key key) {
    int chosen = 0;
    for (const OptionButton& option : g.Option1)
        if (option.Value) chosen = option.index;
    if (key == Key::Left || key == Key::Up) --chosen;
    if (key == Key::Right || key == Key::Down) ++chosen;
    if (key == Key::Home) chosen = 0;
    if (key == Key::End) chosen = 2;
    clickOn(g, g.frmscopa, g.Option1(std::clamp(chosen, 0, 2)));
}

/// The panel in front, by what closes it: the information does not answer a click.
void closePanel(Game& g) {
    const TextBox* front = nullptr;
    for (const TextBox* panel : {&g.Text1, &g.Text3, &g.Text4})
        if (panel->Visible && (!front || panel->z > front->z)) front = panel;
    if (!front) return;
    const Source closes = front == &g.Text4 ? Source::menu_about : front->source;
    g.queue.push_back({closes, Verb::Click});
}

}  // namespace

std::vector<Pressable> pressable(const Game& g) {
    if (g.fase == "gioco1" && g.cartaGiocata == 0) return seenInHand(g);
    if (g.fase == "selezione") return onTheTable(g);
    return {};
}

void press(Game& g, const Pressable& card) {
    const auto [x, y] = middle(card);
    pressAt(g, g.frmscopa, x, y, 1);
}

namespace frmscopa {

void Form_KeyDown(Game& g, Key key) {
    if (key == Key::Escape) {
        closePanel(g);
    } else if (key <= Key::Three) {
        pressSlot(g, static_cast<int>(key) + 1);
    } else if (g.GO.Visible) {
        key == Key::Press ? clickOn(g, g.frmscopa, g.GO) : chooseMatch(g, key);
    } else if (key == Key::Press) {
        pressRinged(g);
    } else {
        moveRing(g, key);
    }
}

void Form_MouseMove(Game& g) {
    g.ringInUse = false;
    withdrawRing(g);
}

void ringFirst(Game& g) {
    g.ringed = 0;
    // What comes under the ring is spoken, and whatever is being said stops for it. To who listens
    // it comes only when a key asks for it.
    if (g.backend.listening()) g.ringInUse = false;
    if (!g.ringInUse) return;
    if (const auto cards = pressable(g); !cards.empty()) putRing(g, cards, g.ringed);
}

void withdrawRing(Game& g) {
    g.frmscopa.ring = {};
}

}  // namespace frmscopa
