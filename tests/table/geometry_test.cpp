// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Where the cards lie, worked out from the design alone, and which place a point or a pixel belongs
// to.

#include "table/geometry.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/headless/headless.h"
#include "state/state.h"

namespace {

constexpr float cardWidth = 1200 * 800 / 15432.0f, cardHeight = 2232 * 600 / 12360.0f;

struct Geometry : testing::Test {
    void measure(float scale) {
        g.scalaCarte = scale;
        g.mazziere = computer;
        measureWindow(g);
        measureCards(g);
        measurePiles(g);
    }
    Headless backend;
    Game g{backend, {}};
};

TEST_F(Geometry, CardsAreScaledAsFarAsThereIsRoom) {
    const std::pair<float, float> scales[] = {{0.6f, 0.6f}, {1e28f, 1.06f}, {0.01f, 0.4f}};
    for (const auto& [wanted, expected] : scales) {
        measure(wanted);
        EXPECT_FLOAT_EQ(g.larghezzaCarta, cardWidth * expected) << "wanted " << wanted;
        EXPECT_FLOAT_EQ(g.altezzaCarta, cardHeight * expected) << "wanted " << wanted;
    }
}

TEST_F(Geometry, CardsHaveTheirPlaces) {
    measure(1);
    g.posX = 578;
    g.posY = 300;
    constexpr float across = cardWidth + 6, down = cardHeight + 6;
    constexpr float left = 400 - 2 * cardWidth - 9, top = 300 - 1.5f * cardHeight - 6;
    constexpr float handLeft = 400 - 1.5f * cardWidth - 6;
    const std::tuple<const char*, Spot, float, float> places[] = {
        {"the table's first place", placeSpot(g, {1, 1}), left, top},
        {"the table's last place", placeSpot(g, {3, 4}), left + 3 * across, top + 2 * down},
        {"the human's last card", handSpot(g, 2), handLeft + 2 * across, 595 - cardHeight},
        {"the computer's last card", computersSpot(g, 2), handLeft + 2 * across, 5},
        {"a card played", playedSpot(g), 578, 300 - cardHeight / 2},
        {"the third card of the fan", fanSpot(g, 3), 578, 300 - 0.9f * cardHeight},
        {"the human's pile", pileSpot(g, human), 100, 487},  // 600 - 108.35 - 5 is 486.65
        {"the human's third scopa", scopaSpot(g, human, 3), cardWidth + 100, 437},
        {"the computer's third scopa", scopaSpot(g, computer, 3), cardWidth + 100, 55},
        {"the computer's deck", deckSpot(g), 680, 5}};
    for (const auto& [what, spot, expectedLeft, expectedTop] : places) {
        EXPECT_NEAR(spot.left, expectedLeft, 0.01) << what;
        EXPECT_NEAR(spot.top, expectedTop, 0.01) << what;
    }
}

TEST_F(Geometry, PointsBelongToPlaces) {
    measure(1);
    g.larghezzaCarta = 62;  // With these every edge is a whole number.
    g.altezzaCarta = 108;
    g.tavoloX = 267;
    g.tavoloY = 132;
    const std::tuple<float, float, int> slots[] = {
        {301, 540, 0},     {368, 540, 1}, {368.25f, 540, 2}, {437, 540, 2},
        {437.25f, 540, 3}, {505, 540, 0}, {400, 487, 0},     {400, 595, 0}};
    for (const auto& [x, y, slot] : slots)
        EXPECT_EQ(handSlotAt(g, x, y), slot) << "without its edges, at " << x << ", " << y;
    const std::tuple<float, float, int, int> places[] = {
        {334.75f, 245.75f, 1, 1}, {538.75f, 473.75f, 3, 4}, {335, 132, 1, 2},
        {267, 246, 2, 1},         {539, 400, 3, 5},         {400, 474, 4, 2},
        {266.75f, 300, 2, 0},     {300, 131.75f, 0, 1}};
    for (const auto& [x, y, row, column] : places) {
        const Place place = tablePlaceAt(g, x, y);
        EXPECT_EQ(place.row, row) << "with the gap beyond it, at " << x << ", " << y;
        EXPECT_EQ(place.column, column) << "with the gap beyond it, at " << x << ", " << y;
        EXPECT_EQ(onTable(place), row % 4 != 0 && column % 5 != 0) << x << ", " << y;
    }
}

/// Presses on the first and on the last pixel of what reaches from an edge over a length.
std::array<float, 2> outermost(float edge, float length, double pixelsPerUnit) {
    const PixelBox box = toPixels({edge, 0, edge + length, 1}, {pixelsPerUnit, 1, 1});
    return {pressOn(box.left, pixelsPerUnit), pressOn(box.right - 1, pixelsPerUnit)};
}

/// Colour and place are never read from two sides of an edge: on windows of every width and height.
TEST_F(Geometry, APressOnAnyPixelOfACardIsCountedToItsPlaceAtEverySize) {
    int wrong = 0;
    for (int percent = 40; percent <= 106; ++percent) {
        measure(static_cast<float>(percent) / 100);
        for (int width = 320; width <= 7680; ++width)
            for (int i = 0; i < 4; ++i) {
                const double across = width / static_cast<double>(unitsAcross);
                for (const float x : outermost(handSpot(g, i).left, g.larghezzaCarta, across))
                    if (i < 3) wrong += handSlotAt(g, x, 590) != i + 1;
                const float column = placeSpot(g, {1, i + 1}).left;
                for (const float x : outermost(column, g.larghezzaCarta, across))
                    wrong += tablePlaceAt(g, x, 300).column != i + 1;
            }
        for (int height = 240; height <= 4320; ++height) {
            const double down = height / static_cast<double>(unitsDown);
            for (const float y : outermost(handSpot(g, 0).top, g.altezzaCarta, down))
                wrong += handSlotAt(g, 400, y) != 2;
            for (int row = 1; row <= 3; ++row)
                for (const float y : outermost(placeSpot(g, {row, 1}).top, g.altezzaCarta, down))
                    wrong += tablePlaceAt(g, 400, y).row != row;
        }
    }
    EXPECT_EQ(wrong, 0);
}

}  // namespace
