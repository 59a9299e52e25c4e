// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// A press on a pixel means what is painted there, at every size of the cards and of the window:
// colour and place are never read from two sides of an edge. A card that has left its slot can be
// told by the colour alone.

#include <gtest/gtest.h>

#include <cmath>

#include "platform/form.h"

namespace {

constexpr int smallestScale = 40, largestScale = 106;  // in percent
constexpr float gap = 6;

/// The cards in a row of the layout, across or down, in the arithmetic of the table.
struct Row {
    float first = 0;  ///< where the first card begins
    float card = 0;   ///< its length
    int cards = 0;

    float begin(int i) const { return first + static_cast<float>(i) * (card + gap); }
    /// Which of the table's cards a place belongs to, with the gap behind it.
    int cardAt(float place) const {
        return static_cast<int>(std::floor((place - first) / (card + gap)));
    }
};

struct Layout {
    Row hand, columns, rows;
    float handTop = 0;

    explicit Layout(int percent) {
        const float scale = static_cast<float>(percent) / 100;
        const float width = twipsToUnitsAcross(1200) * scale;
        const float height = twipsToUnitsDown(2232) * scale;
        hand = {400 - 1.5f * width - gap, width, 3};
        columns = {400 - 2 * width - 1.5f * gap, width, 4};
        rows = {300 - 1.5f * height - gap, height, 3};
        handTop = 595 - height;
    }
};

/// The first pixel of a box that begins at an edge.
int firstPixel(float edge, double pixelsPerUnit) {
    return toPixels({edge, 0, edge + 60, 60}, {pixelsPerUnit, 1, 1}).left;
}

/// Presses that are not on the side of the edge on which their pixel is painted.
int astray(float edge, double pixelsPerUnit) {
    const int first = firstPixel(edge, pixelsPerUnit);
    return (pressOn(first, pixelsPerUnit) <= edge) + (pressOn(first - 1, pixelsPerUnit) > edge);
}

/// Presses on a card's outermost pixels that are counted to another card.
int miscounted(const Row& row, int i, double pixelsPerUnit) {
    const int first = firstPixel(row.begin(i), pixelsPerUnit);
    const int last = firstPixel(row.begin(i) + row.card, pixelsPerUnit) - 1;
    return (row.cardAt(pressOn(first, pixelsPerUnit)) != i) +
           (row.cardAt(pressOn(last, pixelsPerUnit)) != i);
}

/// Calls `look` with the layout of every scale and the grid of every length of a window's side.
template <class Look>
void walk(int shortest, int longest, float units, const Look& look) {
    for (int percent = smallestScale; percent <= largestScale; ++percent) {
        const Layout layout(percent);
        for (int pixels = shortest; pixels <= longest; ++pixels)
            look(layout, static_cast<double>(pixels) / static_cast<double>(units));
    }
}

TEST(Press, IsOnTheSideOfAHandsEdgeThatIsPaintedThere) {
    int wrong = 0;
    walk(320, 7680, unitsAcross, [&](const Layout& layout, double across) {
        for (int i = 0; i < 3; ++i) {
            wrong += astray(layout.hand.begin(i), across);
            wrong += astray(layout.hand.begin(i) + layout.hand.card, across);
        }
    });
    walk(240, 4320, unitsDown, [&](const Layout& layout, double down) {
        wrong += astray(layout.handTop, down) + astray(595, down);
    });
    EXPECT_EQ(wrong, 0);
}

TEST(Press, OnACardOfTheTableIsCountedToIt) {
    int wrong = 0;
    walk(320, 7680, unitsAcross, [&](const Layout& layout, double across) {
        for (int i = 0; i < 4; ++i) wrong += miscounted(layout.columns, i, across);
    });
    walk(240, 4320, unitsDown, [&](const Layout& layout, double down) {
        for (int i = 0; i < 3; ++i) wrong += miscounted(layout.rows, i, down);
    });
    EXPECT_EQ(wrong, 0);
}

}  // namespace
