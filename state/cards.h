// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
// What the number of a card says about it.

inline int cardValue(int id) {
    return id % 10 == 0 ? 10 : id % 10;
}
inline int suitIndex(int id) {
    return (id - 1) / 10 + 1;
}
inline bool isAce(int id) {
    return id % 10 == 1;
}
inline bool equalValue(int id, int other) {
    return id % 10 == other % 10;
}

inline constexpr int settebello = 7, lastDenaro = 10;
inline constexpr int tablePlaces = 12;
inline constexpr int firstDeal = 7;   ///< cimaMazzo after the first deal
inline constexpr int deckSpent = 22;  ///< cimaMazzo after the last deal
inline constexpr int movesOfRound = 6;

/// A place of the table.
struct Place {
    int row, column;
};

/// The places in table order, which settles every tie between table cards.
inline constexpr std::array<Place, tablePlaces> tableOrder{{{1, 1},
                                                            {1, 2},
                                                            {1, 3},
                                                            {1, 4},
                                                            {2, 1},
                                                            {2, 2},
                                                            {2, 3},
                                                            {2, 4},
                                                            {3, 1},
                                                            {3, 2},
                                                            {3, 3},
                                                            {3, 4}}};
