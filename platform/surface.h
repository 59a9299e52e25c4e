// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "platform/controls.h"

/// A box in table units, left and top edge included, right and bottom edge not.
struct Box {
    float left = 0, top = 0, right = 0, bottom = 0;
};

/// A box of whole pixels, right and bottom edge not included.
struct PixelBox {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const PixelBox&) const = default;
};

/// Pixels of the screen per table unit, across and down, and per pixel of a fixed size.
struct PixelGrid {
    double x = 1, y = 1;
    double fixed = 1;
};

/// The one way from units to pixels. Every edge is rounded by the same rule, so a box that contains
/// another one in units contains it in pixels too, at any size and scale.
PixelBox toPixels(const Box&, const PixelGrid&);

/// The pixels of a picture painted into a box: its size is rounded down, so that a card has the
/// same size at every place and is drawn once for it.
PixelBox pictureToPixels(const Box&, const PixelGrid&);

/// One thing painted. Everything painted is opaque: it hides what lies below it.
struct Painted {
    Box box;                          ///< where it was painted
    Box visible;                      ///< the part that later paint has not hidden, or more
    Picture picture = picture::none;  ///< none: a box filled with colour
    Colour colour = 0;
};

/// What has been painted since the surface was last cleared, lowest first.
struct Surface {
    Colour backColor = 0;
    std::vector<Painted> list;

    /// Adds an entry on top and drops or trims what it hides among the newest ones, so that a card
    /// that slides leaves no trail of entries.
    void add(const Painted&);
    /// Drops every entry that one later entry hides. The picture stays the same.
    void tidy();
    void clear();
    /// The topmost entry at a point; nullptr where there is none.
    const Painted* at(float x, float y) const;

private:
    /// Lets one of the two newest entries grow by a box of its colour beside it. Each of the wipe's
    /// 1602 lines is added this way.
    bool continueFill(const Painted&);

    std::size_t tidyAt_ = 512;
};
