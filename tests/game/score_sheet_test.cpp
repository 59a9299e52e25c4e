// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What stands on the score sheet after each hand, and how hands and matches follow each other.

#include "whole_program.h"

namespace {

using Row = std::vector<std::string>;

std::string number(int n) {
    return ' ' + std::to_string(n);
}

/// The ten figures of the hand that has just been counted.
Row figures(const Game& g) {
    const char* const yesNo[] = {"NO", "YES"};
    return {number(g.presiUmano),       number(g.denariUmano),       yesNo[g.primieraVinta == 1],
            yesNo[g.settebelloUmano],   number(g.scope(1)),          number(40 - g.presiUmano),
            number(10 - g.denariUmano), yesNo[g.primieraVinta == 2], yesNo[!g.settebelloUmano],
            number(g.scope(2))};
}

void expectBox(const Control& control, float left, float top, float width, float height) {
    EXPECT_TRUE(control.Visible);
    EXPECT_NEAR(control.Left, left, 0.01);
    EXPECT_NEAR(control.Top, top, 0.01);
    EXPECT_NEAR(control.Width, width, 0.01);
    EXPECT_NEAR(control.Height, height, 0.01);
}

constexpr float blockLeft[] = {20, 432}, blockWidth = 348;

void expectHeadings(const Game& g) {
    EXPECT_EQ(Point(g.frmscore, 400, 300), 0x0080FF) << "the sheet is orange";
    expectBox(g.LBLtit, 20, 5, 760, 40);
    expectBox(g.Command1, 125, 520, 150, 30);
    expectBox(g.Command2, 525, 520, 150, 30);
    const char* const players[] = {"Player", "Computer"};
    for (int i = 0; i <= 1; ++i) {
        const Label& player = g.LBLdat(i + 1);
        EXPECT_EQ(player.Caption, players[i]);
        EXPECT_EQ(player.ForeColor, 0x000080) << players[i];
        expectBox(player, blockLeft[i], 45, blockWidth, 30);
    }
    EXPECT_FALSE(g.LBLdat(0).Visible) << "the template";
}

/// A row of ten small labels, the first of which has this index.
void expectRow(const Game& g, int index, float top, const Row& captions) {
    for (std::size_t k = 0; k < 10; ++k, ++index) {
        SCOPED_TRACE("label " + std::to_string(index));
        ASSERT_TRUE(g.LBLdat.loaded(index));
        const Label& label = g.LBLdat(index);
        EXPECT_EQ(label.Caption, captions[k]);
        EXPECT_EQ(label.FontSize, 8);
        EXPECT_EQ(label.ForeColor, 0x000080);
        expectBox(label, blockLeft[k / 5] + 70 * static_cast<float>(k % 5), top, 67.8f, 15);
    }
}

/// The leader's total is red and underlined. Both stand under the last row.
void expectTotal(const Game& g, int block, int total, int other, float top) {
    const Label& label = g.lblTot(block);
    SCOPED_TRACE("total " + std::to_string(block));
    EXPECT_EQ(label.Caption, number(total));
    EXPECT_EQ(label.ForeColor, total > other ? 0x0000FF : 0x000080);
    EXPECT_EQ(label.underlined, total > other);
    expectBox(label, blockLeft[block], top, blockWidth, label.Height);
    EXPECT_LE(pixelsOf(label, g.frmscore.grid).bottom, g.Command1.Top);
}

/// The card that a player counts in a suit, by its place in the order of the primiera.
void expectPrimieraCards(const Game& g) {
    const int values[] = {0, 7, 6, 1, 5, 4, 3, 2, 8, 9, 10, 0};
    for (int i = 0; i < 8; ++i) {
        SCOPED_TRACE("primiera card " + std::to_string(i + 1));
        const Image& image = g.imgset(i + 1);
        const int value = values[g.primieraCarte(i / 4 + 1, i % 4 + 1)];
        EXPECT_EQ(image.Visible, value != 0);
        if (value == 0) continue;
        EXPECT_EQ(image.picture, 10 * (i % 4) + value);
        EXPECT_EQ(image.Left, static_cast<float>((i < 4 ? 50 : 350) + 50 * i));
        EXPECT_EQ(image.Top, 5);
    }
}

/// The whole sheet after a hand, with these rows; twenty have room.
void expectSheet(const Game& g, const std::vector<Row>& rows) {
    expectHeadings(g);
    expectPrimieraCards(g);
    const char* const titles[] = {"Carte", "Denari", "Primiera", "Settebello", "Scope"};
    Row bothTitles(titles, titles + 5);
    bothTitles.insert(bothTitles.end(), titles, titles + 5);
    expectRow(g, 3, 75, bothTitles);
    float top = 91;
    int next = 13;
    for (const Row& row : rows) {
        expectRow(g, next, top, row);
        top += 20;
        next += 10;
    }
    EXPECT_FALSE(g.LBLdat.loaded(next)) << "a row too many";
    expectTotal(g, 0, g.totaleUmano, g.totaleComputer, top - 4);
    expectTotal(g, 1, g.totaleComputer, g.totaleUmano, top - 4);
}

TEST(ScoreSheet, GetsARowForEachHandAndHasRoomForAll) {
    WholeProgram program;
    Game& g = program.g;
    program.robot.tipoPartita = 2;
    std::vector<Row> rows;
    program.watch = [&](Moment moment) {
        // One is ahead, then the other; then the match is drawn again and again.
        const int hand = program.seen(Moment::leftovers) - 1;
        const int ours[] = {5, 5, 7}, theirs[] = {4, 7, 6};
        if (moment == Moment::leftovers)
            forceHand(g, hand < 3 ? ours[hand] : 4 + hand, hand < 3 ? theirs[hand] : 4 + hand);
        if (moment != Moment::scored) return;
        if (rows.size() == 20) rows.erase(rows.begin());
        rows.push_back(figures(g));
        expectSheet(g, rows);
    };
    program.runHands(27);
}

TEST(ScoreSheet, HasOneRowInSingleGamesAndIsWipedAfterAMatch) {
    WholeProgram program;
    Game& g = program.g;
    program.backend.wipeSeconds = 1;
    program.backend.frameSeconds = 1 / 64.0;
    program.watch = [&](Moment moment) {
        const int hand = program.seen(Moment::leftovers);
        // A drawn hand first, which is played again.
        if (moment == Moment::leftovers && hand < 3) forceHand(g, 3 + hand, 4);
        if (moment == Moment::scored) expectSheet(g, {figures(g)});
    };
    int wiped = 0;
    program.look = [&] {
        if (Point(g.frmscore, 5, 5) != 0xFF0000) return;
        for (const Control* control : g.frmscore.controls) EXPECT_FALSE(control->Visible);
        ++wiped;
    };
    program.then("the second sheet",
                 [](auto& now) { return now.scoreShown() && now.seen(Moment::scored) == 2; });
    program.then("the next opening screen", &WholeProgram::choosing, [&] {
        EXPECT_GT(wiped, 30) << "the wipe is to be seen";
        EXPECT_FALSE(g.frmscore.Visible);
    });
    program.runHands(3);
}

/// Each button is pressed twice at once, and those of the other form now and then.
TEST(Matches, FollowEachOtherAndBeginAfresh) {
    WholeProgram program;
    Game& g = program.g;
    std::vector<Row> rows;
    program.watch = [&](Moment moment) {
        const int hand = program.seen(Moment::leftovers);
        const int points[] = {0, 4, 12, 5};
        if (moment == Moment::leftovers) forceHand(g, points[hand], 4);
        if (moment != Moment::scored) return;
        if (hand == 3) rows.clear();
        rows.push_back(figures(g));
        expectSheet(g, rows);
    };
    const auto press = [&](std::initializer_list<Control*> controls) {
        return [&, all = std::vector(controls)] {
            for (Control* control : all) program.press({control});
        };
    };
    program.then("the opening screen", &WholeProgram::choosing,
                 press({&g.Option1(2), &g.Option1(1), &g.GO, &g.GO}));
    program.then("the first hand", &WholeProgram::picking, press({&g.GO}));
    program.then("the first sheet", &WholeProgram::scoreShown, press({&g.Command1, &g.Command1}));
    program.then("the second hand", &WholeProgram::picking, press({&g.Command1}));
    program.then("the second sheet", &WholeProgram::scoreShown, press({&g.Command1, &g.Command1}));
    program.then("the next title", &WholeProgram::titleShows);
    program.then("the next opening screen", &WholeProgram::choosing, press({&g.GO, &g.GO}));
    program.then("the third sheet", &WholeProgram::scoreShown);
    program.run();
    EXPECT_EQ(program.seen(Moment::turn), 108) << "three hands";
    EXPECT_EQ(g.tipoPartita, 1) << "the last click counts, in later matches too";
    EXPECT_TRUE(g.Option1(1).Value);
    EXPECT_FALSE(g.Option1(2).Value);
    EXPECT_EQ(g.totaleUmano, 5) << "the points of the match before are gone";
    EXPECT_EQ(g.totaleComputer, 4);
}

}  // namespace
