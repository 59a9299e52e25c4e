// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What a hand is worth, told once more as plainly as it can be.

#include "state/scoring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "platform/headless/headless.h"
#include "state/state.h"

namespace {

using Cards = std::vector<int>;

struct Worth {
    int value, points;
};
/// The primiera, from the strongest card to the weakest.
constexpr Worth primiera[] = {{7, 21}, {6, 18}, {1, 16}, {5, 15}, {4, 14},
                              {3, 13}, {2, 12}, {8, 10}, {9, 10}, {10, 10}};

/// What a pile gains over the other one, without the scope and the primiera.
int plainPoints(const Cards& pile, const Cards& other) {
    const auto denari = std::ranges::count_if(pile, [](int id) { return id <= 10; });
    const auto settebelli = std::ranges::count(pile, 7);
    return (pile.size() > other.size() ? 1 : 0) + (denari > 5 ? 1 : 0) + (settebelli > 0 ? 1 : 0);
}

/// The points of the best cards of each suit. Checks that these cards are shown and counted.
int settanta(const Game& g, int player, const Cards& pile) {
    int sum = 0;
    for (int suit = 1; suit <= 4; ++suit) {
        const auto idOf = [&](const Worth& card) { return 10 * (suit - 1) + card.value; };
        const auto* const best = std::ranges::find_if(
            primiera, [&](auto& card) { return std::ranges::count(pile, idOf(card)) == 1; });
        const bool has = best != std::end(primiera);
        EXPECT_EQ(frmscopa::primieraCard(g, player, suit), has ? idOf(*best) : 0) << suit;
        sum += has ? best->points : 0;
    }
    EXPECT_EQ(g.primieraSomma(player), sum);
    return sum;
}

TEST(AHand, IsCountedAsPlainlyTold) {
    std::mt19937 random(7);
    Cards pack(40);
    std::iota(pack.begin(), pack.end(), 1);
    for (int round = 0; round < 800; ++round) {
        std::shuffle(pack.begin(), pack.end(), random);
        const auto parted = pack.begin() + round % 41;
        const Cards ours(pack.begin(), parted), theirs(parted, pack.end());
        SCOPED_TRACE(testing::PrintToString(ours));
        Headless backend;
        Game g{backend, {}};
        std::ranges::copy(ours, g.pilaPrese.begin() + 1);
        g.presiUmano = static_cast<int>(ours.size());
        g.scope(human) = round % 3;
        g.scope(computer) = round % 5;
        frmscopa::tallyHand(g);
        frmscopa::calcsettanta(g);
        frmscore::awardPoints(g);
        const int sum = settanta(g, human, ours), other = settanta(g, computer, theirs);
        EXPECT_EQ(g.totaleUmano, plainPoints(ours, theirs) + round % 3 + (sum > other ? 1 : 0));
        EXPECT_EQ(g.totaleComputer, plainPoints(theirs, ours) + round % 5 + (sum < other ? 1 : 0));
    }
}

}  // namespace
