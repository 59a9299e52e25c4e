// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/geometry.h"

#include <algorithm>
#include <cmath>

#include "state/rounding.h"
#include "state/state.h"

namespace {

constexpr float gap = 6;          ///< between neighbouring cards
constexpr float edgeOfHands = 5;  ///< between the hands or piles and the edge of the surface
constexpr float playedRight = 178;
constexpr float fanStep = 0.3f;  ///< of a card's height
constexpr float pileLeft = 100, deckLeft = 680;
constexpr float scopaStep = 25;
constexpr float lampLeft = 620, lampHeight = 32;
constexpr float bannerLeft = 110;
constexpr float mascotLeft = 100, gorillaAbove = 180, maskBelow = 100;
constexpr float panelHalfWidth = 200, panelAbove = 250, panelBelow = 210;
constexpr float titleTop = 20 + twipsToUnitsDown(3024);
constexpr float optionTop = 100, optionPitch = 30, goTop = 300;

/// Above this the hands would touch the table's rows; below it no card can be read. The settings
/// keep what the player wrote.
constexpr float smallestScale = 0.4f, largestScale = 1.06f;

float placeLeft(const Game& g, int column) {
    return g.tavoloX + static_cast<float>(column - 1) * (g.larghezzaCarta + gap);
}

float placeTop(const Game& g, int row) {
    return g.tavoloY + static_cast<float>(row - 1) * (g.altezzaCarta + gap);
}

float handLeft(const Game& g, int slot) {
    return g.centroX - 1.5f * g.larghezzaCarta - gap +
           static_cast<float>(slot) * (g.larghezzaCarta + gap);
}

constexpr float handBottom = unitsDown - edgeOfHands;

float handTop(const Game& g) {
    return handBottom - g.altezzaCarta;
}

float inTheMiddle(const Game& g, const Control& control) {
    return g.centroX - control.Width / 2;
}

int gridLine(float distance, float pitch) {
    return static_cast<int>(std::floor(distance / pitch)) + 1;
}

}  // namespace

void moveTo(Control& control, Spot spot) {
    Move(control, spot.left, spot.top);
}

void measureWindow(Game& g) {
    g.scalaX = g.frmscopa.Width / layoutTwipsAcross;
    g.scalaY = g.frmscopa.Height / layoutTwipsDown;
    g.centroX = g.frmscopa.ScaleWidth / 2;
    g.centroY = g.frmscopa.ScaleHeight / 2;
}

void measureCards(Game& g) {
    const float scale = std::clamp(g.scalaCarte, smallestScale, largestScale);
    g.larghezzaCarta = g.scalaX * g.carta(1).Width * scale;
    g.altezzaCarta = g.scalaY * g.carta(1).Height * scale;
    g.tavoloX = g.centroX - 2 * g.larghezzaCarta - 1.5f * gap;
    g.tavoloY = g.centroY - 1.5f * g.altezzaCarta - gap;
}

void measurePiles(Game& g) {
    g.pilaY(human) = rounded(g.centroY * 2 - g.altezzaCarta - edgeOfHands);
    g.pilaY(computer) = static_cast<int>(edgeOfHands);
}

Spot placeSpot(const Game& g, Place place) {
    return {placeLeft(g, place.column), placeTop(g, place.row)};
}

Spot handSpot(const Game& g, int slot) {
    return {handLeft(g, slot), handTop(g)};
}

Spot computersSpot(const Game& g, int slot) {
    return {handLeft(g, slot), edgeOfHands};
}

Spot playedSpot(const Game& g) {
    return {g.centroX + playedRight, g.centroY - g.altezzaCarta / 2};
}

Spot fanSpot(const Game& g, int step) {
    return {g.posX, g.posY - static_cast<float>(step) * fanStep * g.altezzaCarta};
}

Spot pileSpot(const Game& g, int player) {
    return {pileLeft, static_cast<float>(g.pilaY(player))};
}

Spot scopaSpot(const Game& g, int player, int number) {
    const float towardsMiddle = player == human ? -scopaStep : scopaStep;
    return {g.larghezzaCarta + pileLeft,
            static_cast<float>(g.pilaY(player)) + towardsMiddle * static_cast<float>(number - 1)};
}

Spot deckSpot(const Game& g) {
    return {deckLeft, static_cast<float>(g.pilaY(g.mazziere))};
}

int handSlotAt(const Game& g, float x, float y) {
    if (x <= handLeft(g, 0) || x >= handLeft(g, 3)) return 0;
    if (y <= handTop(g) || y >= handBottom) return 0;
    return x > handLeft(g, 2) ? 3 : x > handLeft(g, 1) - 1 ? 2 : 1;
}

Place tablePlaceAt(const Game& g, float x, float y) {
    return {gridLine(y - g.tavoloY, g.altezzaCarta + gap),
            gridLine(x - g.tavoloX, g.larghezzaCarta + gap)};
}

bool onTable(Place place) {
    return place.row >= 1 && place.row <= 3 && place.column >= 1 && place.column <= 4;
}

Spot lampSpot(const Game& g, int player) {
    const float half = g.altezzaCarta / 2;
    return {lampLeft, player == human ? unitsDown - half - lampHeight : half};
}

Spot bannerSpot(const Game& g) {
    return {bannerLeft, g.centroY};
}

Spot gorillaSpot(const Game& g) {
    return {mascotLeft, g.centroY - gorillaAbove};
}

Spot maskSpot(const Game& g) {
    return {mascotLeft, g.centroY + maskBelow};
}

Spot titleSpot(const Game& g) {
    return {inTheMiddle(g, g.Picture4), titleTop};
}

Spot optionSpot(const Game& g, int index) {
    return {inTheMiddle(g, g.Option1(index)), optionTop + optionPitch * static_cast<float>(index)};
}

Spot goSpot(const Game& g) {
    return {inTheMiddle(g, g.GO), goTop};
}

Spot openingGorillaSpot(const Game& g) {
    return {g.centroX - 100, g.GO.Top + g.GO.Height + 10};
}

Spot openingMaskSpot(const Game& g) {
    return {g.centroX + 10, g.GO.Top + g.GO.Height + 20};
}

Box openingPanel(const Game& g) {
    return {g.centroX - panelHalfWidth, g.centroY - panelAbove, g.centroX + panelHalfWidth,
            g.centroY + panelBelow};
}

Spot openingTitleSpot(const Game& g) {
    return {g.centroX - openingTitleScale / 2 * g.Picture2.Width, g.centroY - 100};
}
