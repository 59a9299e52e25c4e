// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// What the tests of the rules share: card notation, a table to lay out by hand, a scripted player.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "game/state.h"
#include "platform/headless/headless.h"

namespace test {

using Cards = std::vector<int>;  ///< ids, 0 for none

/// Cards with blanks between them: the value, 1 to 10 or A, and the suit, d, c, b or s; "7d Ac".
Cards cards(std::string_view notation);
/// The notation of cards, "." for none.
std::string names(const Cards&);

/// A press on the table surface.
struct Press {
    float x = 0, y = 0;
    int button = 1;
};

/// A game whose table and hands are laid by hand. Its cards are 62 by 108 units, so that every edge
/// of the layout is a whole number. The rate is low: ritardo(1) lasts one second.
class Desk {
public:
    Desk();

    Headless backend;
    Game g{backend};

    // The cards stand in the order of their places with blanks between them. "7d" is that card,
    // "7" a seven of the first suit that is not used yet, "." leaves the place empty.
    void layTable(std::string_view);
    void giveHuman(std::string_view);
    void giveComputer(std::string_view);

    Press place(int number) const;  ///< its middle, 1 to 12 in table order
    Press slot(int k) const;        ///< middle of the human's slot, 1 to 3
    Colour seenAt(Press at) const { return Point(g.frmscopa, at.x, at.y); }
    void press(Press at) { pressAt(g, g.frmscopa, at.x, at.y, at.button); }
    /// One press whenever the game waits for the player; then ScriptRanOut.
    void script(std::vector<Press>);
    std::vector<int> late;  ///< places pressed besides when a legal selection is first judged

    /// Clears the move and makes it this player's, as at the start of each move.
    void beginMove(int player);
    /// Runs the human's move up to its decision: the card of slot 1, then presses at places. False
    /// if the game still waits for the player then.
    bool humanPlays(const std::vector<int>& places);
    void computerPlays();

    /// The entries of presa in use.
    Cards presa() const { return {g.presa.begin() + 1, g.presa.begin() + 1 + g.numeroPresa}; }
    /// The marked cards in table order. Checks that they have their frame, and no other card.
    Cards marked() const;

private:
    int framedSides(int id) const;

    Array<bool, 40> used_;
};

template <class Items, class Item>
bool contains(const Items& items, const Item& item) {
    return std::find(items.begin(), items.end(), item) != items.end();
}

}  // namespace test
