// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/score_sheet.h"

#include <array>

#include "state/scoring.h"
#include "state/state.h"

namespace frmscore {
namespace {

constexpr std::array<const char*, columns> titles{"Carte", "Denari", "Primiera", "Settebello",
                                                  "Scope"};
constexpr Colour leaderRed = 0x0000FF;
constexpr float blockLeft[] = {20, 432}, blockWidth = 348;
constexpr float columnPitch = 70, columnWidth = 67.8f, rowHeight = 15;

void place(Control& control, float left, float top, float width, float height) {
    Move(control, left, top);
    control.Width = width;
    control.Height = height;
    control.Visible = true;
}

/// Writes one of the small labels, k from 0 to 4 of a block, loading it the first time.
void writeSmall(Game& g, int index, int block, int k, float top, const std::string& caption) {
    loadLabel(g.frmscore, g.LBLdat, index);
    Label& label = g.LBLdat(index);
    const float left = blockLeft[block] + columnPitch * static_cast<float>(k);
    place(label, left, top, columnWidth, rowHeight);
    label.ForeColor = darkRed;
    label.FontSize = 8;
    label.Caption = caption;
}

/// A number as text has a blank in the place of its sign.
std::string text(int number) {
    return std::string(1, ' ').append(std::to_string(number));
}

std::string text(bool yes) {
    return yes ? "YES" : "NO";
}

std::array<std::string, columns> figures(const Game& g, int player) {
    if (player == human)
        return {text(g.presiUmano), text(g.denariUmano), text(g.primieraVinta == human),
                text(g.settebelloUmano), text(g.scope(human))};
    return {text(40 - g.presiUmano), text(10 - g.denariUmano), text(g.primieraVinta == computer),
            text(!g.settebelloUmano), text(g.scope(computer))};
}

float below(const Game& g, float top) {
    return top + 2 * static_cast<float>(g.progressoPartita);
}

void makeRoom(Game& g) {
    if (g.progressoPartita <= lastOffset) return;
    g.progressoPartita = lastOffset;
    for (int i = firstFigure; i < firstFigure + lastOffset; ++i)
        g.LBLdat(i).Caption = g.LBLdat(i + labelsPerHand).Caption;
}

/// The line tells the leader to those who see no red.
void captionTotal(Label& label, int total, int other) {
    label.underlined = total > other;
    label.ForeColor = label.underlined ? leaderRed : darkRed;
    label.Caption = text(total);
}

}  // namespace

void layHeadings(Game& g) {
    place(g.LBLtit, 20, 5, g.frmscore.ScaleWidth - 40, 40);
    for (int block = 0; block <= 1; ++block) {
        place(g.LBLdat(block + 1), blockLeft[block], 45, blockWidth, 30);
        for (int k = 0; k < columns; ++k)
            writeSmall(g, firstTitle + block * columns + k, block, k, 75,
                       titles[static_cast<std::size_t>(k)]);
    }
}

void showButtons(Game& g) {
    place(g.Command1, 125, 520, 150, 30);
    place(g.Command2, 525, 520, 150, 30);
    g.LBLtit.Visible = true;
}

void captionPlayers(Game& g) {
    g.LBLdat(1).Caption = g.nomeGiocatore;
    g.LBLdat(2).Caption = "Computer";
    for (int i = 1; i <= 2; ++i) {
        g.LBLdat(i).ForeColor = darkRed;
        g.LBLdat(i).Visible = true;
    }
}

void fillRow(Game& g) {
    makeRoom(g);
    for (int block = 0; block <= 1; ++block) {
        const auto row = figures(g, block + 1);
        for (int k = 0; k < columns; ++k)
            writeSmall(g, g.progressoPartita + firstFigure + block * columns + k, block, k,
                       below(g, 91), row[static_cast<std::size_t>(k)]);
    }
}

void placeTotals(Game& g) {
    for (int i = 0; i <= 1; ++i)
        place(g.lblTot(i), blockLeft[i], below(g, 107), blockWidth, g.lblTot(i).Height);
}

void captionTotals(Game& g) {
    captionTotal(g.lblTot(0), g.totaleUmano, g.totaleComputer);
    captionTotal(g.lblTot(1), g.totaleComputer, g.totaleUmano);
}

void mostrasettanta(Game& g) {
    for (int player = human; player <= computer; ++player) {
        for (int suit = 1; suit <= 4; ++suit) {
            Image& image = g.imgset(4 * (player - 1) + suit);
            const int id = frmscopa::primieraCard(g, player, suit);
            Move(image, (player == human ? 0.0f : 500.0f) + 50.0f * static_cast<float>(suit), 5);
            image.Visible = id != 0;
            if (id != 0) image.picture = g.carta(id).picture;
        }
    }
}

}  // namespace frmscore
