// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/painting.h"

#include "state/card_holders.h"
#include "state/cards.h"
#include "state/state.h"

namespace {

constexpr float frameInset = 3;

void drawFrame(Game& g, int id) {
    const Image& card = g.carta(id);
    Line(g.frmscopa, card.Left + frameInset, card.Top + frameInset,
         card.Left + g.larghezzaCarta - frameInset, card.Top + g.altezzaCarta - frameInset,
         frameRed, LineStyle::B);
}

}  // namespace

void paintAtCardSize(Game& g, Picture picture, Spot spot) {
    PaintPicture(g.frmscopa, picture, spot.left, spot.top, g.larghezzaCarta, g.altezzaCarta);
}

void showCard(Game& g, int id, Spot spot) {
    paintAtCardSize(g, g.carta(id).picture, spot);
    moveTo(g.carta(id), spot);
}

void repaintCard(Game& g, int id) {
    paintAtCardSize(g, g.carta(id).picture, {g.carta(id).Left, g.carta(id).Top});
}

void repaintTable(Game& g) {
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        if (id == 0) continue;
        repaintCard(g, id);
        if (marked(g, id)) drawFrame(g, id);
    }
}

void eraseCard(Game& g, Spot spot, Beyond beyond) {
    erase(g, spot.left - beyond.left, spot.top - beyond.top, spot.left + g.larghezzaCarta,
          spot.top + g.altezzaCarta + beyond.bottom);
}

void erase(Game& g, float x1, float y1, float x2, float y2) {
    Line(g.frmscopa, x1, y1, x2, y2, tableColour, LineStyle::BF);
}

void mark(Game& g, int id) {
    g.carta(id).Tag = "SEL";
    drawFrame(g, id);
}
