// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tests/naive_rules.h"

#include <algorithm>
#include <random>

#include "game/scoring.h"
#include "tests/support.h"

namespace test {
namespace {

using naive::Cards;

/// Random deals that are the same in every run and on every machine.
class Dealer {
public:
    explicit Dealer(unsigned seed) : random_(seed) {}

    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    /// Shuffles the cards of value 1 to `highest`, then the others below them.
    void shuffle(int highest) {
        pack_.clear();
        for (int id = 40; id >= 1; --id) pack_.push_back(id);
        mix();
        std::stable_partition(pack_.begin(), pack_.end(),
                              [&](int id) { return naive::worth(id) > highest; });
    }
    int card() {
        const int id = pack_.back();
        pack_.pop_back();
        return id;
    }
    /// This many cards on twelve places, or on three.
    Cards spread(int cards, int places) {
        Cards laid(static_cast<std::size_t>(places), 0);
        for (int left = cards; left > 0;) {
            int& place = laid[static_cast<std::size_t>(below(places))];
            if (place != 0) continue;
            place = card();
            --left;
        }
        return laid;
    }

private:
    void mix() {
        for (int i = 39; i > 0; --i)
            std::swap(pack_[static_cast<std::size_t>(i)],
                      pack_[static_cast<std::size_t>(below(i + 1))]);
    }

