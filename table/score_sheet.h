// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

// What stands on the score sheet. Labels of LBLdat: 0 the template, 1 and 2 the players, 3 to 12
// the column titles, then ten for each hand of the match. None of these runs events.

namespace frmscore {

inline constexpr int labelsPerHand = 10, columns = 5;
inline constexpr int firstTitle = 3, firstFigure = 13;
/// The last offset whose row and totals still stand clear above the buttons.
inline constexpr int lastOffset = 19 * labelsPerHand;

void layHeadings(Game&);  ///< title, players' labels and column titles
void showButtons(Game&);
void captionPlayers(Game&);

/// Fills the ten labels at progressoPartita with the hand's figures. When the sheet is full, the
/// rows move up by one and the oldest goes; progressoPartita is then set back to lastOffset.
void fillRow(Game&);

void placeTotals(Game&);    ///< under the row of progressoPartita
void captionTotals(Game&);  ///< the leader's total is red

/// Shows the card that each player counts in each suit.
void mostrasettanta(Game&);

}  // namespace frmscore
