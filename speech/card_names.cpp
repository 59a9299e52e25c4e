// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "speech/card_names.h"

#include <array>

#include "state/cards.h"

namespace {

constexpr std::array<const char*, 10> values{"ace", "two",   "three", "four", "five",
                                             "six", "seven", "eight", "nine", "ten"};
constexpr std::array<const char*, 4> suits{"coins", "cups", "clubs", "swords"};

std::string joined(std::vector<int> ids, const char* article, const std::string& join) {
    std::erase(ids, 0);
    std::string list;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (i != 0) list += i + 1 == ids.size() ? ' ' + join + ' ' : ", ";
        list += article + cardName(ids[i]);
    }
    return list;
}

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

std::string listOfCards(const std::vector<int>& ids) {
    return joined(ids, "", "and");
}

std::string theCards(const std::vector<int>& ids, const char* join) {
    return joined(ids, "the ", join);
}
