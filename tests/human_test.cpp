// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/human.h"

#include <map>

#include "game/computer.h"
#include "tests/support.h"

namespace test {
namespace {

using Places = std::vector<int>;
constexpr int left = 1, right = 2, middle = 4;

/// The slot that a press picks, 0 for none.
int picked(float x, float y, bool covered) {
    Desk desk;
    desk.giveHuman("2d 3d 4d");
    if (covered) desk.coverSurface();
    desk.beginMove(human);
    desk.g.fase = "gioco1";
    frmscopa::Form_MouseDown(desk.g, 1, 0, x, y);
    const int id = desk.g.cartaGiocata;
    EXPECT_EQ(desk.g.valoreGiocato, id);
    if (id == 0) return 0;
    EXPECT_EQ(id - 1, desk.g.postoMano);
    return desk.g.postoMano;
}

TEST(HandPick, GoesByPositionWithStrictEdges) {
    struct Probe {
        float x, y;
        int slot;
    };
    const Probe probes[] = {
        {301, 540, 0},     {301.25f, 540, 1}, {368, 540, 1}, {368.25f, 540, 2}, {437, 540, 2},
        {437.25f, 540, 3}, {504.75f, 540, 3}, {505, 540, 0}, {400, 487, 0},     {400, 487.25f, 2},
        {400, 594.75f, 2}, {400, 595, 0},     {400, 300, 0}, {131, 540, 0},     {700, 540, 0},
    };
    for (const Probe& p : probes) EXPECT_EQ(picked(p.x, p.y, true), p.slot) << p.x << ' ' << p.y;
}

TEST(HandPick, GapsBetweenTheCardsAreBare) {
    EXPECT_EQ(picked(362.5f, 540, false), 1);
    EXPECT_EQ(picked(363.5f, 540, false), 0);
    EXPECT_EQ(picked(368.5f, 540, false), 0);
    EXPECT_EQ(picked(369.5f, 540, false), 2);
    EXPECT_EQ(picked(434, 540, false), 0);
    EXPECT_EQ(picked(437.25f, 540, false), 3);
    EXPECT_EQ(picked(501, 540, false), 0);
}

TEST(HandPick, ShowsTheCardAndClearsTheSlot) {
    for (int k = 1; k <= 3; ++k) {
        Desk desk;
        desk.giveHuman("10s 5c 7d");
        desk.beginMove(human);
        desk.script({{desk.slot(k)}});
        frmscopa::gioco1(desk.g);
        const Game& g = desk.g;
        EXPECT_EQ(names({g.cartaGiocata}),
                  names({cards("10s 5c 7d")[static_cast<std::size_t>(k - 1)]}));
        EXPECT_EQ(g.valoreGiocato, (g.cartaGiocata - 1) % 10 + 1);
        EXPECT_EQ(g.mosseGiocate, 1);
        EXPECT_EQ(desk.backend.cardSounds, 1);
        EXPECT_EQ(g.carta(g.cartaGiocata).Left, 578);
        EXPECT_EQ(g.carta(g.cartaGiocata).Top, 246);
        EXPECT_NE(Point(g.frmscopa, 578.5f, 353.5f), tableColour);
        for (int other = 1; other <= 3; ++other) EXPECT_EQ(humanShows(g, other), other != k);
    }
}

TEST(HandPick, EveryDealHasItsOwnCards) {
    for (const int top : {7, 10, 13, 16, 19, 22}) {
        Desk desk;
        desk.g.cimaMazzo = top;
        desk.giveHuman("2d 3d 4d");
        desk.beginMove(human);
        desk.script({{desk.slot(2)}});
        frmscopa::gioco1(desk.g);
        EXPECT_EQ(name(desk.g.cartaGiocata), "3d");
    }
}

TEST(HandPick, AnyButtonPlays) {
    for (const int button : {left, right, middle}) {
        Desk desk;
        desk.layTable("3 4");
        desk.giveHuman("7 2 3");
        desk.script({{desk.slot(1, button)}, {desk.place(1, button)}, {desk.place(2, button)}});
        desk.beginMove(human);
        frmscopa::gioco1(desk.g);
        frmscopa::verifica(desk.g);
        EXPECT_EQ(desk.g.numeroPresa, 2) << button;
    }
}

/// Where a press does nothing while a hand card is awaited.
TEST(HandPick, RefusesEverythingElse) {
    Desk desk;
    desk.layTable("3 4 . 5");
    desk.giveHuman(". 2 3");
    const Game& g = desk.g;
    PaintPicture(desk.g.frmscopa, picture::back, 100, 487, 62, 108);     // the pile
    PaintPicture(desk.g.frmscopa, picture::face(5), 162, 487, 62, 108);  // a scopa card
    PaintPicture(desk.g.frmscopa, picture::back, 680, 487, 62, 108);     // the deck
    PaintPicture(desk.g.frmscopa, picture::back, 301, 5, 62, 108);       // the computer's hand
    const std::map<std::string, Press> refused{
        {"bare table", {20, 300}},      {"played slot", desk.slot(1)}, {"gap", {366, 540}},
        {"pile", {131, 540}},           {"scopa card", {193, 540}},    {"deck", {711, 540}},
        {"computer's card", {330, 60}}, {"table card", desk.place(1)}, {"below", {400, 598}},
        {"empty place", desk.place(3)},
    };
    for (const auto& [what, press] : refused) {
        SCOPED_TRACE(what);
        desk.beginMove(human);
        desk.script({{press}});
        EXPECT_THROW(frmscopa::gioco1(desk.g), ScriptRanOut);
        EXPECT_EQ(g.cartaGiocata, 0);
        EXPECT_EQ(g.mosseGiocate, 0);
        EXPECT_EQ(desk.markedPlaces(), Places{});
        EXPECT_TRUE(humanShows(g, 2) && humanShows(g, 3));
    }
    EXPECT_EQ(desk.backend.cardSounds, 0);
}

TEST(HandPick, OfTwoPressesAtOnceTheFirstCounts) {
    Desk desk;
    desk.giveHuman("2d 3d 4d");
    desk.beginMove(human);
    desk.script({{desk.slot(3), desk.slot(1)}});
    frmscopa::gioco1(desk.g);
    EXPECT_EQ(name(desk.g.cartaGiocata), "4d");
    EXPECT_TRUE(humanShows(desk.g, 1));
}

TEST(Panels, CloseOnEveryPressOnTheTable) {
    for (const bool onCard : {false, true}) {
        Desk desk;
        desk.giveHuman("2 3 4");
        desk.g.Text1.Visible = desk.g.Text3.Visible = desk.g.Text4.Visible = true;
        desk.beginMove(human);
        desk.script({{onCard ? desk.slot(2) : Press{20, 300}}});
        try {
            frmscopa::gioco1(desk.g);
        } catch (const ScriptRanOut&) {
        }
        EXPECT_FALSE(desk.g.Text1.Visible || desk.g.Text3.Visible || desk.g.Text4.Visible);
        EXPECT_EQ(desk.g.cartaGiocata != 0, onCard);
    }
}

TEST(Clicks, DoNothingDuringTheHumansSweep) {
    Desk desk;
    desk.layTable("5 9");
    desk.giveHuman("A 2 3");
    desk.script({{desk.slot(1)}});
    int presses = 0;
    desk.backend.time.user = [&, before = desk.backend.time.user](double until) {
        if (!desk.g.Mask2(1).Visible || presses == 6) return before(until);
        const Press places[] = {desk.slot(2), desk.place(1), desk.slot(3)};
        desk.press(places[presses++ % 3]);
        return true;
    };
    desk.beginMove(human);
    frmscopa::gioco1(desk.g);
    const int ace = desk.g.cartaGiocata;
    frmscopa::verifica(desk.g);
    EXPECT_EQ(presses, 6);
    EXPECT_EQ(desk.g.cartaGiocata, ace);
    EXPECT_EQ(desk.g.postoMano, 1);
    EXPECT_EQ(desk.markedPlaces(), (Places{1, 2}));
    EXPECT_TRUE(humanShows(desk.g, 2) && humanShows(desk.g, 3));
    EXPECT_EQ(desk.backend.cardSounds, 1);
}

TEST(Clicks, DoNothingDuringTheComputersMoveAndThePauses) {
    Desk desk;
    desk.layTable("5 9");
    desk.giveHuman("4 2 3");
    desk.giveComputer("6 . .");
    constexpr int pressesInAll = 21;  // An even number would take a wrong mark off again.
    int presses = 0;
    const auto pressAll = [&](double until) {
        if (until == never || presses == pressesInAll) return false;
        for (const Press& p : {desk.slot(2), desk.place(1), desk.slot(3)}) desk.press(p);
        ++presses;
        return true;
    };
    desk.script({{desk.slot(1)}});
    desk.backend.time.user = [&, before = desk.backend.time.user](double until) {
        return before(until) || pressAll(until);
    };
    desk.beginMove(human);
    frmscopa::gioco1(desk.g);
    frmscopa::verifica(desk.g);
    EXPECT_EQ(presses, pressesInAll) << "pressed during the pause that ends the move";
    EXPECT_TRUE(humanShows(desk.g, 2) && humanShows(desk.g, 3));
    EXPECT_EQ(desk.markedPlaces(), Places{});
    presses = 0;
    const int humansCard = desk.g.cartaGiocata;
    desk.computerPlays();
    EXPECT_EQ(presses, pressesInAll);
    EXPECT_NE(desk.g.cartaGiocata, humansCard);
    EXPECT_EQ((desk.g.cartaGiocata - 1) % 10 + 1, 6);
    EXPECT_EQ(desk.markedPlaces(), Places{});
    EXPECT_TRUE(humanShows(desk.g, 2) && humanShows(desk.g, 3));
}

}  // namespace
}  // namespace test
