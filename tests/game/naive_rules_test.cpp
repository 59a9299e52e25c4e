// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include "desk.h"
#include "table/painting.h"

namespace {

/// The rules of the game once more, as plainly as they can be told and as slowly as they like.
namespace naive {

int worth(int id) {
    return id == 0 ? 0 : (id - 1) % 10 + 1;
}

bool ace(int id) {
    return worth(id) == 1;
}

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
    for (const int id : cards)
        for (Cards set : std::vector(all)) {
            set.push_back(id);
            all.push_back(set);
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
    if (std::ranges::all_of(held, [](int card) { return worth(card) == 7; })) return id != 7;
    return !ace(id) || std::ranges::all_of(held, ace);
}

/// The slot and the cards that the computer takes with it. Where it throws a card away, the slots
/// are drawn in this order.
std::pair<int, Cards> computerPlays(const Cards& table, const Cards& hand,
                                    const std::vector<int>& order) {
    const Cards held = lying(hand);
    // An ace takes an ace only when nothing else is held, and sweeps only as a card thrown away.
    const bool aceMayTake = std::ranges::all_of(held, ace) && std::ranges::any_of(table, ace);
    for (int slot = 0; slot <= 2; ++slot) {
        const int id = hand[static_cast<std::size_t>(slot)];
        if (id == 0 || (ace(id) && !aceMayTake)) continue;
        const auto sets = takings(table, id);
        if (!sets.empty()) return {slot, sets.front()};
        if (usable(table, id).size() > 8) return {slot, {}};
    }
    for (const int slot : order) {
        const int id = hand[static_cast<std::size_t>(slot)];
        if (id != 0 && mayThrow(held, id)) return {slot, ace(id) ? lying(table) : Cards{}};
    }
    return {};
}

/// What the computer lists: out of three or more cards, the ones that stay leave a gap.
Cards entries(const Cards& table, int played, const Cards& taken) {
    Cards listed = usable(table, played);
    if (listed.size() < 3 || sum(taken) != worth(played) || taken.size() < 2) return taken;
    std::ranges::replace_if(
        listed, [&](int id) { return std::ranges::count(taken, id) == 0; }, 0);
    return listed;
}

}  // namespace naive

/// Random deals that are the same in every run and on every machine.
class Dealer {
public:
    explicit Dealer(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t n) { return random_() % n; }
    void mix(std::vector<int>& list) {
        for (auto i = list.size(); i > 1; --i) std::swap(list[i - 1], list[below(i)]);
    }
    /// A table of none to twelve cards from a new pack. In every other round they are low, which
    /// gives many equal cards, many aces and more candidates than the search takes.
    Cards layTable(std::size_t round) {
        const int highest[] = {3, 4, 7};
        const int low = round % 2 == 0 ? highest[below(3)] : 0;
        pack_.resize(40);
        std::iota(pack_.begin(), pack_.end(), 1);
        mix(pack_);
        bringUp([&](int id) { return naive::worth(id) <= low; });
        Cards table = spread(below(13), 12);
        mix(pack_);
        return table;
    }
    /// Such cards are drawn first.
    template <class Such>
    void bringUp(const Such& such) {
        std::stable_partition(pack_.begin(), pack_.end(), std::not_fn(such));
    }
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
    std::mt19937 random_;
    Cards pack_;
};

bool sweeps(int played, const Cards& taken) {
    return naive::worth(played) == 1 && !taken.empty() && naive::worth(taken[0]) != 1;
}

TEST(NaiveRules, TheComputerPlaysByThem) {
    Dealer dealer(20240601);
    int captures = 0, aceSweeps = 0, laid = 0;
    std::vector<int> order{0, 1, 2};
    for (std::size_t round = 0; round < 3000; ++round) {
        const Cards table = dealer.layTable(round);
        if (round % 4 == 0)
            dealer.bringUp([](int id) { return naive::ace(id) || naive::worth(id) == 7; });
        const Cards hand = dealer.spread(1 + dealer.below(3), 3);
        SCOPED_TRACE("hand " + notation(hand) + ", table " + notation(table));
        Desk desk;
        desk.layTable(table);
        desk.giveComputer(hand);
        if (const int id = table[dealer.below(12)]) mark(desk.g, id);  // An old mark is taken off.
        dealer.mix(order);
        for (const int k : {2, 1, 0}) desk.draw(order[static_cast<std::size_t>(k)], 3);
        desk.computerPlays();
        const auto [slot, taken] = naive::computerPlays(table, hand, order);
        const int played = hand[static_cast<std::size_t>(slot)];
        EXPECT_EQ(desk.g.postoMano, slot);
        EXPECT_EQ(desk.g.cartaGiocata, played);
        EXPECT_EQ(notation(desk.presa()), notation(naive::entries(table, played, taken)));
        EXPECT_EQ(notation(desk.marked()), notation(taken));
        ++(taken.empty() ? laid : sweeps(played, taken) ? aceSweeps : captures);
    }
    EXPECT_GT(captures, 500);
    EXPECT_GT(aceSweeps, 20);
    EXPECT_GT(laid, 500);
}

/// The places of a legal set half of the time, else any, mixed; some are pressed twice more.
std::vector<int> drawPresses(Dealer& dealer, const Cards& table, const std::vector<Cards>& legal) {
    const bool aiming = dealer.below(2) == 0;
    const Cards& aim = legal[dealer.below(legal.size())];
    std::vector<int> places;
    for (int p = 1; const int id : table) {
        const bool wanted = aiming ? std::ranges::count(aim, id) > 0 : dealer.below(3) == 0;
        if (id != 0 && wanted) places.push_back(p);
        if (id != 0 && dealer.below(8) == 0) places.insert(places.end(), 2, p);
        ++p;
    }
    dealer.mix(places);
    return places;
}

struct Attempt {
    std::vector<int> presses;
    std::vector<int> late;  ///< pressed while the first legal set is judged
    Cards marked;           ///< when a legal set stands, or after all presses
    bool ends;
};

Attempt drawAttempt(Dealer& dealer, const Cards& table, int played) {
    const auto legal = naive::takings(table, played);
    if (legal.empty()) return {{}, {}, {}, true};
    if (sweeps(played, legal[0])) return {{}, {}, legal[0], true};
    Attempt attempt{drawPresses(dealer, table, legal), {}, {}, false};
    if (dealer.below(2) == 0) attempt.late = drawPresses(dealer, table, legal);
    Cards unmarked = table, marks(12);
    const auto press = [&](int p) {
        const auto place = static_cast<std::size_t>(p - 1);
        std::swap(marks[place], unmarked[place]);
        attempt.marked = naive::lying(marks);
        attempt.ends = std::ranges::count(legal, attempt.marked) > 0;
    };
    for (bool judged = false; const int p : attempt.presses) {
        press(p);
        if (attempt.ends && !std::exchange(judged, true))
            std::ranges::for_each(attempt.late, press);
        if (attempt.ends) break;
    }
    return attempt;
}

TEST(NaiveRules, TheHumanIsHeldToThem) {
    Dealer dealer(19991231);
    int captures = 0, refused = 0, laid = 0;
    for (std::size_t round = 0; round < 2000; ++round) {
        const Cards table = dealer.layTable(round);
        const int played = dealer.draw(1)[0];
        const auto [presses, late, marked, ends] = drawAttempt(dealer, table, played);
        SCOPED_TRACE(notation({played}) + " on " + notation(table) +
                     testing::PrintToString(presses));
        Desk desk;
        desk.layTable(table);
        desk.giveHuman({played});
        EXPECT_EQ(desk.humanPlays(presses, late), ends) << "the move is decided";
        EXPECT_EQ(notation(desk.marked()), notation(marked));
        EXPECT_EQ(desk.backend.time.now > 1.1, ends && sweeps(played, marked)) << "the mask plays";
        EXPECT_EQ(notation(ends ? desk.presa() : marked), notation(marked)) << "presa";
        ++(!ends ? refused : marked.empty() ? laid : captures);
    }
    EXPECT_GT(captures, 300);
    EXPECT_GT(refused, 300);
    EXPECT_GT(laid, 200);
}

}  // namespace