    std::mt19937 random_;
    Cards pack_;
};

/// Low cards alone give many equal cards, many aces and more candidates than the search takes.
constexpr int highestValues[] = {10, 10, 4, 7, 3};

TEST(NaiveRules, TheComputerPlaysByThem) {
    Dealer dealer(20240601);
    int captures = 0, sweeps = 0, laid = 0;
    for (int round = 0; round < 300; ++round) {
        for (int onTable = 0; onTable <= 12; ++onTable) {
            dealer.shuffle(highestValues[round % 5]);
            // With few values the hand is drawn from all others now and then.
            const Cards table = dealer.spread(onTable, 12);
            if (dealer.below(3) == 0) dealer.shuffle(10);
            Cards hand = dealer.spread(1 + dealer.below(3), 3);
            for (int& id : hand)
                if (contains(table, id)) id = 0;
            if (naive::lying(hand).empty()) continue;
            SCOPED_TRACE("hand " + text(hand) + "table " + text(table));
            Desk desk(static_cast<std::uint64_t>(round) * 13 + 1);
            desk.layTable(text(table));
            desk.giveComputer(text(hand));
            desk.computerPlays();
            const Cards taken = takenBy(desk.g);
            EXPECT_TRUE(
                contains(naive::computerPlays(table, hand), naive::Play{desk.g.postoMano, taken}))
                << "slot " << desk.g.postoMano << " takes " << names(taken);
            EXPECT_EQ(name(desk.g.cartaGiocata),
                      name(hand[static_cast<std::size_t>(desk.g.postoMano)]));
            EXPECT_EQ(names(markedOf(desk.g, table)), names(taken));
            const bool ace = naive::worth(desk.g.cartaGiocata) == 1;
            (taken.empty() ? laid : ace && taken.size() > 1 ? sweeps : captures)++;
        }
    }
    EXPECT_GT(captures, 500);
    EXPECT_GT(sweeps, 20);
    EXPECT_GT(laid, 500);
}

/// Presses that end with a legal set half of the time, after some to and fro.
std::vector<int> drawPresses(Dealer& dealer, const Cards& table, const std::vector<Cards>& legal) {
    std::vector<int> places;
    const Cards aim =
        !legal.empty() && dealer.below(2) == 0
            ? legal[static_cast<std::size_t>(dealer.below(static_cast<int>(legal.size())))]
            : Cards{};
    for (int p = 1; p <= 12; ++p) {
        const int id = table[static_cast<std::size_t>(p - 1)];
        if (id == 0) continue;
        const bool wanted = aim.empty() ? dealer.below(3) == 0 : contains(aim, id);
        const int presses = wanted ? 1 : dealer.below(8) == 0 ? 2 : 0;
        places.insert(places.end(), static_cast<std::size_t>(presses), p);
    }
    return places;
}

/// The cards marked when the move ends, or {0} if it does not.
Cards expectedEnd(const Cards& table, const std::vector<Cards>& legal,
                  const std::vector<int>& presses) {
    Cards marked;
    for (const int p : presses) {
        const int id = table[static_cast<std::size_t>(p - 1)];
        if (std::erase(marked, id) == 0) marked.push_back(id);
        Cards inOrder;
        for (const int lies : table)
            if (lies != 0 && contains(marked, lies)) inOrder.push_back(lies);
        if (contains(legal, inOrder)) return inOrder;
    }
    return {0};
}

TEST(NaiveRules, TheHumanIsHeldToThem) {
    Dealer dealer(19991231);
    int captures = 0, refused = 0, laid = 0;
    for (int round = 0; round < 150; ++round) {
        for (int onTable = 0; onTable <= 12; ++onTable) {
            dealer.shuffle(highestValues[round % 5]);
            const Cards table = dealer.spread(onTable, 12);
            if (dealer.below(2) == 0) dealer.shuffle(10);
            int played = dealer.card();
            while (contains(table, played)) played = dealer.card();
            const auto legal = naive::takings(table, played);
            auto presses = drawPresses(dealer, table, legal);
            const bool sweep =
                naive::worth(played) == 1 && legal.size() == 1 && naive::worth(legal[0][0]) != 1;
            Cards expected = legal.empty() ? Cards{}
                             : sweep       ? legal[0]
                                           : expectedEnd(table, legal, presses);
            SCOPED_TRACE(name(played) + " on " + text(table) + testing::PrintToString(presses));
            Desk desk;
            desk.layTable(text(table));
            desk.giveHuman(name(played));
            const bool ended = desk.humanMayEnd(1, presses);
            EXPECT_EQ(ended, expected != Cards{0});
            if (!ended) {
                ++refused;
                continue;
            }
            EXPECT_EQ(names(takenBy(desk.g)), names(expected));
            EXPECT_EQ(names(markedOf(desk.g, table)), names(expected));
            (expected.empty() ? laid : captures)++;
        }
    }
    EXPECT_GT(captures, 300);
    EXPECT_GT(refused, 300);
    EXPECT_GT(laid, 200);
}

TEST(NaiveRules, HandsAreCountedByThem) {
    Dealer dealer(7);
    Desk desk;
    Game& g = desk.g;
    for (int round = 0; round < 800; ++round) {
        dealer.shuffle(round % 2 == 0 ? 10 : 6);
        Cards piles[2];
        const int ours = round % 41;
        for (int i = 0; i < 40; ++i) piles[i < ours ? 0 : 1].push_back(dealer.card());
        SCOPED_TRACE(names(piles[0]));
        g.pilaPrese.fill(0);
        g.presiUmano = g.denariUmano = g.totaleUmano = g.totaleComputer = 0;
        for (const int id : piles[0]) g.pilaPrese(++g.presiUmano) = id;
        g.scope(human) = dealer.below(4);
        g.scope(computer) = dealer.below(4);
        frmscopa::tallyHand(g);
        frmscopa::calcsettanta(g);
        frmscore::awardPoints(g);
        const auto expected = naive::points(piles[0], piles[1]);
        EXPECT_EQ(g.totaleUmano, expected.human + g.scope(human));
        EXPECT_EQ(g.totaleComputer, expected.computer + g.scope(computer));
        EXPECT_EQ(g.primieraSomma(human), naive::primiera(piles[0]));
        EXPECT_EQ(g.primieraSomma(computer), naive::primiera(piles[1]));
        std::sort(piles[1].begin(), piles[1].end());
        EXPECT_EQ(Cards(g.pilaPrese.begin() + 1 + ours, g.pilaPrese.end()), piles[1]);
    }
}

}  // namespace
}  // namespace test
