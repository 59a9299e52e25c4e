// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/surface.h"

class QPainter;
struct Form;

/// What shows the card that the keys would press: bright blue between two black lines, which can be
/// told from every face, from the table and from the red frame of a marked card. It lies round the
/// card, in the gap between the cards.
struct Ring {
    PixelBox edge;      ///< the outer one, in screen pixels; empty where there is no ring
    int thickness = 0;  ///< pixels, all three lines
    bool operator==(const Ring&) const = default;
};

Ring ringOf(const Form&);

/// Draws it in the painter's coordinates.
void drawRing(QPainter&, const Ring&);
