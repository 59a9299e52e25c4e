// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <map>
#include <numeric>
#include <random>

#include "game/scoring.h"
#include "table/painting.h"
#include "tests/support.h"

namespace test {
namespace {

/// The rules of the game once more, as plainly as they can be told and as slowly as they like.
namespace naive {

int worth(int id) {
    return id == 0 ? 0 : (id - 1) % 10 + 1;
}

constexpr auto ace = [](int id) { return worth(id) == 1; };
constexpr auto seven = [](int id) { return worth(id) == 7; };
constexpr auto denaro = [](int id) { return id <= 10; };

int sum(const Cards& ids) {
    return std::accumulate(ids.begin(), ids.end(), 0, [](int s, int id) { return s + worth(id); });
}

/// The cards that lie there, without the empty places.
Cards lying(Cards places) {
    std::erase(places, 0);
    return places;
}

/// Sets without the last card come before those with it, and so on towards the first card.
std::vector<Cards> subsets(const Cards& cards) {
    std::vector<Cards> all{{}};
    for (const int id : cards) {
        const auto without = all;
        for (Cards set : without) {
            set.push_back(id);
            all.push_back(set);
        }
    }
    return all;
}

/// What a sum could use.
Cards usable(const Cards& table, int played) {
    Cards found = lying(table);
    std::erase_if(found, [&](int id) { return worth(id) == 10 || worth(id) > worth(played); });
    return found;
}

/// All that a card may take, each in table order; empty if it takes nothing and is laid. Of two
/// sets the one whose last card lies earlier comes first, then the last but one decides, and so on.
std::vector<Cards> takings(const Cards& table, int played) {
    const Cards all = lying(table);
    std::vector<Cards> found;
    for (const int id : all)
        if (worth(id) == worth(played)) found.push_back({id});
    if (!found.empty() || all.empty()) return found;
    if (ace(played)) return {all};
    const Cards candidates = usable(table, played);
    if (candidates.size() > 8) return {};
    for (const Cards& set : subsets(candidates))
        if (sum(set) == worth(played)) found.push_back(set);
    return found;
}

bool mayThrow(const Cards& held, int id) {
    if (held.size() == 1) return true;
    if (std::all_of(held.begin(), held.end(), seven)) return id != 7;
    return !ace(id) || std::all_of(held.begin(), held.end(), ace);
}

struct Play {
    int slot;
    Cards taken;
    bool operator==(const Play&) const = default;
};

/// What the computer may do. There is more than one answer only where it throws a card away.
std::vector<Play> computerPlays(const Cards& table, const Cards& hand) {
    const Cards held = lying(hand);
    // An ace takes an ace only when nothing else is held, and sweeps only as a card thrown away.
    const bool aceMayTake =
        std::all_of(held.begin(), held.end(), ace) && std::any_of(table.begin(), table.end(), ace);
    std::vector<Play> thrown;
    for (int slot = 0; slot <= 2; ++slot) {
        const int id = hand[static_cast<std::size_t>(slot)];
        if (id == 0) continue;
        if (!ace(id) || aceMayTake) {
            const auto sets = takings(table, id);
            if (!sets.empty()) return {{slot, sets.front()}};
            if (usable(table, id).size() > 8) return {{slot, {}}};
        }
        if (mayThrow(held, id)) thrown.push_back({slot, ace(id) ? lying(table) : Cards{}});
    }
    return thrown;
}

int primiera(const Cards& pile) {
    const std::map<int, int> points{{7, 21}, {6, 18}, {1, 16}, {5, 15}, {4, 14},
                                    {3, 13}, {2, 12}, {8, 10}, {9, 10}, {10, 10}};
    std::map<int, int> best;  // by suit
    for (const int id : pile) {
        int& most = best[(id - 1) / 10];
        most = std::max(most, points.at(worth(id)));
    }
    int total = 0;
    for (const auto& [suit, most] : best) total += most;
    return total;
}

/// The points that a pile gains over another one, without the scope.
int points(const Cards& pile, const Cards& other) {
    return (pile.size() > other.size()) + (primiera(pile) > primiera(other)) +
           (std::count_if(pile.begin(), pile.end(), denaro) > 5) +
           (std::count(pile.begin(), pile.end(), 7) == 1);
}

}  // namespace naive

/// Random deals that are the same in every run and on every machine.
class Dealer {
public:
    explicit Dealer(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t n) { return random_() % n; }

