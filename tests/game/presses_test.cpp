// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Where a press of the mouse counts on the table, beyond the edges that geometry_test.cpp tries.

#include "desk.h"
#include "game/human.h"

namespace {

/// The card in play after a press in the phase in which the human chooses one.
int pickedBy(Desk& desk, float x, float y) {
    desk.g.fase = "gioco1";
    frmscopa::Form_MouseDown(desk.g, 1, 0, x, y);
    return desk.g.cartaGiocata;
}

TEST(Presses, CountOnlyWhereACardIsSeen) {
    const std::pair<float, int> cases[] = {{362.5f, 2}, {363.5f, 0}, {368.5f, 0},
                                           {369.5f, 3}, {434, 0},    {437.25f, 4}};
    for (const auto& [x, card] : cases) {
        Desk desk;
        desk.giveHuman("2d 3d 4d");
        EXPECT_EQ(pickedBy(desk, x, 540), card) << "pressed at " << x;
    }
}

TEST(Presses, TheFirstOnACardCounts) {
    Desk desk;
    desk.giveHuman("2d 3d 4d");
    EXPECT_EQ(pickedBy(desk, 332, 540), 2);
    EXPECT_EQ(pickedBy(desk, 400, 540), 2) << "another card is in play already";
}

TEST(Presses, MarkNothingWhereNoCardLies) {
    Desk desk;
    desk.layTable("2d 2c");
    BackColor(desk.g.frmscopa, 0x123456);  // so that the place alone counts
    desk.g.fase = "selezione";
    for (const float x : {300.0f, 470.0f, 600.0f}) {
        frmscopa::Form_MouseDown(desk.g, 1, 0, x, 200);
        EXPECT_EQ(desk.g.carta(2).Tag, "SEL") << "after the press at " << x;
        EXPECT_EQ(desk.g.carta(0).Tag, "") << "an empty place";
    }
}

TEST(Presses, OnALampAreNoneOnTheTable) {
    Desk desk;
    Image& lamp = desk.g.Verde(0);
    Move(lamp, 620, 514);
    lamp.Visible = true;
    pressAt(desk.g, desk.g.frmscopa, 636, 530, 1);
    ASSERT_EQ(desk.g.queue.size(), 1u);
    EXPECT_EQ(desk.g.queue.back().source, Source::Verde);
    EXPECT_EQ(desk.g.queue.back().verb, Verb::Click);
}

}  // namespace
