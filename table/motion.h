// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

// What a move looks like: painting and waiting, step by step. What a step means for the game is
// decided elsewhere.

/// Shows the played card at a place of the table, then clears where it was, posX and posY. Runs no
/// events.
void showLaid(Game&, int row, int column);

/// The taken cards climb above the played card one by one, each after a pause. An entry 0 of presa
/// leaves its step empty. Expects presaX and presaY; leaves the cards' holders in the fan. Runs
/// events.
void fanOut(Game&);

/// The top card of the fan, the last entry of presa, runs down over it, wiping it, until it covers
/// the played card. Works with posZ. Runs events.
void slideTogether(Game&);

/// The stack is turned face down and goes to the player's pile. Runs events.
void turnOverAndPile(Game&);

/// Shows the card of the player's latest scopa beside the pile, and the banner for a while. Leaves
/// posX and posY there. Runs events.
void showScopa(Game&);
