// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "state/card_holders.h"

#include <string_view>

#include "state/cards.h"
#include "state/rounding.h"
#include "state/state.h"

int heldBy(const Image& slot) {
    int id = 0;
    for (const char digit : slot.Tag) id = id * 10 + (digit - '0');
    return id;
}

bool marked(const Game& g, int id) {
    return std::string_view(g.carta(id).Tag) == "SEL";
}

int markedCount(const Game& g) {
    int count = 0;
    for (const auto [row, column] : tableOrder) count += marked(g, g.tavolo(row, column));
    return count;
}

void enterTaken(Game& g, int entry, int id) {
    g.presa(entry) = id;
    g.presaX(entry) = rounded(g.carta(id).Left);
    g.presaY(entry) = rounded(g.carta(id).Top);
}
