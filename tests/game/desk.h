// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// What the tests of the rules share: a table that is laid and played by hand.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "state/state.h"
#include "table/geometry.h"

using Cards = std::vector<int>;  ///< ids, 0 for none

/// Cards as messages tell them: the value and the suit, d, c, b or s; "7d 1c". "." is none.
std::string notation(const Cards&);

/// A game whose table and hands are laid by hand. Its cards are 62 by 108 units, so that every edge
/// of the layout is a whole number. The rate is low: ritardo(1) lasts one second.
class Desk {
public:
    Desk();

    Headless backend;
    Game g{backend, eventTable()};

    // In the order of the places.
    void layTable(const Cards&);
    void giveHuman(const Cards&);
    void giveComputer(const Cards&);

    /// Draws k out of n next, before what was said earlier.
    void draw(int k, int n);

    /// Runs the human's move up to its decision: the card of slot 1, then presses at places, the
    /// late ones at once when a legal selection is first judged. False if the game still waits for
    /// the player then.
    bool humanPlays(const std::vector<int>& places, std::vector<int> late);
    void computerPlays();

    /// The entries of presa in use.
    Cards presa() const { return {g.presa.begin() + 1, g.presa.begin() + 1 + g.numeroPresa}; }
    /// The marked cards in table order. Checks that they have their frame, and no other card.
    Cards marked() const;

private:
    void beginMove(int player);
    void press(Spot card);
    int framedSides(int id) const;
};
