// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// The rules of the game once more, as plainly as they can be told and as slowly as they like: every
// set of table cards is looked at. Only the tests use them, to check the game against.

#include <utility>
#include <vector>

namespace naive {

using Cards = std::vector<int>;  ///< ids

int worth(int id);

/// The cards of a table of twelve places, without the empty ones.
Cards lying(const Cards& table);

/// All that a card may take, each in table order; empty if it takes nothing and is laid. An ace
/// without an ace on the table takes everything. With more than eight cards that a sum could use,
/// sums are not looked for.
std::vector<Cards> takings(const Cards& table, int played);

struct Play {
    int slot;
    Cards taken;
    bool operator==(const Play&) const = default;
};

/// What the computer may do with the three slots of its hand, 0 for an empty one. There is more
/// than one answer only where it throws a card away.
std::vector<Play> computerPlays(const Cards& table, const Cards& hand);

struct Count {
    int human = 0, computer = 0;
    bool operator==(const Count&) const = default;
};

/// The points of a hand without the scope.
Count points(const Cards& human, const Cards& computer);

/// Primiera points of a pile.
int primiera(const Cards& pile);

}  // namespace naive
