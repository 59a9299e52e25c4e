// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

// What cards are called aloud. In English, as the program speaks; a card with an Italian name that
// the rules use has it besides where it is told by itself.

/// "seven of coins". Expects an id from 1 to 40.
std::string cardName(int id);

/// "seven of coins, settebello": the card with all its names.
std::string fullCardName(int id);

/// "seven" for 7, "ace" for 1. Expects a value from 1 to 10.
std::string valueName(int value);

/// "the two of cups, the ace of swords and the six of clubs", whose last word may be another one.
/// Entries 0 are left out.
std::string listOfCards(const std::vector<int>& ids, const char* lastJoin = " and ");
