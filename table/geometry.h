// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "platform/surface.h"
#include "state/cards.h"

struct Control;
struct Game;

// Every place on the table form, in units, and which place a point belongs to. Nothing here paints
// or runs events.

/// Where the top left corner of something stands.
struct Spot {
    float left, top;
};

void moveTo(Control&, Spot);

void measureWindow(Game&);  ///< leaves scalaX, scalaY, centroX and centroY
/// Leaves larghezzaCarta, altezzaCarta, tavoloX and tavoloY. Expects the window measured and
/// scalaCarte, which counts as far as there is room for the cards.
void measureCards(Game&);
void measurePiles(Game&);  ///< leaves pilaY; expects the cards measured

// The cards. Slots of the hands count from 0 to 2, rows and columns of the table from 1.
Spot placeSpot(const Game&, Place);
Spot handSpot(const Game&, int slot);       ///< the human's
Spot computersSpot(const Game&, int slot);  ///< the computer's
Spot playedSpot(const Game&);               ///< where both players' cards are shown
/// Above the card played at posX and posY, from step 1 on; each step is the same.
Spot fanSpot(const Game&, int step);
Spot pileSpot(const Game&, int player);
Spot scopaSpot(const Game&, int player, int number);  ///< beside the pile; number from 1 on
Spot deckSpot(const Game&);

/// The slot 1 to 3 of the human's hand that a point lies in, edges left out; 0 for none.
int handSlotAt(const Game&, float x, float y);
/// The place of the table, with the gap to its right and below it; rows and columns off the table
/// are told as they are counted.
Place tablePlaceAt(const Game&, float x, float y);
bool onTable(Place);

// What stands in front of the cards.
Spot lampSpot(const Game&, int player);
Spot bannerSpot(const Game&);
Spot gorillaSpot(const Game&);  ///< in a sweep
Spot maskSpot(const Game&);

// The title and the opening screen. Expect the window measured.
Spot titleSpot(const Game&);
Spot optionSpot(const Game&, int index);
Spot goSpot(const Game&);
Spot openingGorillaSpot(const Game&);
Spot openingMaskSpot(const Game&);
Box openingPanel(const Game&);
/// The title is painted again on the panel, so many times as large as the banner.
inline constexpr float openingTitleScale = 3;
Spot openingTitleSpot(const Game&);
