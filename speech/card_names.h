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

/// "two of cups, ace of swords and six of clubs". Entries 0 are left out.
std::string listOfCards(const std::vector<int>& ids);

/// The same with an article before each card, and with "and" or "or" before the last one.
std::string theCards(const std::vector<int>& ids, const char* join = "and");
