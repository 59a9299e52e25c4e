// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tests/naive_rules.h"

#include <algorithm>
#include <map>

namespace naive {
namespace {

void addSubsets(const Cards& from, std::size_t next, Cards chosen, std::vector<Cards>& all) {
    if (next == from.size()) {
        all.push_back(chosen);
        return;
    }
    addSubsets(from, next + 1, chosen, all);
    chosen.push_back(from[next]);
    addSubsets(from, next + 1, chosen, all);
}

int sum(const Cards& ids) {
    int total = 0;
    for (const int id : ids) total += worth(id);
    return total;
}

int countIf(const Cards& ids, bool (*is)(int)) {
    return static_cast<int>(std::count_if(ids.begin(), ids.end(), is));
}

bool ace(int id) {
    return worth(id) == 1;
}

bool seven(int id) {
    return worth(id) == 7;
}

Cards usable(const Cards& table, int played) {
    Cards found;
    for (const int id : lying(table))
        if (worth(id) != 10 && worth(id) <= worth(played)) found.push_back(id);
    return found;
}

/// Of two sets the one whose last card lies earlier comes first, then the last but one, and so on.
bool countsEarlier(const Cards& table, const Cards& a, const Cards& b) {
    const auto fromTheEnd = [&table](const Cards& set) {
        std::vector<long> places;
        for (auto id = set.rbegin(); id != set.rend(); ++id)
            places.push_back(std::find(table.begin(), table.end(), *id) - table.begin());
        return places;
    };
    return fromTheEnd(a) < fromTheEnd(b);
}

bool mayThrow(const Cards& held, int id) {
    const bool sevensOnly = countIf(held, seven) == static_cast<int>(held.size());
    const bool acesOnly = countIf(held, ace) == static_cast<int>(held.size());
    if (held.size() == 1) return true;
    if (sevensOnly) return id != 7;
    return acesOnly || !ace(id);
}

}  // namespace

int worth(int id) {
    return (id - 1) % 10 + 1;
}

Cards lying(const Cards& table) {
    Cards found;
    for (const int id : table)
        if (id != 0) found.push_back(id);
    return found;
}

std::vector<Cards> takings(const Cards& table, int played) {
    const Cards all = lying(table);
    std::vector<Cards> found;
    for (const int id : all)
        if (worth(id) == worth(played)) found.push_back({id});
    if (!found.empty() || all.empty()) return found;
    if (ace(played)) return {all};
    const Cards candidates = usable(table, played);
    if (candidates.size() > 8) return {};
    std::vector<Cards> subsets;
    addSubsets(candidates, 0, {}, subsets);
    for (const Cards& set : subsets)
        if (sum(set) == worth(played)) found.push_back(set);
    return found;
}

std::vector<Play> computerPlays(const Cards& table, const Cards& hand) {
    const Cards held = lying(hand), all = lying(table);
    const bool acesOnly = countIf(held, ace) == static_cast<int>(held.size());
    const bool aceLies = countIf(all, ace) > 0;
    for (int slot = 0; slot <= 2; ++slot) {
        const int id = hand[static_cast<std::size_t>(slot)];
        if (id == 0 || (ace(id) && (!aceLies || !acesOnly))) continue;
        const auto sets = takings(table, id);
        if (!sets.empty()) {
            const auto first = [&](const Cards& a, const Cards& b) {
                return countsEarlier(table, a, b);
            };
            return {{slot, *std::min_element(sets.begin(), sets.end(), first)}};
        }
        if (usable(table, id).size() > 8) return {{slot, {}}};
    }
    std::vector<Play> plays;
    for (int slot = 0; slot <= 2; ++slot) {
        const int id = hand[static_cast<std::size_t>(slot)];
        if (id == 0 || !mayThrow(held, id)) continue;
        plays.push_back({slot, ace(id) ? all : Cards{}});
    }
    return plays;
}

int primiera(const Cards& pile) {
    const std::map<int, int> points{{7, 21}, {6, 18}, {1, 16}, {5, 15}, {4, 14},
                                    {3, 13}, {2, 12}, {8, 10}, {9, 10}, {10, 10}};
    int total = 0;
    for (int firstOfSuit = 1; firstOfSuit <= 31; firstOfSuit += 10) {
        int best = 0;
        for (const int id : pile)
            if (id >= firstOfSuit && id < firstOfSuit + 10)
                best = std::max(best, points.at(worth(id)));
        total += best;
    }
    return total;
}

Count points(const Cards& human, const Cards& computer) {
    Count count;
    const auto compare = [&count](auto ours, auto theirs) {
        count.human += ours > theirs;
        count.computer += theirs > ours;
    };
    const auto denaro = [](int id) { return id <= 10; };
    const auto settebello = [](int id) { return id == 7; };
    compare(human.size(), computer.size());
    compare(countIf(human, denaro), countIf(computer, denaro));
    compare(primiera(human), primiera(computer));
    compare(countIf(human, settebello), countIf(computer, settebello));
    return count;
}

}  // namespace naive
