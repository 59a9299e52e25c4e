// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/painting.h"

#include "game/cards.h"
#include "platform/chance.h"

namespace {

constexpr float frameInset = 3;

void drawFrame(Game& g, int id) {
    const Image& card = g.carta(id);
    Line(g.frmscopa, card.Left + frameInset, card.Top + frameInset,
         card.Left + g.larghezzaCarta - frameInset, card.Top + g.altezzaCarta - frameInset,
         frameRed, LineStyle::B);
}

}  // namespace

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
float handTop(const Game& g) {
    return handBottom - g.altezzaCarta;
}
float playedLeft(const Game& g) {
    return g.centroX + 178;
}
float playedTop(const Game& g) {
    return g.centroY - g.altezzaCarta / 2;
}

void paintAtCardSize(Game& g, Picture picture, float left, float top) {
    PaintPicture(g.frmscopa, picture, left, top, g.larghezzaCarta, g.altezzaCarta);
}

void showCard(Game& g, int id, float left, float top) {
    paintAtCardSize(g, g.carta(id).picture, left, top);
    Move(g.carta(id), left, top);
}

void repaintCard(Game& g, int id) {
    paintAtCardSize(g, g.carta(id).picture, g.carta(id).Left, g.carta(id).Top);
}

void repaintTable(Game& g) {
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        if (id == 0) continue;
        repaintCard(g, id);
        if (marked(g, id)) drawFrame(g, id);
    }
}

void erase(Game& g, float x1, float y1, float x2, float y2) {
    Line(g.frmscopa, x1, y1, x2, y2, tableColour, LineStyle::BF);
}

bool marked(const Game& g, int id) {
    return std::string_view(g.carta(id).Tag) == "SEL";
}

void mark(Game& g, int id) {
    g.carta(id).Tag = "SEL";
    drawFrame(g, id);
}

int markedCount(const Game& g) {
    int count = 0;
    for (const auto [row, column] : tableOrder) count += marked(g, g.tavolo(row, column));
    return count;
}

void enterTaken(Game& g, int entry, int id) {
    g.presa(entry) = id;
    g.presaX(entry) = rounded(g.carta(id).Left);
    g.presaY(entry) = rounded(g.carta(id).Top);
}
