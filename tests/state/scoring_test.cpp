// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What a hand is worth: the primiera card by card, and everything once more as plainly as it can
// be told, for piles drawn at random.

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

/// A counted hand in which the human has taken these cards and the computer all others.
struct Counted {
    explicit Counted(const Cards& taken) {
        std::ranges::copy(taken, g.pilaPrese.begin() + 1);
        g.presiUmano = static_cast<int>(taken.size());
        frmscopa::tallyHand(g);
        frmscopa::calcsettanta(g);
    }
    Headless backend;
    Game g{backend, {}};
};

/// The primiera, from the strongest card to the weakest.
struct Worth {
    int digit, points;
};
constexpr Worth primiera[] = {{7, 21}, {6, 18}, {1, 16}, {5, 15}, {4, 14},
                              {3, 13}, {2, 12}, {8, 10}, {9, 10}, {0, 10}};

int cardOf(int suit, int digit) {
    return 10 * suit + (digit == 0 ? 10 : digit);
}

TEST(Primiera, GivesEachCardItsPoints) {
    for (int suit = 0; suit < 4; ++suit)
        for (const auto& [digit, points] : primiera) {
            const Counted hand({cardOf(suit, digit)});
            EXPECT_EQ(hand.g.primieraSomma(human), points) << "card " << cardOf(suit, digit);
        }
    for (const int noDigit : {-1, 10}) EXPECT_EQ(frmscopa::valoresettanta(noDigit), 0) << noDigit;
}

TEST(Primiera, CountsTheStrongerOfTwoCards) {
    for (const Worth& strong : primiera)
        for (const Worth* weak = &strong + 1; weak != std::end(primiera); ++weak) {
            const Counted hand({cardOf(2, weak->digit), cardOf(2, strong.digit)});
            EXPECT_EQ(frmscopa::primieraCard(hand.g, human, 3), cardOf(2, strong.digit))
                << "beside " << cardOf(2, weak->digit);
        }
}

namespace naive {

/// The points of the best cards that a pile has, suit by suit.
int settanta(const Cards& pile) {
    int sum = 0;
    for (int suit = 0; suit < 4; ++suit) {
        const auto has = [&](const Worth& worth) {
            return std::ranges::count(pile, cardOf(suit, worth.digit)) == 1;
        };
        const auto* const best = std::ranges::find_if(primiera, has);
        if (best != std::end(primiera)) sum += best->points;
    }
    return sum;
}

/// What a pile gains over the other one, without the scope.
int points(const Cards& pile, const Cards& other) {
    const auto denari = std::ranges::count_if(pile, [](int id) { return id <= 10; });
    int gained = 0;
    if (pile.size() > other.size()) ++gained;
    if (denari > 5) ++gained;
    if (settanta(pile) > settanta(other)) ++gained;
    if (std::ranges::count(pile, 7) == 1) ++gained;
    return gained;
}

}  // namespace naive

TEST(AHand, IsCountedAsPlainlyTold) {
    std::mt19937 random(7);
    Cards pack(40);
    std::iota(pack.begin(), pack.end(), 1);
    for (int round = 0; round < 800; ++round) {
        std::shuffle(pack.begin(), pack.end(), random);
        const auto parted = pack.begin() + round % 41;
        const Cards ours(pack.begin(), parted), theirs(parted, pack.end());
        SCOPED_TRACE(testing::PrintToString(ours));
        Counted hand(ours);
        Game& g = hand.g;
        g.scope(human) = round % 3;
        g.scope(computer) = round % 5;
        frmscore::awardPoints(g);
        EXPECT_EQ(g.totaleUmano, naive::points(ours, theirs) + round % 3);
        EXPECT_EQ(g.totaleComputer, naive::points(theirs, ours) + round % 5);
        EXPECT_EQ(g.primieraSomma(human), naive::settanta(ours));
        EXPECT_EQ(g.primieraSomma(computer), naive::settanta(theirs));
        const Cards completed(g.pilaPrese.begin() + 1 + g.presiUmano, g.pilaPrese.end());
        EXPECT_TRUE(std::ranges::is_sorted(completed)) << testing::PrintToString(completed);
        EXPECT_TRUE(std::ranges::is_permutation(completed, theirs)) << "the computer's cards";
    }
}

}  // namespace
