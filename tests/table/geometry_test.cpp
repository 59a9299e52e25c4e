// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Where the cards lie, worked out from the design alone, and which place a point belongs to.

#include "table/geometry.h"

#include <gtest/gtest.h>

#include "platform/headless/headless.h"
#include "state/state.h"

namespace {

constexpr float cardWidth = 1200 * 800 / 15432.0f, cardHeight = 2232 * 600 / 12360.0f;

/// The table measured for cards of a size.
struct Measured {
    explicit Measured(float scale = 1) {
        g.scalaCarte = scale;
        g.mazziere = computer;
        measureWindow(g);
        measureCards(g);
        measurePiles(g);
        g.posX = 578;
        g.posY = 300;
    }
    Headless backend;
    Game g{backend, {}};
};

TEST(Geometry, CardsAreScaledAsFarAsThereIsRoom) {
    const std::pair<float, float> scales[] = {{0.6f, 0.6f}, {1e28f, 1.06f}, {0.01f, 0.4f}};
    for (const auto& [wanted, expected] : scales) {
        const Measured table(wanted);
        EXPECT_FLOAT_EQ(table.g.larghezzaCarta, cardWidth * expected) << "wanted " << wanted;
        EXPECT_FLOAT_EQ(table.g.altezzaCarta, cardHeight * expected) << "wanted " << wanted;
    }
}

TEST(Geometry, CardsHaveTheirPlaces) {
    const Measured table;
    const Game& g = table.g;
    constexpr float across = cardWidth + 6, down = cardHeight + 6;
    constexpr float left = 400 - 2 * cardWidth - 9, top = 300 - 1.5f * cardHeight - 6;
    constexpr float handLeft = 400 - 1.5f * cardWidth - 6;
    const struct {
        const char* what;
        Spot spot, expected;
    } places[] = {
        {"the table's first place", placeSpot(g, {1, 1}), {left, top}},
        {"the table's last place", placeSpot(g, {3, 4}), {left + 3 * across, top + 2 * down}},
        {"the human's first card", handSpot(g, 0), {handLeft, 595 - cardHeight}},
        {"the human's last card", handSpot(g, 2), {handLeft + 2 * across, 595 - cardHeight}},
        {"the computer's first card", computersSpot(g, 0), {handLeft, 5}},
        {"the computer's last card", computersSpot(g, 2), {handLeft + 2 * across, 5}},
        {"a card played", playedSpot(g), {578, 300 - cardHeight / 2}},
        {"the third card of the fan", fanSpot(g, 3), {578, 300 - 0.9f * cardHeight}},
        // 600 - 108.35 - 5 is 486.65.
        {"the human's pile", pileSpot(g, human), {100, 487}},
        {"the computer's pile", pileSpot(g, computer), {100, 5}},
        {"the human's third scopa", scopaSpot(g, human, 3), {cardWidth + 100, 437}},
        {"the computer's third scopa", scopaSpot(g, computer, 3), {cardWidth + 100, 55}},
        {"the computer's deck", deckSpot(g), {680, 5}}};
    for (const auto& [what, spot, expected] : places) {
        EXPECT_NEAR(spot.left, expected.left, 0.01) << what;
        EXPECT_NEAR(spot.top, expected.top, 0.01) << what;
    }
}

/// Cards of 62 by 108 units, with which every edge is a whole number.
struct WholeNumbers : Measured {
    WholeNumbers() {
        g.larghezzaCarta = 62;
        g.altezzaCarta = 108;
        g.tavoloX = 267;
        g.tavoloY = 132;
    }
};

TEST(Geometry, PointsBelongToASlotWithoutItsEdges) {
    const struct {
        float x, y;
        int slot;  ///< 0 for none
    } points[] = {{301, 540, 0}, {301.25f, 540, 1}, {368, 540, 1},     {368.25f, 540, 2},
                  {437, 540, 2}, {437.25f, 540, 3}, {504.75f, 540, 3}, {505, 540, 0},
                  {400, 487, 0}, {400, 487.25f, 2}, {400, 594.75f, 2}, {400, 595, 0}};
    const WholeNumbers table;
    for (const auto& [x, y, slot] : points)
        EXPECT_EQ(handSlotAt(table.g, x, y), slot) << "at " << x << ", " << y;
}

TEST(Geometry, PointsBelongToAPlaceWithTheGapBeyondIt) {
    const struct {
        float x, y;
        int row, column;
        bool onTable;
    } points[] = {{267, 132, 1, 1, true},      {334.75f, 245.75f, 1, 1, true},
                  {335, 132, 1, 2, true},      {267, 246, 2, 1, true},
                  {471, 360, 3, 4, true},      {538.75f, 473.75f, 3, 4, true},
                  {539, 400, 3, 5, false},     {400, 474, 4, 2, false},
                  {266.75f, 300, 2, 0, false}, {300, 131.75f, 0, 1, false}};
    const WholeNumbers table;
    for (const auto& [x, y, row, column, isOnTable] : points) {
        const Place place = tablePlaceAt(table.g, x, y);
        EXPECT_EQ(place.row, row) << "at " << x << ", " << y;
        EXPECT_EQ(place.column, column) << "at " << x << ", " << y;
        EXPECT_EQ(onTable(place), isOnTable) << "at " << x << ", " << y;
    }
}

}  // namespace
