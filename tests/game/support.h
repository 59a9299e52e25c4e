// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// What the tests of the rules share: card notation, a table to lay out by hand, a scripted player.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "state/state.h"

namespace test {

using Cards = std::vector<int>;  ///< ids, 0 for none

/// Cards with blanks between them: the value and the suit, d, c, b or s; "7d 1c". "." is none.
std::string names(const Cards&);

/// A game whose table and hands are laid by hand. Its cards are 62 by 108 units, so that every edge
/// of the layout is a whole number. The rate is low: ritardo(1) lasts one second.
class Desk {
public:
    Desk();

    Headless backend;
    Game g{backend, eventTable()};

    // In the order of the places. "7" is a seven of the first suit that is not used yet.
    void layTable(std::string_view);
    void giveHuman(std::string_view);
    void giveComputer(std::string_view);

    /// Draws k out of n next, before what was said earlier.
    void draw(int k, int n) {
        g.chance.prepared.push_back((static_cast<float>(k) + 0.5f) / static_cast<float>(n));
    }
    /// Counts a hand in which the human has taken these cards.
    void count(const Cards& taken);
    std::vector<int> late;  ///< places pressed besides when a legal selection is first judged

    /// Runs the human's move up to its decision: the card of slot 1, then presses at places. False
    /// if the game still waits for the player then.
    bool humanPlays(const std::vector<int>& places);
    void computerPlays();

    /// The entries of presa in use.
    Cards presa() const { return {g.presa.begin() + 1, g.presa.begin() + 1 + g.numeroPresa}; }
    /// The marked cards in table order. Checks that they have their frame, and no other card.
    Cards marked() const;

private:
    Cards lay(std::string_view, std::size_t places);
    void beginMove(int player);
    void pressPlace(int number);
    int framedSides(int id) const;

    Array<bool, 40> used_;
};

template <class Items, class Item>
bool contains(const Items& items, const Item& item) {
    return std::find(items.begin(), items.end(), item) != items.end();
}

}  // namespace test
