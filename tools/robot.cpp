// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tools/robot.h"

#include <cassert>

#include "state/cards.h"
#include "state/state.h"
#include "table/geometry.h"

namespace {

constexpr int mostCandidates = 8;

struct Candidate {
    int bit, value;
};

/// Calls `found` with each subset of the table that may be marked for the card in play, as bits in
/// table order: bit 0 for row 1, column 1. Expects verifica to wait for a selection.
template <class Found>
void eachLegalSelection(const Game& g, const Found& found) {
    Array<Candidate, tablePlaces> candidates;
    int count = 0;
    for (int i = 0; i < tablePlaces; ++i) {
        const auto [row, column] = tableOrder[static_cast<std::size_t>(i)];
        const int id = g.tavolo(row, column);
        if (id == 0 || cardValue(id) > g.valoreGiocato) continue;
        if (cardValue(id) == g.valoreGiocato) found(1 << i);
        candidates(count++) = {1 << i, cardValue(id)};
    }
    if (g.presaUguale || count > mostCandidates) return;
    for (int subset = 1; subset < 1 << count; ++subset) {
        int sum = 0, mask = 0;
        for (int c = 0; c < count; ++c) {
            if ((subset >> c & 1) == 0) continue;
            sum += candidates(c).value;
            mask |= candidates(c).bit;
        }
        if (sum == g.valoreGiocato) found(mask);
    }
}

}  // namespace

int Robot::draw(int n) {
    assert(n > 0);
    // A xorshift generator is quick and good enough to choose cards; 0 is its only dead state.
    if (state_ == 0) state_ = 0x9e3779b97f4a7c15u;
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(n));
}

void Robot::pressAt(float x, float y, int button) {
    ::pressAt(g_, g_.frmscopa, x, y, button);
}

/// Leads the ring to one of what can be pressed, and presses it.
void Robot::keyInto(int entry) const {
    key(Key::Home);
    for (int i = 0; i < entry; ++i) key(Key::Right);
    key(Key::Press);
}

void Robot::pressHand(int slot) {
    if (key) return key(static_cast<Key>(slot - 1));
    const Spot card = handSpot(g_, slot - 1);
    pressAt(card.left + g_.larghezzaCarta / 2, card.top + g_.altezzaCarta / 2);
}

void Robot::pressTable(int row, int column) {
    if (key) {
        int before = 0;
        for (const Place place : tableOrder) {
            if (place.row == row && place.column == column) return keyInto(before);
            before += g_.tavolo(place.row, place.column) != 0;
        }
    }
    const Spot card = placeSpot(g_, {row, column});
    pressAt(card.left + g_.larghezzaCarta / 2, card.top + g_.altezzaCarta / 2);
}

bool Robot::holds(int slot) const {
    const Spot card = handSpot(g_, slot - 1);
    return Point(g_.frmscopa, card.left + g_.larghezzaCarta / 2, card.top + g_.altezzaCarta / 2) !=
           tableColour;
}

void Robot::playHandCard() {
    if (g_.mosseGiocate <= 1) played_ = 0;  // the first of the deal, its leader may have moved
    Array<int, 2> held;
    int count = 0;
    for (int slot = 1; slot <= 3; ++slot)
        if ((played_ >> slot & 1) == 0) held(count++) = slot;
    const int slot = held(draw(count));
    played_ |= 1 << slot;
    pressHand(slot);
}

/// Each of n selections has the chance 1 / n: the k-th takes the place of the last with 1 / k.
int Robot::chooseSelection() {
    int chosen = 0, seen = 0;
    eachLegalSelection(g_, [&](int mask) {
        if (draw(++seen) == 0) chosen = mask;
    });
    return chosen;
}

void Robot::select() {
    const int mask = chooseSelection();
    for (int i = 0; i < tablePlaces; ++i) {
        if ((mask >> i & 1) == 0) continue;
        const auto [row, column] = tableOrder[static_cast<std::size_t>(i)];
        pressTable(row, column);
    }
}

bool Robot::act(double until) {
    if (until != never && !g_.GO.Visible) return false;
    if (g_.GO.Visible && key) {
        key(Key::Home);
        for (int i = 0; i < tipoPartita; ++i) key(Key::Down);
        key(Key::Press);
        return true;
    }
    if (g_.GO.Visible) {
        clickOn(g_, g_.frmscopa, g_.Option1(tipoPartita));
        clickOn(g_, g_.frmscopa, g_.GO);
        return true;
    }
    if (g_.front == &g_.frmscore && key) {
        key(Key::Press);
    } else if (g_.front == &g_.frmscore) {
        clickOn(g_, g_.frmscore, g_.Command1);
    } else if (g_.fase == "selezione") {
        select();
    } else if (g_.fase == "gioco1" && g_.cartaGiocata == 0) {
        playHandCard();
    } else {
        return false;
    }
    return true;
}
