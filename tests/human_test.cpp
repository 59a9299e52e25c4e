// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What the human's presses do, and where.

#include "game/human.h"

#include "table/painting.h"
#include "tests/support.h"

namespace test {
namespace {

/// Covers the whole surface with a colour that is no table, so that only places count.
void coverSurface(Desk& desk) {
    Line(desk.g.frmscopa, 0, 0, 800, 600, 0x123456, LineStyle::BF);
}

TEST(HandPick, GoesByPositionWithStrictEdges) {
    struct {
        float x, y;
        bool covered;  ///< else the gaps between the cards are bare
        int slot;      ///< 0 for none
    } const probes[] = {{301, 540, true, 0},     {301.25f, 540, true, 1}, {368, 540, true, 1},
                        {368.25f, 540, true, 2}, {437, 540, true, 2},     {437.25f, 540, true, 3},
                        {504.75f, 540, true, 3}, {505, 540, true, 0},     {400, 487, true, 0},
                        {400, 487.25f, true, 2}, {400, 594.75f, true, 2}, {400, 595, true, 0},
                        {362.5f, 540, false, 1}, {363.5f, 540, false, 0}, {368.5f, 540, false, 0},
                        {369.5f, 540, false, 2}, {434, 540, false, 0},    {437.25f, 540, false, 3}};
    for (const auto& [x, y, covered, slot] : probes) {
        Desk desk;
        desk.giveHuman("2d 3d 4d");
        if (covered) coverSurface(desk);
        desk.g.fase = "gioco1";
        frmscopa::Form_MouseDown(desk.g, 1, 0, x, y);
        EXPECT_EQ(desk.g.cartaGiocata, slot == 0 ? 0 : slot + 1) << x << ' ' << y;
    }
}

TEST(HandPick, PlaysTheCardOfAnyDealWithAnyButton) {
    for (const int top : {7, 10, 13, 16, 19, 22}) {
        for (int k = 1; k <= 3; ++k) {
            Desk desk;
            const Game& g = desk.g;
            desk.g.cimaMazzo = top;
            desk.g.Text1.Visible = true;
            desk.giveHuman("8d 9d 10d");
            desk.beginMove(human);
            desk.press({desk.slot(k).x, desk.slot(k).y, 1 << (k - 1)});
            desk.press(desk.slot(k % 3 + 1));  // Of two presses at once the first counts.
            frmscopa::gioco1(desk.g);
            EXPECT_EQ(g.cartaGiocata, k + 7);
            EXPECT_EQ(g.mosseGiocate, 1);
            EXPECT_NE(desk.seenAt({609, 300}), tableColour) << "shown";
            for (int slot = 1; slot <= 3; ++slot)
                EXPECT_EQ(desk.seenAt(desk.slot(slot)) == tableColour, slot == k);
            EXPECT_EQ(desk.backend.cardSounds, 1);
            EXPECT_FALSE(g.Text1.Visible) << "a press closes the panels";
        }
    }
}

TEST(Presses, AreRefusedWhereNothingIsToBeHad) {
    Desk desk;
    desk.layTable("3 4 2 5");
    desk.giveHuman("7 2 3");
    desk.giveComputer("10 10 10");
    for (const Press at : {Press{100, 487}, {162, 487}, {680, 487}, {680, 5}})
        paintAtCardSize(desk.g, picture::back, at.x, at.y);  // piles, a scopa card, the deck
    const std::vector<Press> anyTime{{20, 300},  {131, 540}, {193, 540},   {711, 540},
                                     {711, 60},  {330, 60},  {400, 598},   {366, 540},
                                     {332, 186}, {610, 300}, desk.place(7)};
    std::vector<Press> presses = anyTime;
    for (int p = 1; p <= 4; ++p) presses.push_back(desk.place(p));
    desk.script(presses);
    desk.beginMove(human);
    EXPECT_THROW(frmscopa::gioco1(desk.g), ScriptRanOut);
    EXPECT_EQ(desk.g.cartaGiocata + desk.g.mosseGiocate + desk.backend.cardSounds, 0);
    presses = anyTime;
    for (int k = 1; k <= 3; ++k) presses.push_back(desk.slot(k));
    presses.insert(presses.begin(), desk.slot(1));
    desk.script(presses);
    frmscopa::gioco1(desk.g);
    EXPECT_THROW(frmscopa::verifica(desk.g), ScriptRanOut);
    EXPECT_EQ(names({desk.g.cartaGiocata}), "7d");
    EXPECT_EQ(names(desk.marked()), "");
    EXPECT_EQ(desk.backend.cardSounds, 1);
    for (int k = 1; k <= 3; ++k) EXPECT_EQ(desk.seenAt(desk.slot(k)) == tableColour, k == 1);
}

/// The human's card is played and the places are pressed one after the other.
struct Selection {
    const char* table;
    const char* card;
    std::vector<int> presses;
    bool ends;           ///< the move is accepted after the last press
    const char* marked;  ///< then, or when all has been pressed
};

const Selection selections[] = {
    // Any legal set, in any order, and no other.
    {"3 4 2 5", "7", {4, 3}, true, "2d 5d"},
    {"3 4 2 5", "7", {1, 3}, false, "3d 2d"},
    {"3 4 2 5", "7", {3, 1, 2}, false, "3d 4d 2d"},
    {"3 4 2 5", "7", {3, 1, 2, 3}, true, "3d 4d"},
    {"8 8 8 8 6 6 3 7", "10", {7, 8}, true, "3d 7d"},
    // A card of equal value is taken, alone; an ace takes an ace so.
    {"5 2 3", "5", {2, 3}, false, "2d 3d"},
    {"5 2 3", "5", {2, 3, 2, 3, 1}, true, "5d"},
    {"7 10 3", "10", {1, 3}, false, "7d 3d"},
    {"A 5 A", "A", {2}, false, "5d"},
    {"A 5 A", "A", {3}, true, "1c"},
    // Without an ace there an ace sweeps, and needs no press.
    {"10", "A", {}, true, "10d"},
    {"2 3 4 5 6 7 8 9 10 2 3 4", "A", {}, true, "2d 3d 4d 5d 6d 7d 8d 9d 10d 2c 3c 4c"},
    // Where nothing can be taken, or there are more than eight candidates, the card is laid.
    {"4 5", "7", {}, true, ""},
    {"4 6 2 2 2 2 3 3 3", "10", {}, true, ""},
    {"", "A", {}, true, ""},
};

TEST(Selecting, EndsOnEveryLegalSetAndOnNoOther) {
    for (const auto& [table, card, presses, ends, marked] : selections) {
        SCOPED_TRACE(std::string(card) + " on " + table + testing::PrintToString(presses));
        Desk desk;
        desk.layTable(table);
        desk.giveHuman(card);
        EXPECT_EQ(desk.humanPlays(presses), ends);
        EXPECT_EQ(names(desk.marked()), marked);
        EXPECT_EQ(desk.g.fase, ends ? "" : "selezione");
        if (ends) {
            EXPECT_EQ(names(desk.presa()), marked);
        }
    }
}

TEST(Selecting, ThePlaceFollowsFromThePosition) {
    struct {
        float x, y;
        const char* marked;
    } const probes[] = {{267, 132, "2d"},   {334.75f, 245.75f, "2d"}, {335, 132, "2c"},
                        {267, 246, "3d"},   {471, 360, "4b"},         {538.75f, 473.75f, "4b"},
                        {300, 400, ""},     {539, 400, ""},           {400, 474, ""},
                        {266.75f, 300, ""}, {300, 131.75f, ""}};
    for (const auto& [x, y, marked] : probes) {
        Desk desk;
        desk.layTable("2 2 2 2 3 3 3 3 . 4 4 4");
        coverSurface(desk);
        desk.g.fase = "selezione";
        frmscopa::Form_MouseDown(desk.g, 1, 0, x, y);
        EXPECT_EQ(names(desk.marked()), marked) << x << ' ' << y;
    }
}

TEST(Selecting, APressDuringTheJudgementIsReadAgain) {
    struct {
        std::vector<int> late;   ///< pressed while the 3 and the 4 that are marked are judged
        std::vector<int> after;  ///< pressed in later waits; none where the move ends at once
        const char* taken;
    } const cases[] = {{{3}, {3}, "3d 4d"},       {{1}, {1}, "3d 4d"},
                       {{1, 5}, {}, "4d 3c"},     {{1, 1}, {}, "3d 4d"},
                       {{1, 3}, {2, 4}, "2d 5d"}, {{1, 2, 3, 4}, {}, "2d 5d"}};
    for (const auto& [late, after, taken] : cases) {
        SCOPED_TRACE(testing::PrintToString(late));
        Desk desk;
        desk.layTable("3 4 2 5 3");
        desk.giveHuman("7");
        desk.late = late;
        std::vector<int> presses{1, 2};
        presses.insert(presses.end(), after.begin(), after.end());
        EXPECT_TRUE(desk.humanPlays(presses));
        EXPECT_EQ(names(desk.marked()), taken);
        EXPECT_EQ(names(desk.presa()), taken) << "what is marked is what is taken";
    }
}

TEST(Selecting, TheSweepShowsTheMaskInFull) {
    Desk desk;
    desk.layTable("5 9");
    // The timer stands at 120 ms at first and is left at 2400 ms by the sweep. Two pauses of 2 and
    // 1 follow the last frame.
    for (const double firstTick : {0.120, 2.400}) {
        desk.giveHuman("A");
        const double start = desk.backend.time.now;
        EXPECT_TRUE(desk.humanPlays({}));
        EXPECT_NEAR(desk.backend.time.now - start, firstTick + 2.400 + 3 * 0.120 + 3, 1e-6);
        for (int i = 1; i <= 5; ++i) EXPECT_FALSE(desk.g.Mask2(i).Visible);
    }
}

}  // namespace
}  // namespace test
