// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/lamps.h"

#include "state/state.h"
#include "table/geometry.h"

namespace {

/// Index of a player's lamps in Verde and Rosso.
int lampOf(int player) {
    return player - 1;
}

void moveLamps(Game& g, int player, Spot spot) {
    moveTo(g.Verde(lampOf(player)), spot);
    moveTo(g.Rosso(lampOf(player)), spot);
}

}  // namespace

void parkLamps(Game& g) {
    for (const int player : {human, computer}) moveLamps(g, player, {unitsAcross, unitsDown});
}

void placeLamps(Game& g) {
    for (const int player : {human, computer}) moveLamps(g, player, lampSpot(g, player));
}

void showLamps(Game& g) {
    for (Image& lamp : g.Verde) lamp.Visible = true;
    for (Image& lamp : g.Rosso) lamp.Visible = true;
}

void showTurn(Game& g, int player) {
    ZOrder(g, g.Verde(lampOf(player)));
    ZOrder(g, g.Rosso(lampOf(human + computer - player)));
}
