// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What stands on the score sheet after each hand, and how hands and matches follow each other.

#include <algorithm>

#include "state/scoring.h"
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

using Box4 = std::array<float, 4>;  ///< left, top, width, height

void expectLabel(const Label& label, const std::string& caption, Colour colour, Box4 box) {
    SCOPED_TRACE(caption + ", label " + std::to_string(label.index));
    EXPECT_TRUE(label.Visible);
    EXPECT_EQ(label.Caption, caption);
    EXPECT_EQ(label.ForeColor, colour);
    EXPECT_EQ((Box4{label.Left, label.Top, label.Width, label.Height}), box);
}

constexpr Colour darkRed = 0x000080, brightRed = 0x0000FF;
constexpr float blockLeft[] = {20, 432};

/// A row of ten small labels, the first of which has this index.
void expectRow(const Game& g, int index, float top, const Row& captions) {
    for (std::size_t k = 0; k < 10; ++k, ++index) {
        ASSERT_TRUE(g.LBLdat.loaded(index)) << "label " << index;
        const float left = blockLeft[k / 5] + 70 * static_cast<float>(k % 5);
        expectLabel(g.LBLdat(index), captions[k], darkRed, {left, top, 67.8f, 15});
        EXPECT_EQ(g.LBLdat(index).FontSize, 8);
    }
}

void expectPrimieraCards(const Game& g) {
    for (int i = 0; i < 8; ++i) {
        const Image& image = g.imgset(i + 1);
        EXPECT_EQ(image.Visible ? image.picture : 0,
                  frmscopa::primieraCard(g, i / 4 + 1, i % 4 + 1));
        EXPECT_EQ(image.Left, static_cast<float>((i < 4 ? 50 : 350) + 50 * i));
        EXPECT_EQ(image.Top, 5);
    }
}

/// The whole sheet after a hand, with these rows; twenty have room.
void expectSheet(const Game& g, const std::vector<Row>& rows) {
    expectLabel(g.LBLtit, "SCORE", darkRed, {20, 5, 760, 40});
    expectLabel(g.LBLdat(1), "Player", darkRed, {20, 45, 348, 30});
    expectLabel(g.LBLdat(2), "Computer", darkRed, {432, 45, 348, 30});
    expectPrimieraCards(g);
    expectRow(g, 3, 75,
              {"Carte", "Denari", "Primiera", "Settebello", "Scope",  //
               "Carte", "Denari", "Primiera", "Settebello", "Scope"});
    float top = 91;
    int next = 13;
    for (const Row& row : rows) {
        expectRow(g, next, top, row);
        top += 20;
        next += 10;
    }
    EXPECT_FALSE(g.LBLdat.loaded(next)) << "a row too many";
    const int totals[] = {g.totaleUmano, g.totaleComputer}, mark[] = {0, 11, 21};
    const bool over = totals[0] != totals[1] && std::ranges::max(totals) >= mark[g.tipoPartita];
    EXPECT_EQ(g.Command1.Caption, over ? "NEW GAME" : "CONTINUE");
    for (int i = 0; i <= 1; ++i) {
        const bool leads = totals[i] > totals[1 - i];
        expectLabel(g.lblTot(i), number(totals[i]), leads ? brightRed : darkRed,
                    {blockLeft[i], top - 4, 348, 0});
        EXPECT_EQ(g.lblTot(i).underlined, leads);
        EXPECT_LE(pixelsOf(g.lblTot(i), g.frmscore.grid).bottom, 520) << "clear of the buttons";
    }
}

struct Sheets : testing::Test {
    /// Lets the hands of one match or of several bring these points, and compares each sheet. A
    /// match is over after the hand of this number.
    void expectSheets(std::vector<std::pair<int, int>> points, int lastOfMatch) {
        program.watch = [this, points = std::move(points), lastOfMatch](Moment moment) {
            const int hand = program.seen(Moment::leftovers);
            const auto [ours, theirs] = points.at(static_cast<std::size_t>(std::max(hand, 1) - 1));
            if (moment == Moment::leftovers) forceHand(g, ours, theirs);
            if (moment != Moment::scored) return;
            if (g.tipoPartita == 0 || hand == lastOfMatch + 1) rows.clear();
            if (rows.size() == 20) rows.erase(rows.begin());
            rows.push_back(figures(g));
            expectSheet(g, rows);
        };
    }
    WholeProgram program;
    Game& g = program.g;
    std::vector<Row> rows;
};

TEST_F(Sheets, HaveARowForEachHandAndRoomForAll) {
    // One has everything, then the other; then the match is drawn again and again.
    std::vector<std::pair<int, int>> points{{5, 1}, {0, 6}, {6, 4}};
    for (int hand = 3; hand < 27; ++hand) points.emplace_back(4 + hand, 4 + hand);
    expectSheets(points, 27);
    program.robot.tipoPartita = 2;
    program.runHands(27);
}

TEST_F(Sheets, HaveOneRowInASingleGame) {
    expectSheets({{4, 4}, {5, 4}, {4, 4}}, 2);
    program.runHands(3);
}

/// Each button is pressed twice at once, and those of the other form now and then.
TEST_F(Sheets, FollowEachOtherAndBeginAfreshInTheNextMatch) {
    expectSheets({{4, 4}, {12, 4}, {5, 4}}, 2);
    program.backend.wipeSeconds = 1;
    program.backend.frameSeconds = 1 / 64.0;
    int wiped = 0, wipedInPart = 0;
    program.look = [&] {
        const auto isBlue = [&](float x, float y) { return Point(g.frmscore, x, y) == 0xFF0000; };
        if (!isBlue(5, 5)) return;
        EXPECT_TRUE(std::ranges::none_of(g.frmscore.controls, &Control::Visible));
        EXPECT_TRUE(isBlue(795, 595)) << "the lower half fills from the right";
        EXPECT_EQ(isBlue(200, 305), isBlue(600, 295)) << "as far as the upper one from the left";
        if (!isBlue(600, 295)) ++wipedInPart;
        ++wiped;
    };
    const auto twice = program.presses({&g.Command1, &g.Command1});
    program.then("the opening screen", &WholeProgram::choosing,
                 program.presses({&g.Option1(2), &g.Option1(1), &g.GO, &g.GO}));
    program.then("the first hand", &WholeProgram::picking, program.presses({&g.GO}));
    program.then("the first sheet", &WholeProgram::scoreShown, twice);
    program.then("the second hand", &WholeProgram::picking, program.presses({&g.Command1}));
    program.then("the second sheet", &WholeProgram::scoreShown, twice);
    program.then("the next title", &WholeProgram::titleShows, [&] {
        EXPECT_NEAR(wiped, 64, 4) << "the wipe takes its second";
        EXPECT_NEAR(wipedInPart, 48, 4) << "evenly, from the left";
    });
    program.then("the next opening screen", &WholeProgram::choosing,
                 program.presses({&g.GO, &g.GO}));
    program.then("the third sheet", &WholeProgram::scoreShown);
    program.run();
    EXPECT_EQ(program.seen(Moment::turn), 108) << "three hands";
    EXPECT_EQ(g.tipoPartita, 1) << "the last click counts, in later matches too";
    EXPECT_EQ(Point(g.frmscore, 5, 5), 0x0080FF) << "the sheet is orange again";
    EXPECT_EQ(g.totaleUmano, 5) << "the points of the match before are gone";
    EXPECT_EQ(g.totaleComputer, 4);
}

}  // namespace