    /// Shuffles the pack. Low cards first give many equal cards, many aces and more candidates than
    /// the search takes.
    void shuffle(bool lowFirst) {
        const int highest[] = {3, 4, 7};
        const int low = lowFirst ? highest[below(3)] : 0;
        pack_.clear();
        for (int id = 40; id >= 1; --id) pack_.push_back(id);
        mix(pack_);
        std::stable_partition(pack_.begin(), pack_.end(),
                              [&](int id) { return naive::worth(id) > low; });
    }
    void shuffleRest() { mix(pack_); }
    Cards draw(std::size_t n) {
        Cards drawn(pack_.end() - static_cast<long>(n), pack_.end());
        pack_.resize(pack_.size() - n);
        return drawn;
    }
    /// This many cards, spread over the places.
    Cards spread(std::size_t n, std::size_t places) {
        Cards laid = draw(n);
        laid.resize(places);
        mix(laid);
        return laid;
    }

private:
    void mix(Cards& cards) {
        for (auto i = cards.size(); i > 1; --i) std::swap(cards[i - 1], cards[below(i)]);
    }

    std::mt19937 random_;
    Cards pack_;
};

bool sweeps(int played, const Cards& taken) {
    return naive::worth(played) == 1 && !taken.empty() && naive::worth(taken[0]) != 1;
}

TEST(NaiveRules, TheComputerPlaysByThem) {
    Dealer dealer(20240601);
    int captures = 0, aceSweeps = 0, laid = 0;
    for (int round = 0; round < 3000; ++round) {
        dealer.shuffle(round % 2 == 0);
        const Cards table = dealer.spread(dealer.below(13), 12);
        if (round % 3 == 0) dealer.shuffleRest();
        const Cards hand = dealer.spread(1 + dealer.below(3), 3);
        SCOPED_TRACE("hand " + names(hand) + ", table " + names(table));
        Desk desk;
        desk.g.chance.state = static_cast<std::uint64_t>(round);
        desk.layTable(names(table));
        desk.giveComputer(names(hand));
        if (const int id = table[dealer.below(12)]) mark(desk.g, id);  // An old mark is taken off.
        desk.computerPlays();
        const int played = desk.g.cartaGiocata;
        const Cards taken = naive::lying(desk.presa());
        EXPECT_TRUE(
            contains(naive::computerPlays(table, hand), naive::Play{desk.g.postoMano, taken}))
            << names({played}) << " takes " << names(taken);
        EXPECT_EQ(played, hand[static_cast<std::size_t>(desk.g.postoMano)]);
        EXPECT_EQ(names(desk.marked()), names(taken));
        EXPECT_NEAR(desk.backend.time.now, sweeps(played, taken) ? 4 + 61 * 0.08 : 4, 1e-6);
        (taken.empty() ? laid : sweeps(played, taken) ? aceSweeps : captures)++;
    }
    EXPECT_GT(captures, 500);
    EXPECT_GT(aceSweeps, 20);
    EXPECT_GT(laid, 500);
}

/// The places of a legal set half of the time, else any; some are pressed twice more.
std::vector<int> drawPresses(Dealer& dealer, const Cards& table, const std::vector<Cards>& legal) {
    const bool aiming = dealer.below(2) == 0;
    const Cards& aim = legal[dealer.below(legal.size())];
    std::vector<int> places;
    for (int p = 1; p <= 12; ++p) {
        const int id = table[static_cast<std::size_t>(p - 1)];
        if (id == 0) continue;
        const bool wanted = aiming ? contains(aim, id) : dealer.below(3) == 0;
        if (wanted) places.push_back(p);
        if (dealer.below(8) == 0) places.insert(places.end(), 2, p);
    }
    return places;
}

struct Attempt {
    std::vector<int> presses;
    Cards marked;  ///< when a legal set is complete, or after all presses
    bool ends;
};

Attempt drawAttempt(Dealer& dealer, const Cards& table, int played) {
    const auto legal = naive::takings(table, played);
    if (legal.empty()) return {{}, {}, true};
    if (sweeps(played, legal[0])) return {{}, legal[0], true};
    Attempt attempt{drawPresses(dealer, table, legal), {}, false};
    Cards unmarked = table, marks(12);
    for (const int p : attempt.presses) {
        const auto place = static_cast<std::size_t>(p - 1);
        std::swap(marks[place], unmarked[place]);
        attempt.marked = naive::lying(marks);
        attempt.ends = contains(legal, attempt.marked);
        if (attempt.ends) break;
    }
    return attempt;
}

TEST(NaiveRules, TheHumanIsHeldToThem) {
    Dealer dealer(19991231);
    int captures = 0, refused = 0, laid = 0;
    for (int round = 0; round < 2000; ++round) {
        dealer.shuffle(round % 2 == 0);
        const Cards table = dealer.spread(dealer.below(13), 12);
        if (round % 3 == 0) dealer.shuffleRest();
        const int played = dealer.draw(1)[0];
        const auto [presses, marked, ends] = drawAttempt(dealer, table, played);
        SCOPED_TRACE(names({played}) + " on " + names(table) + testing::PrintToString(presses));
        Desk desk;
        desk.layTable(names(table));
        desk.giveHuman(names({played}));
        EXPECT_EQ(desk.humanPlays(presses), ends);
        EXPECT_EQ(names(desk.marked()), names(marked));
        EXPECT_EQ(desk.backend.time.now > 1.1, ends && sweeps(played, marked));
        EXPECT_TRUE(!ends || desk.presa() == marked) << names(desk.presa());
        (!ends ? refused : marked.empty() ? laid : captures)++;
    }
    EXPECT_GT(captures, 300);
    EXPECT_GT(refused, 300);
    EXPECT_GT(laid, 200);
}

TEST(NaiveRules, HandsAreCountedByThem) {
    Dealer dealer(7);
    Desk desk;
    Game& g = desk.g;
    for (std::size_t round = 0; round < 800; ++round) {
        dealer.shuffle(round % 2 == 0);
        const Cards ours = dealer.draw(round % 41);
        Cards theirs = dealer.draw(40 - ours.size());
        SCOPED_TRACE(names(ours));
        std::copy(ours.begin(), ours.end(), g.pilaPrese.begin() + 1);
        g.presiUmano = static_cast<int>(ours.size());
        g.denariUmano = g.totaleUmano = g.totaleComputer = 0;
        g.scope(human) = static_cast<int>(round % 3);
        g.scope(computer) = static_cast<int>(round % 5);
        frmscopa::tallyHand(g);
        frmscopa::calcsettanta(g);
        frmscore::awardPoints(g);
        EXPECT_EQ(g.totaleUmano, naive::points(ours, theirs) + g.scope(human));
        EXPECT_EQ(g.totaleComputer, naive::points(theirs, ours) + g.scope(computer));
        EXPECT_EQ(g.primieraSomma(human), naive::primiera(ours));
        EXPECT_EQ(g.primieraSomma(computer), naive::primiera(theirs));
        std::sort(theirs.begin(), theirs.end());
        EXPECT_TRUE(std::equal(theirs.begin(), theirs.end(), g.pilaPrese.end() - theirs.size()));
    }
}

}  // namespace
}  // namespace test
