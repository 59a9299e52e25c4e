// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "platform/events.h"
#include "platform/surface.h"

struct Game;

/// A card that can be pressed now, and where it lies.
struct Pressable {
    int id = 0;
    int row = 0,
        column = 0;  ///< of the table; a card of the hand has row 0, and its slot for a column
    Box box;         ///< units
};

/// What the player may press now, row by row: the cards of the hand while one is wanted, those of
/// the table while a selection is; nothing at any other time.
std::vector<Pressable> pressable(const Game&);

/// Queues the press of the mouse in the middle of a card.
void press(Game&, const Pressable&);

namespace frmscopa {

/// A key of the table, whatever has the focus there. It ends as the press of the mouse that it
/// stands for, in the next round of events, or moves the ring or the choice of the match. Runs no
/// events.
void Form_KeyDown(Game&, Key);

/// The mouse has been moved: takes the ring away until the next arrow key.
void Form_MouseMove(Game&);

/// Puts the ring, where it is in use, round the first card that can be pressed.
void ringFirst(Game&);

/// Takes the ring away: nothing can be pressed any more.
void withdrawRing(Game&);

}  // namespace frmscopa
