// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/scoring.h"

#include "game/match.h"
#include "table/score_sheet.h"
#include "tests/support.h"

namespace test {
namespace {

const char* const workedHand =
    "7d 1d 2d 3d 4d 5d 6c 1c 2c 3c 4c 5c 8c 9c 10c 1b 2b 3b 4b 5s 4s 3s 2s";

/// Counts a hand in which the human took these cards.
void endHand(Game& g, const Cards& taken) {
    std::copy(taken.begin(), taken.end(), g.pilaPrese.begin() + 1);
    g.presiUmano = static_cast<int>(taken.size());
    frmscopa::tallyHand(g);
    frmscopa::calcsettanta(g);
}

TEST(Primiera, TheBestCardOfEachSuitCounts) {
    struct {
        const char* pile;   ///< the human's cards
        const char* shown;  ///< on the sheet, the best card of each suit and player, "." for none
        int ours, theirs, winner;
    } const cases[] = {
        {"", ". . . . 7d 7c 7b 7s", 0, 84, computer},
        {workedHand, "7d 6c 1b 5s 6d 7c 7b 7s", 70, 81, computer},
        {"8d 2d 2c 3c 3b 4b 4s 5s", "2d 3c 4b 5s 7d 7c 7b 7s", 54, 84, computer},
        {"5d 1d 1c 6c 7b 6b 10s", "1d 6c 7b 10s 7d 7c 1b 7s", 65, 79, computer},
        // Ten points each, but 8, 9 and 10 are counted in this order.
        {"10d 9d 8d 10c 9c 10b", "8d 9c 10b . 7d 7c 7b 7s", 30, 84, computer},
        // A missing suit only adds nothing.
        {"7d 7c 7b 6d 6c 6b 1d 1c 1b", "7d 7c 7b . 5d 5c 5b 7s", 63, 66, computer},
        {"7d 7c 7b 6d 6c 6b 1d 1c 1b 5d 5c 5b 4d 4c 4b", "7d 7c 7b . 3d 3c 3b 7s", 63, 60, human},
        {"7d 6c 7b 6s", "7d 6c 7b 6s 6d 7c 6b 7s", 78, 78, 0},
    };
    Desk desk;
    for (const auto& [pile, shown, ours, theirs, winner] : cases) {
        SCOPED_TRACE(pile);
        endHand(desk.g, cards(pile));
        frmscore::mostrasettanta(desk.g);
        Cards images;
        for (int i = 1; i <= 8; ++i)
            images.push_back(desk.g.imgset(i).Visible ? desk.g.imgset(i).picture : 0);
        EXPECT_EQ(names(images), shown);
        EXPECT_EQ(desk.g.primieraSomma(human), ours);
        EXPECT_EQ(desk.g.primieraSomma(computer), theirs);
        EXPECT_EQ(desk.g.primieraVinta, winner);
    }
}

// 23 cards, 6 denari, the settebello and a scopa against the primiera.
TEST(Points, OfTheWorkedHand) {
    Desk desk;
    endHand(desk.g, cards(workedHand));
    desk.g.scope(human) = 1;
    frmscore::awardPoints(desk.g);
    EXPECT_EQ(desk.g.totaleUmano, 4);
    EXPECT_EQ(desk.g.totaleComputer, 1);
}

/// Scores a hand of so many points, the human's from 1 on; true if the match is over then.
bool overAfter(Game& g, int ours, int theirs) {
    Show(g, g.frmscore);
    g.presiUmano = 20;
    g.denariUmano = 5;
    g.settebelloUmano = true;
    g.scope(human) = ours - 1;
    g.scope(computer) = theirs;
    frmscore::risultato(g);
    EXPECT_NE(g.Command1.Caption == "CONTINUE", g.Command1.Caption == "NEW GAME");
    return g.Command1.Caption == "NEW GAME";
}

TEST(Match, OnlyADifferenceBeyondTheMarkEndsIt) {
    struct {
        int tipoPartita, ours, theirs;
        bool over;
    } const cases[] = {
        {0, 3, 3, false},   {0, 4, 3, true},    {0, 1, 0, true},    {0, 1, 2, true},
        {1, 10, 10, false}, {1, 10, 9, false},  {1, 9, 10, false},  {1, 11, 10, true},
        {1, 10, 11, true},  {1, 11, 11, false}, {1, 12, 11, true},  {1, 2, 11, true},
        {2, 20, 20, false}, {2, 20, 11, false}, {2, 11, 20, false}, {2, 21, 20, true},
        {2, 20, 21, true},  {2, 21, 21, false}, {2, 24, 23, true},  {2, 3, 22, true}};
    for (const auto& [tipoPartita, ours, theirs, over] : cases) {
        Desk desk;
        desk.g.tipoPartita = tipoPartita;
        EXPECT_EQ(overAfter(desk.g, ours, theirs), over)
            << tipoPartita << ": " << ours << '-' << theirs;
    }
}

TEST(Match, ASingleGameCarriesNothingOverAndAPointsMatchAdds) {
    for (const int tipoPartita : {0, 1, 2}) {
        SCOPED_TRACE(tipoPartita);
        const bool single = tipoPartita == 0;
        Desk desk;
        Game& g = desk.g;
        g.tipoPartita = tipoPartita;
        g.mazziere = human;
        EXPECT_FALSE(overAfter(g, 4, 4));
        EXPECT_EQ(g.mazziere, computer) << "the deal changes sides";
        frmscore::Command1_Click(g);
        EXPECT_EQ(g.front, &g.frmscopa);
        EXPECT_TRUE(g.frmscore.loaded) << "the next hand writes on the same sheet";
        EXPECT_EQ(g.progressoPartita, single ? 0 : 10);
        EXPECT_TRUE(overAfter(g, 19, 3));
        EXPECT_EQ(g.totaleUmano, single ? 19 : 23);
        EXPECT_EQ(g.totaleComputer, single ? 3 : 7);
        EXPECT_EQ(g.mazziere, human) << "after the last hand too";
        frmscore::Command1_Click(g);
        EXPECT_FALSE(g.frmscore.loaded);
        EXPECT_EQ(g.totaleUmano + g.totaleComputer + g.progressoPartita, 0);
        EXPECT_EQ(g.tipoPartita, tipoPartita) << "the kind stays until another one is chosen";
    }
}

}  // namespace
}  // namespace test
