// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// What the Tag of a card's holder says, and the list of cards that a move takes. Nothing here
// paints.

struct Game;
struct Image;

/// The id in the Tag of one of the computer's slots; 0 when its card has been played.
int heldBy(const Image& slot);

/// The mark "SEL": the card belongs to the capture in progress. False for 0, an empty place.
bool marked(const Game&, int id);

/// How many table cards are marked.
int markedCount(const Game&);

/// Enters a table card into presa, presaX and presaY. Expects `entry` from 1 to 12.
void enterTaken(Game&, int entry, int id);
