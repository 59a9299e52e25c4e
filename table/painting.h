// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/pictures.h"
#include "table/geometry.h"

struct Game;

// How cards get on the table surface and off it. Nothing here runs events.

/// Paints a picture at card size.
void paintAtCardSize(Game&, Picture, Spot);

/// Paints a card and moves its holder there.
void showCard(Game&, int id, Spot);

/// Paints a card again where it lies, which takes its frame off.
void repaintCard(Game&, int id);

/// Paints every table card again, then the frames of those that are marked.
void repaintTable(Game&);

/// Gives a card the mark "SEL" and draws the red frame inside its edges.
void mark(Game&, int id);

/// Fills a card's box at a spot with the table colour, as far beyond its edges as said. The unit
/// that begins at its right and lower edge is filled too.
struct Beyond {
    float left = 0, top = 0, bottom = 0;
};
void eraseCard(Game&, Spot, Beyond = {});

/// Fills a box with the table colour, ends included.
void erase(Game&, float x1, float y1, float x2, float y2);
