// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The edges of what naive_rules_test.cpp tries at random: the last draw, where a press counts, and
// a hand that was scored on paper.

#include <algorithm>

#include "game/human.h"
#include "platform/chance.h"
#include "state/rounding.h"
#include "state/scoring.h"
#include "support.h"
#include "table/score_sheet.h"

namespace test {
namespace {

/// One draw in sixteen million lies so near to 1 that four times as much plus 1 is 5 in single
/// precision; a card was once laid on a fifth column that way.
TEST(Chance, StaysBelowItsBoundAndRoundsHalfToTheEvenNumber) {
    Desk desk;
    for (const int n : {2, 3, 4, 41}) {
        desk.g.chance.prepared = {0x1.fffffep-1f};
        EXPECT_EQ(randomBelow(desk.g, n), n - 1);
    }
    const std::pair<float, int> cases[] = {
        {266.6f, 267}, {266.4f, 266}, {131.5f, 132}, {130.5f, 130}};
    for (const auto& [value, whole] : cases) EXPECT_EQ(rounded(value), whole);
}

TEST(Presses, GoByPositionWithStrictEdges) {
    struct {
        float x, y;
        bool covered;  ///< with a colour that is no table, so that only places count
        int slot;      ///< 0 for none
    } const hands[] = {{301, 540, true, 0},     {301.25f, 540, true, 1}, {368, 540, true, 1},
                       {368.25f, 540, true, 2}, {437, 540, true, 2},     {437.25f, 540, true, 3},
                       {504.75f, 540, true, 3}, {505, 540, true, 0},     {400, 487, true, 0},
                       {400, 487.25f, true, 2}, {400, 594.75f, true, 2}, {400, 595, true, 0},
                       {362.5f, 540, false, 1}, {363.5f, 540, false, 0}, {368.5f, 540, false, 0},
                       {369.5f, 540, false, 2}, {434, 540, false, 0},    {437.25f, 540, false, 3}};
    const auto press = [](Desk& desk, const char* phase, float x, float y, bool covered) {
        if (covered) Line(desk.g.frmscopa, 0, 0, 800, 600, 0x123456, LineStyle::BF);
        desk.g.fase = phase;
        frmscopa::Form_MouseDown(desk.g, 1, 0, x, y);
    };
    for (const auto& [x, y, covered, slot] : hands) {
        Desk desk;
        desk.giveHuman("2d 3d 4d");
        press(desk, "gioco1", x, y, covered);
        EXPECT_EQ(desk.g.cartaGiocata, slot == 0 ? 0 : slot + 1) << x << ' ' << y;
        press(desk, "gioco1", 332, 540, true);
        EXPECT_EQ(desk.g.cartaGiocata, slot == 0 ? 2 : slot + 1) << "the first press counts";
    }
    const std::tuple<float, float, const char*> places[] = {
        {267, 132, "2d"}, {334.75f, 245.75f, "2d"}, {335, 132, "2c"},  {267, 246, "3d"},
        {471, 360, "4b"}, {538.75f, 473.75f, "4b"}, {300, 400, ""},    {539, 400, ""},
        {400, 474, ""},   {266.75f, 300, ""},       {300, 131.75f, ""}};
    for (const auto& [x, y, marked] : places) {
        Desk desk;
        desk.layTable("2 2 2 2 3 3 3 3 . 4 4 4");
        press(desk, "selezione", x, y, true);
        EXPECT_EQ(names(desk.marked()), marked) << x << ' ' << y;
    }
}

// 23 cards, 6 denari, the settebello and a scopa against the primiera, 70 to 81.
TEST(AHandOnPaper, IsScoredTheSame) {
    // Six denari with the settebello, coppe without the seven, four bastoni and spade.
    const Cards taken{7,  1,  2,  3,  4,  5,  16, 11, 12, 13, 14, 15,
                      18, 19, 20, 21, 22, 23, 24, 35, 34, 33, 32};
    Desk desk;
    std::copy(taken.begin(), taken.end(), desk.g.pilaPrese.begin() + 1);
    desk.g.presiUmano = 23;
    desk.g.scope(human) = 1;
    frmscopa::tallyHand(desk.g);
    frmscopa::calcsettanta(desk.g);
    frmscore::awardPoints(desk.g);
    EXPECT_EQ(desk.g.primieraSomma(human), 70);
    EXPECT_EQ(desk.g.primieraSomma(computer), 81);
    EXPECT_EQ(desk.g.totaleUmano, 4);
    EXPECT_EQ(desk.g.totaleComputer, 1);
}

}  // namespace
}  // namespace test
