// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "game/state.h"

// Places on the table surface in units, and how cards get on it and off it. Nothing here runs
// events.

inline constexpr float gap = 6;           ///< between neighbouring cards
inline constexpr float handBottom = 595;  ///< of the human's cards
inline constexpr float pileLeft = 100, deckLeft = 680;

float placeLeft(const Game&, int column);  ///< column 1 to 4
float placeTop(const Game&, int row);      ///< row 1 to 3
float handLeft(const Game&, int slot);     ///< slot 0 to 2, the same for both players
float handTop(const Game&);                ///< the human's
float playedLeft(const Game&);             ///< where both players' cards are shown
float playedTop(const Game&);

/// Paints a picture at card size.
void paintAtCardSize(Game&, Picture, float left, float top);

/// Paints a card and moves its holder there.
void showCard(Game&, int id, float left, float top);

/// Paints a card again where it lies, which takes its frame off.
void repaintCard(Game&, int id);

/// Paints every table card again, then the frames of those that are marked.
void repaintTable(Game&);

/// Fills a box with the table colour, ends included.
void erase(Game&, float x1, float y1, float x2, float y2);

/// The mark "SEL": the card belongs to the capture in progress.
bool marked(const Game&, int id);
/// Marks a card and draws the red frame inside its edges.
void mark(Game&, int id);
/// How many table cards are marked.
int markedCount(const Game&);

/// Enters a table card into presa, presaX and presaY.
void enterTaken(Game&, int entry, int id);
