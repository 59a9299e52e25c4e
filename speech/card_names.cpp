// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "speech/card_names.h"

#include <array>

#include "state/cards.h"

namespace {

constexpr std::array<const char*, 10> values{"ace", "two",   "three", "four", "five",
                                             "six", "seven", "eight", "nine", "ten"};
constexpr std::array<const char*, 4> suits{"coins", "cups", "clubs", "swords"};

}  // namespace

std::string valueName(int value) {
    return values.at(static_cast<std::size_t>(value - 1));
}

std::string cardName(int id) {
    return valueName(cardValue(id)) + " of " +
           suits.at(static_cast<std::size_t>(suitIndex(id) - 1));
}

std::string fullCardName(int id) {
    return id == settebello ? cardName(id) + ", settebello" : cardName(id);
}

std::string listOfCards(const std::vector<int>& ids, const char* lastJoin) {
    std::vector<int> cards;
    for (const int id : ids)
        if (id != 0) cards.push_back(id);
    std::string list;
    for (std::size_t i = 0; i < cards.size(); ++i) {
        if (i != 0) list += i + 1 == cards.size() ? lastJoin : ", ";
        list += "the " + cardName(cards[i]);
    }
    return list;
}
