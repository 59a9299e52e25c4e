// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/scoring.h"

#include <algorithm>
#include <array>
#include <memory>

#include "game/match.h"
#include "tests/support.h"

namespace test {
namespace {

/// Ends a hand in which the human took these cards.
void endHand(Game& g, const std::vector<int>& taken) {
    g.pilaPrese.fill(0);
    g.presiUmano = g.denariUmano = 0;
    for (const int id : taken) g.pilaPrese(++g.presiUmano) = id;
    frmscopa::tallyHand(g);
    frmscopa::calcsettanta(g);
}

std::vector<int> wholePack() {
    std::vector<int> ids;
    for (int id = 1; id <= 40; ++id) ids.push_back(id);
    return ids;
}

const char* const workedHand =
    "7d 1d 2d 3d 4d 5d 6c 1c 2c 3c 4c 5c 8c 9c 10c 1b 2b 3b 4b 5s 4s 3s 2s";

TEST(Tally, CountsTheHumansCardsAndCompletesThePile) {
    Desk desk;
    Game& g = desk.g;
    g.settebelloUmano = true;
    endHand(g, cards("10s 10d 3c 9d 1b"));
    EXPECT_EQ(g.presiUmano, 5);
    EXPECT_EQ(g.denariUmano, 2);
    EXPECT_FALSE(g.settebelloUmano);
    std::vector<int> pile(g.pilaPrese.begin() + 1, g.pilaPrese.end());
    EXPECT_EQ(names({pile.begin(), pile.begin() + 5}), "10s 10d 3c 9d 1b");
    EXPECT_TRUE(std::is_sorted(pile.begin() + 5, pile.end()));
    std::sort(pile.begin(), pile.end());
    EXPECT_EQ(pile, wholePack());
}

TEST(Tally, FindsTheSettebelloAndNoOtherSeven) {
    Desk desk;
    endHand(desk.g, cards("7c 7b 7s"));
    EXPECT_FALSE(desk.g.settebelloUmano);
    EXPECT_EQ(desk.g.denariUmano, 0);
    endHand(desk.g, cards("1s 7d"));
    EXPECT_TRUE(desk.g.settebelloUmano);
    EXPECT_EQ(desk.g.denariUmano, 1);
    endHand(desk.g, cards("1d 10d 1c"));
    EXPECT_EQ(desk.g.denariUmano, 2) << "10 is the last denaro, 11 none";
}

TEST(Primiera, PointsOfEachDigit) {
    const int points[] = {10, 16, 12, 13, 14, 15, 18, 21, 10, 10};
    for (int digit = 0; digit <= 9; ++digit)
        EXPECT_EQ(frmscopa::valoresettanta(digit), points[digit]) << digit;
    for (const int none : {-1, 10, 11, 17}) EXPECT_EQ(frmscopa::valoresettanta(none), 0) << none;
}

struct Primiera {
    const char* pile;           ///< the human's cards
    std::array<int, 4> places;  ///< of his best cards in the order of strength
    int sum;
    const char* shown;  ///< the card counted in each suit, "-" for none
};

void check(const Primiera& c) {
    SCOPED_TRACE(c.pile);
    Desk desk;
    endHand(desk.g, cards(c.pile));
    std::vector<int> shown;
    for (int suit = 1; suit <= 4; ++suit) {
        EXPECT_EQ(desk.g.primieraCarte(human, suit), c.places[static_cast<std::size_t>(suit - 1)]);
        shown.push_back(frmscopa::primieraCard(desk.g, human, suit));
    }
    EXPECT_EQ(desk.g.primieraSomma(human), c.sum);
    EXPECT_EQ(names(shown), c.shown);
}

TEST(Primiera, TheBestCardOfEachSuitCounts) {
    const Primiera cases[] = {
        {"", {11, 11, 11, 11}, 0, "- - - -"},
        {workedHand, {1, 2, 3, 4}, 70, "7d 6c 1b 5s"},
        {"10d 9d 8d 10c 9c 10b", {8, 9, 10, 11}, 30, "8d 9c 10b -"},
        {"8d 9d 10d 9c 10c 10b 2s", {8, 9, 10, 7}, 42, "8d 9c 10b 2s"},
        {"8d 2d 2c 3c 3b 4b 4s 5s", {7, 6, 5, 4}, 54, "2d 3c 4b 5s"},
        {"5d 1d 1c 6c 7b 6b 10s", {3, 2, 1, 10}, 65, "1d 6c 7b 10s"},
        {"10d 1d 10c 2c", {3, 7, 11, 11}, 28, "1d 2c - -"},
        {"1s 10s 7s 6s", {11, 11, 11, 1}, 21, "- - - 7s"},
    };
    for (const Primiera& c : cases) check(c);
}

TEST(Primiera, TheHigherSumWinsWithOrWithoutAllSuits) {
    struct Case {
        const char* pile;
        int ours, theirs, winner;
    };
    const Case cases[] = {
        {workedHand, 70, 81, 2},
        // Three sevens and a missing suit against four suits with less.
        {"7d 7c 7b 6d 6c 6b 1d 1c 1b", 63, 66, 2},
        {"7d 7c 7b 6d 6c 6b 1d 1c 1b 5d 5c 5b 4d 4c 4b 3d 3c 3b", 63, 57, 1},
        {"7d 7c 6b 6s 5b 5s", 78, 78, 0},
        {"7d 6c 7b 6s", 78, 78, 0},
        {"", 0, 84, 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.pile);
        Desk desk;
        endHand(desk.g, cards(c.pile));
        EXPECT_EQ(desk.g.primieraSomma(human), c.ours);
        EXPECT_EQ(desk.g.primieraSomma(computer), c.theirs);
        EXPECT_EQ(desk.g.primieraVinta, c.winner);
    }
}

TEST(Primiera, OnePileMayHoldAllCards) {
    Desk desk;
    endHand(desk.g, wholePack());
    EXPECT_EQ(desk.g.primieraSomma(human), 84);
    EXPECT_EQ(desk.g.primieraSomma(computer), 0);
    for (int suit = 1; suit <= 4; ++suit) EXPECT_EQ(desk.g.primieraCarte(computer, suit), 11);
    EXPECT_EQ(desk.g.primieraVinta, human);
    endHand(desk.g, {});
    EXPECT_EQ(desk.g.primieraSomma(human), 0);
    EXPECT_EQ(desk.g.primieraSomma(computer), 84);
    EXPECT_EQ(desk.g.primieraVinta, computer);
    EXPECT_FALSE(desk.g.settebelloUmano);
}

/// The figures of a hand that give points.
struct Figures {
    int cards = 20, denari = 5, primiera = 0;
    bool settebello = true;
    int scopeHuman = 0, scopeComputer = 0;
};

void setFigures(Game& g, const Figures& f) {
    g.presiUmano = f.cards;
    g.denariUmano = f.denari;
    g.primieraVinta = f.primiera;
    g.settebelloUmano = f.settebello;
    g.scope(human) = f.scopeHuman;
    g.scope(computer) = f.scopeComputer;
}

TEST(Award, EachItemGivesItsPoint) {
    struct Case {
        Figures figures;
        int ours, theirs;
    };
    const Case cases[] = {
        {{20, 5, 0, true, 0, 0}, 1, 0},   {{20, 5, 0, false, 0, 0}, 0, 1},
        {{21, 5, 0, true, 0, 0}, 2, 0},   {{19, 5, 0, true, 0, 0}, 1, 1},
        {{20, 6, 0, true, 0, 0}, 2, 0},   {{20, 4, 0, true, 0, 0}, 1, 1},
        {{20, 5, 1, true, 0, 0}, 2, 0},   {{20, 5, 2, true, 0, 0}, 1, 1},
        {{20, 5, 0, true, 3, 0}, 4, 0},   {{20, 5, 0, true, 0, 2}, 1, 2},
        {{23, 6, 2, true, 1, 0}, 4, 1},   {{0, 0, 2, false, 0, 5}, 0, 9},
        {{40, 10, 1, true, 7, 1}, 11, 1},
    };
    for (const Case& c : cases) {
        Desk desk;
        setFigures(desk.g, c.figures);
        desk.g.totaleUmano = 3;
        desk.g.totaleComputer = 8;
        frmscore::awardPoints(desk.g);
        EXPECT_EQ(desk.g.totaleUmano, 3 + c.ours) << &c - cases;
        EXPECT_EQ(desk.g.totaleComputer, 8 + c.theirs) << &c - cases;
    }
}

TEST(Award, TheWorkedHand) {
    Desk desk;
    Game& g = desk.g;
    Load(g, g.frmscore);
    endHand(g, cards(workedHand));
    EXPECT_EQ(g.presiUmano, 23);
    EXPECT_EQ(g.denariUmano, 6);
    g.scope(human) = 1;
    frmscore::Form_Activate(g);
    EXPECT_EQ(g.totaleUmano, 4);
    EXPECT_EQ(g.totaleComputer, 1);
    const int shown[] = {7, 16, 21, 35, 6, 17, 27, 37};
    for (int i = 1; i <= 8; ++i) {
        EXPECT_TRUE(g.imgset(i).Visible);
        EXPECT_EQ(g.imgset(i).picture, g.carta(shown[i - 1]).picture) << i;
        EXPECT_EQ(g.imgset(i).Left,
                  i <= 4 ? 50.f * static_cast<float>(i) : 500 + 50.f * static_cast<float>(i - 4));
        EXPECT_EQ(g.imgset(i).Top, 5);
    }
}

TEST(Award, TheImageOfAMissingSuitIsHidden) {
    Desk desk;
    Load(desk.g, desk.g.frmscore);
    endHand(desk.g, cards("10c 8c"));
    frmscore::Form_Activate(desk.g);
    for (int i = 1; i <= 8; ++i) EXPECT_EQ(desk.g.imgset(i).Visible, i == 2 || i > 4) << i;
    EXPECT_EQ(desk.g.imgset(2).picture, desk.g.carta(18).picture);
}

/// Scores a hand after which the totals stand so. The settebello is the human's.
std::string scoreTo(Game& g, int ours, int theirs) {
    Figures f;
    if (g.tipoPartita == 0) {
        f.scopeHuman = ours - 1;
        f.scopeComputer = theirs;
    } else {
        g.totaleUmano = ours - 1;
        g.totaleComputer = theirs;
    }
    setFigures(g, f);
    frmscore::risultato(g);
    EXPECT_EQ(g.totaleUmano, ours);
    EXPECT_EQ(g.totaleComputer, theirs);
    return g.Command1.Caption;
}

/// A game whose score sheet is on top.
std::unique_ptr<Desk> matchOf(int tipoPartita) {
    auto desk = std::make_unique<Desk>();
    desk->g.tipoPartita = tipoPartita;
    Load(desk->g, desk->g.frmscopa);
    Show(desk->g, desk->g.frmscore);
    return desk;
}

TEST(MatchEnd, OnlyADifferenceBeyondTheMarkEndsIt) {
    struct Case {
        int tipoPartita, ours, theirs;
        bool over;
    };
    const Case cases[] = {
        {0, 3, 3, false},   {0, 4, 3, true},    {0, 1, 0, true},    {0, 1, 2, true},
        {1, 10, 10, false}, {1, 10, 9, false},  {1, 9, 10, false},  {1, 11, 10, true},
        {1, 10, 11, true},  {1, 11, 11, false}, {1, 14, 14, false}, {1, 12, 11, true},
        {1, 1, 11, true},   {1, 1, 0, false},   {2, 20, 20, false}, {2, 20, 11, false},
        {2, 11, 20, false}, {2, 21, 20, true},  {2, 20, 21, true},  {2, 21, 21, false},
        {2, 23, 23, false}, {2, 24, 23, true},  {2, 3, 22, true},
    };
    for (const Case& c : cases) {
        const auto desk = matchOf(c.tipoPartita);
        EXPECT_EQ(scoreTo(desk->g, c.ours, c.theirs), c.over ? "NEW GAME" : "CONTINUE")
            << c.tipoPartita << ": " << c.ours << '-' << c.theirs;
    }
}

TEST(MatchEnd, ASingleGameCarriesNoPointsOver) {
    const auto desk = matchOf(0);
    EXPECT_EQ(scoreTo(desk->g, 3, 3), "CONTINUE");
    EXPECT_EQ(scoreTo(desk->g, 2, 2), "CONTINUE");
    EXPECT_EQ(scoreTo(desk->g, 1, 2), "NEW GAME");
    EXPECT_EQ(desk->g.progressoPartita, 0);
}

TEST(MatchEnd, APointsMatchAddsHandsUp) {
    for (const int tipoPartita : {1, 2}) {
        const auto desk = matchOf(tipoPartita);
        Game& g = desk->g;
        int hands = 0;
        do {
            setFigures(g, {23, 6, 2, true, 1, 0});
            frmscore::risultato(g);
            ++hands;
            EXPECT_EQ(g.totaleUmano, 4 * hands);
            EXPECT_EQ(g.totaleComputer, hands);
            EXPECT_EQ(g.progressoPartita, 10 * hands);
        } while (g.Command1.Caption == "CONTINUE");
        EXPECT_EQ(hands, tipoPartita == 1 ? 3 : 6);
    }
}

TEST(MatchEnd, TheDealChangesSidesAfterEveryHand) {
    for (const int first : {1, 2}) {
        const auto desk = matchOf(1);
        Game& g = desk->g;
        g.mazziere = first;
        EXPECT_EQ(scoreTo(g, 4, 3), "CONTINUE");
        EXPECT_EQ(g.mazziere, 3 - first);
        EXPECT_EQ(scoreTo(g, 12, 3), "NEW GAME");
        EXPECT_EQ(g.mazziere, first) << "after the last hand too";
        frmscore::Command1_Click(g);
        EXPECT_EQ(g.mazziere, first) << "and a new match does not reset it";
    }
}

TEST(MatchEnd, NewGameClearsTheMatchAndContinueKeepsIt) {
    const auto desk = matchOf(2);
    Game& g = desk->g;
    scoreTo(g, 8, 5);
    frmscore::Command1_Click(g);
    EXPECT_EQ(g.front, &g.frmscopa);
    EXPECT_TRUE(g.frmscore.loaded);
    EXPECT_EQ(g.Command1.Caption, "CONTINUE");
    EXPECT_EQ(g.totaleUmano, 8);
    EXPECT_EQ(g.totaleComputer, 5);
    EXPECT_EQ(g.progressoPartita, 10);
    Show(g, g.frmscore);
    scoreTo(g, 22, 5);
    frmscore::Command1_Click(g);
    EXPECT_EQ(g.front, &g.frmscopa);
    EXPECT_FALSE(g.frmscore.loaded);
    EXPECT_EQ(g.totaleUmano, 0);
    EXPECT_EQ(g.totaleComputer, 0);
    EXPECT_EQ(g.progressoPartita, 0);
    EXPECT_EQ(g.tipoPartita, 2) << "the kind stays until another one is chosen";
    Load(g, g.frmscore);
    EXPECT_EQ(g.Command1.Caption, "NEW GAME");
}

TEST(MatchEnd, QuitEndsTheProgramOpenOrOver) {
    for (const int ours : {4, 12}) {
        const auto desk = matchOf(1);
        scoreTo(desk->g, ours, 3);
        EXPECT_THROW(frmscore::Command2_Click(desk->g), EndProgram);
        EXPECT_FALSE(desk->g.frmscore.loaded);
    }
}

}  // namespace
}  // namespace test
