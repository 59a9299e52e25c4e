// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
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

// Pixels and units, across or down. What is painted at a pixel, read there and hit there hangs on
// one place: the middle of the pixel.
float middleOf(int pixel, double pixelsPerUnit);
int pixelAt(float units, double pixelsPerUnit);
/// Where a press on a pixel is: the next number beyond the middle, so that a press on what begins
/// at an edge lies past the edge and none lies on it.
float pressOn(int pixel, double pixelsPerUnit);

/// The one way from units to pixels: a pixel belongs to a box if its middle does. So a box that
/// contains another one in units contains it in pixels too, at any size and scale.
PixelBox toPixels(const Box&, const PixelGrid&);

struct PixelSize {
    int width = 0, height = 0;
};

/// The size at which a picture is drawn for a box: rounded down, so that a card is drawn once for
/// all its places. Where its box has a pixel more, the outermost pixels stand there again.
PixelSize drawnSize(const Box&, const PixelGrid&);

/// One thing painted. Everything painted is opaque: it hides what lies below it.
struct Painted {
    Box box;
    Picture picture = picture::none;  ///< none: a box filled with colour
    Colour colour = 0;
};

/// What has been painted since the surface was last cleared. It is written down as it comes and
/// sorted out when somebody looks: most of it, a wipe's 1602 lines above all, is painted over or
/// cleared before.
struct Surface {
    Surface() = default;
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    Colour backColor = 0;

    /// Puts an entry on top; it stands until the next change. The entry is made in its place: to
    /// copy it there costs three times as much as all the rest of painting a line.
    const Painted& add(Box box, Picture picture, Colour colour) {
        if (end_ == fresh_.data() + mostFresh) settle();
        return *end_++ = {box, picture, colour};
    }
    void clear() {
        end_ = fresh_.data();
        settled_.clear();
    }
    /// Everything that one later entry does not hide, lowest first. Stands until the next change.
    const std::vector<Painted>& tidied() const;
    /// The topmost entry at a point; nullptr where there is none. Stands until the next change.
    const Painted* at(float x, float y) const;

private:
    static constexpr std::size_t mostFresh = 4096, firstTidy = 512;

    /// Drops and joins what has come since the last time, so that a wipe ends as two entries and a
    /// card that slides leaves no trail.
    void settle() const;
    void tidy() const;

    // Sorting out changes none of what is seen.
    mutable std::vector<Painted> settled_;          ///< lowest first
    mutable std::array<Painted, mostFresh> fresh_;  ///< above those
    mutable Painted* end_ = fresh_.data();          ///< of the fresh ones in use
    mutable std::size_t tidyAt_ = firstTidy;
};
