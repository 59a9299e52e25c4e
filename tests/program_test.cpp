// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// From the title over the choice of game to the score sheet, and on from there.

#include <map>

#include "tests/script.h"

namespace {

using script::Play;

constexpr float across(float twips) {
    return twips * 800 / 15432;
}
constexpr float down(float twips) {
    return twips * 600 / 12360;
}

void expectPlace(const Control& control, float left, float top, const char* name) {
    EXPECT_NEAR(control.Left, left, 0.01) << name;
    EXPECT_NEAR(control.Top, top, 0.01) << name;
}

TEST(Title, StaysTenSecondsByTheRate) {
    const std::map<std::string, double> seconds{
        {" 0 1 100 ", 10}, {" 0 2 100 ", 5}, {" 0 3 100 ", 10 / 3.0}};
    for (const auto& [settings, expected] : seconds) {
        Play p(1, settings);
        double gone = 0;
        p.then([&] { return !p.titleShows(); }, [&] { gone = p.now(); });
        p.run();
        EXPECT_NEAR(gone, expected, 1e-6) << settings;
        EXPECT_TRUE(p.choosing()) << "the opening screen follows at once";
    }
}

TEST(Title, StandsAloneOnBlue) {
    Play p;
    p.then([&] { return p.titleShows(); });
    p.run();
    expectPlace(p.g.Picture4, 400 - across(8796) / 2, 20 + down(3024), "title");
    EXPECT_EQ(Point(p.g.frmscopa, 1, 1), 0xFF0000);
    for (const Control* control : p.g.frmscopa.controls)
        EXPECT_EQ(control->Visible, control == &p.g.Picture4);
    for (int i = 0; i <= 1; ++i) {
        expectPlace(p.g.Verde(i), 800, 600, "green lamp");
        expectPlace(p.g.Rosso(i), 800, 600, "red lamp");
    }
    EXPECT_EQ(p.g.frmscopa.WindowState, 2);
    EXPECT_EQ(p.g.frmscopa.Caption, "Corvalia - Velarda");
}

TEST(OpeningScreen, HasItsControls) {
    Play p;
    p.then([&] { return p.choosing(); });
    p.run();
    Game& g = p.g;
    const char* captions[] = {"Single Game", "11 points Game", "21 points Game"};
    for (int i = 0; i <= 2; ++i) {
        const OptionButton& option = g.Option1(i);
        expectPlace(option, 400 - across(3012) / 2, 100 + 30 * static_cast<float>(i), captions[i]);
        EXPECT_NEAR(option.Width, across(3012), 0.01);
        EXPECT_NEAR(option.Height, down(252), 0.01);
        EXPECT_EQ(option.Caption, captions[i]);
        EXPECT_EQ(option.BackColor, 0xC0FFFF);
        EXPECT_EQ(option.ForeColor, 0x000080);
        EXPECT_EQ(option.Value, i == 0);
        EXPECT_TRUE(option.Visible);
    }
    expectPlace(g.GO, 400 - across(1812) / 2, 300, "GO");
    EXPECT_EQ(g.GO.Caption, "GO");
    const float below = 300 + down(360);
    for (int i = 1; i <= 10; ++i) {
        expectPlace(g.Gorilla(i), 300, below + 10, "Gorilla");
        EXPECT_TRUE(g.Gorilla(i).Visible);
    }
    for (int i = 1; i <= 5; ++i) {
        expectPlace(g.Mask2(i), 410, below + 20, "Mask2");
        EXPECT_TRUE(g.Mask2(i).Visible);
    }
    for (const TextBox* panel : {&g.Text1, &g.Text3, &g.Text4}) expectPlace(*panel, 0, 0, "panel");
    expectPlace(g.Picture2, 110, 300, "banner");
    EXPECT_FALSE(g.Picture2.Visible);
    EXPECT_EQ(g.nomeGiocatore, "Player");
}

TEST(OpeningScreen, IsPaintedOnItsPanel) {
    Play p;
    p.then([&] { return p.choosing(); });
    p.run();
    struct {
        float x, y;
        Colour colour;
    } const points[] = {{5, 5, 0xFF5000},      {795, 595, 0xFF5000},   {197, 300, 0xFF5000},
                        {400, 47, 0xFF5000},   {604, 300, 0xFF5000},   {400, 514, 0xFF5000},
                        {198.5, 300, 0},       {602.5, 300, 0},        {400, 48.5, 0},
                        {400, 512.5, 0},       {200.5, 300, 0xFF0000}, {600.5, 300, 0xFF0000},
                        {400, 50.5, 0xFF0000}, {400, 510.5, 0xFF0000}};
    for (const auto& [x, y, colour] : points)
        EXPECT_EQ(Point(p.g.frmscopa, x, y), colour) << x << ' ' << y;
    const Painted* title = p.g.frmscopa.surface.at(400, 210);
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->picture, picture::title);
    EXPECT_NEAR(title->box.left, 400 - 1.5 * across(852), 0.01);
    EXPECT_NEAR(title->box.top, 200, 0.01);
    EXPECT_NEAR(title->box.right - title->box.left, 3 * across(852), 0.01);
    EXPECT_NEAR(title->box.bottom - title->box.top, 3 * down(384), 0.01);
}

TEST(OpeningScreen, BothMascotsPlay) {
    Play p;
    std::map<double, std::pair<int, int>> inFront;  // by the moment from which it holds
    double start = 0;
    p.robotPlays = false;
    p.then([&] { return p.choosing(); }, [&] { start = p.now(); });
    p.then([&] { return p.now() > start + 8; });
    p.look = [&] {
        if (p.choosing())
            inFront[p.now()] = {script::frontOf(p.g.Gorilla, 1), script::frontOf(p.g.Mask2, 1)};
    };
    p.run();
    const auto at = [&](double t) { return std::prev(inFront.upper_bound(start + t))->second; };
    for (int tick = 1; tick <= 35; ++tick)
        EXPECT_EQ(at(tick * 0.08 + 0.01).first, (tick - 1) % 10 + 1) << tick;
    const std::map<double, int> masks{{0.2, 1},  {2.5, 1},  {2.53, 2}, {2.65, 3}, {2.77, 4},
                                      {2.89, 5}, {5.27, 5}, {5.29, 1}, {7.67, 1}, {7.69, 2}};
    for (const auto& [time, frame] : masks) EXPECT_EQ(at(time).second, frame) << time;
}

TEST(OpeningScreen, TheLastClickCounts) {
    const std::vector<std::vector<int>> clicks{{}, {0}, {1}, {2}, {2, 0}, {1, 2, 1, 0, 2}, {2, 1}};
    for (const auto& indices : clicks) {
        Play p;
        p.robotPlays = false;
        for (const int index : indices)
            p.then([&] { return p.choosing(); },
                   [&p, index] {
                       p.g.progressoPartita = 30;
                       p.option(index);
                   });
        p.then([&] { return p.choosing(); }, [&] { p.go(); });
        p.then([&] { return p.picking(); });
        p.run();
        const int chosen = indices.empty() ? 0 : indices.back();
        EXPECT_EQ(p.g.tipoPartita, chosen);
        EXPECT_EQ(p.g.progressoPartita, 0) << "a click starts the rows afresh";
        for (int i = 0; i <= 2; ++i) EXPECT_EQ(p.g.Option1(i).Value, i == chosen);
    }
}

TEST(OpeningScreen, GoPutsEverythingInItsPlace) {
    Play p;
    p.then([&] { return p.choosing(); }, [&] { p.menu(p.g.english); });
    p.then([&] { return p.g.Text1.Visible; }, [&] { p.menu(p.g.menu_about); });
    p.then([&] { return p.g.Text4.Visible; }, [&] { p.go(); });
    p.then([&] { return p.started; });
    p.run();
    Game& g = p.g;
    for (const TextBox* panel : {&g.Text1, &g.Text3, &g.Text4}) EXPECT_FALSE(panel->Visible);
    for (const OptionButton& option : g.Option1) EXPECT_FALSE(option.Visible);
    EXPECT_FALSE(g.GO.Visible);
    EXPECT_FALSE(g.Timer1.enabled || g.Timer2.enabled);
    for (int i = 1; i <= 10; ++i) {
        expectPlace(g.Gorilla(i), 100, 120, "Gorilla");
        EXPECT_FALSE(g.Gorilla(i).Visible);
    }
    for (int i = 1; i <= 5; ++i) {
        expectPlace(g.Mask2(i), 100, 400, "Mask2");
        EXPECT_FALSE(g.Mask2(i).Visible);
    }
    EXPECT_EQ(g.fotoGorilla + g.giriGorilla + g.fotoMaschera + g.giriMaschera, 0);
}

/// Two hands of a match by their points, and what the left button offers after each.
struct MatchCase {
    int type, human1, computer1, human2, computer2;
    const char *after1, *after2;
};
const char *const onward = "CONTINUE", *const over = "NEW GAME";

TEST(Match, EndsByItsKind) {
    const MatchCase cases[] = {
        {0, 5, 5, 4, 3, onward, over},     {0, 4, 4, 5, 5, onward, onward},
        {1, 6, 6, 4, 4, onward, onward},   {1, 6, 5, 4, 4, onward, onward},
        {1, 7, 6, 4, 4, onward, over},     {1, 7, 7, 4, 4, onward, onward},
        {1, 10, 10, 4, 4, onward, onward}, {1, 8, 7, 4, 4, onward, over},
        {1, 5, 10, 1, 4, onward, over},    {1, 10, 1, 0, 9, onward, onward},
        {2, 16, 16, 4, 4, onward, onward}, {2, 17, 16, 4, 4, onward, over},
        {2, 17, 17, 4, 4, onward, onward}, {2, 19, 19, 4, 4, onward, onward},
        {2, 20, 19, 4, 4, onward, over},   {2, 12, 5, 4, 6, onward, onward},
    };
    for (const MatchCase& m : cases) {
        Play p;
        p.robot.tipoPartita = m.type;
        p.watch = [&](Moment moment) {
            if (moment != Moment::leftovers) return;
            const bool first = p.seen(moment) == 1;
            script::forceHand(p.g, first ? m.human1 : m.human2, first ? m.computer1 : m.computer2);
        };
        std::string after1;
        p.then([&] { return p.scoreShown(); }, [&] { after1 = p.g.Command1.Caption; });
        p.then([&] { return p.scoreShown() && p.seen(Moment::scored) == 2; });
        p.run();
        SCOPED_TRACE(testing::Message() << m.type << ": " << m.human1 << ' ' << m.computer1 << ", "
                                        << m.human2 << ' ' << m.computer2);
        EXPECT_EQ(after1, m.after1);
        EXPECT_EQ(p.g.Command1.Caption, m.after2);
        const bool addsUp = m.type != 0;
        EXPECT_EQ(p.g.totaleUmano, m.human2 + (addsUp ? m.human1 : 0));
        EXPECT_EQ(p.g.totaleComputer, m.computer2 + (addsUp ? m.computer1 : 0));
        EXPECT_EQ(p.g.progressoPartita, addsUp ? 20 : 0);
    }
}

TEST(Match, NewGameStartsAfreshAndKeepsTheKind) {
    Play p;
    p.robotPlays = true;
    p.watch = [&](Moment moment) {
        if (moment == Moment::leftovers) script::forceHand(p.g, 12, 4);
    };
    p.then([&] { return p.choosing(); },
           [&] {
               p.option(1);
               p.go();
           });
    p.then([&] { return p.scoreShown(); }, [&] { p.button(p.g.Command1); });
    double clicked = -1, chosen = -1;
    p.then([&] { return p.titleShows(); }, [&] { clicked = p.now(); });
    p.then([&] { return p.choosing(); },
           [&] {
               chosen = p.now();
               EXPECT_EQ(p.g.totaleUmano + p.g.totaleComputer + p.g.progressoPartita, 0);
               EXPECT_EQ(p.g.Command1.Caption, "NEW GAME");
               EXPECT_FALSE(p.g.LBLdat.loaded(13));
               EXPECT_TRUE(p.g.Option1(1).Value);
               p.go();
           });
    p.then([&] { return p.scoreShown() && p.seen(Moment::scored) == 2; });
    p.run();
    EXPECT_NEAR(chosen - clicked, 5, 1e-6) << "the title comes again";
    EXPECT_EQ(p.g.tipoPartita, 1);
    EXPECT_EQ(p.g.totaleUmano, 12);
    EXPECT_EQ(p.g.progressoPartita, 10);
}

TEST(Match, TheDealChangesSidesForEver) {
    for (const int first : {human, computer}) {
        Play p;
        script::chooseDealer(p.g, first);
        std::vector<int> dealers;
        p.watch = [&](Moment moment) {
            if (moment == Moment::dealt) dealers.push_back(p.g.mazziere);
            // A draw now and then: single games of one, two and three hands.
            const bool drawn = dealers.size() % 3 == 1;
            if (moment == Moment::leftovers) script::forceHand(p.g, drawn ? 4 : 5, 4);
        };
        p.runHands(7);
        for (std::size_t i = 0; i < dealers.size(); ++i)
            EXPECT_EQ(dealers[i], i % 2 == 0 ? first : 3 - first) << "hand " << i + 1;
    }
}

TEST(Match, ContinueDealsAtOnceAndKeepsTheSheet) {
    Play p;
    p.robot.tipoPartita = 2;
    double clicked = -1;
    int progress = -1;
    p.then([&] { return p.scoreShown(); }, [&] { clicked = p.now(); });
    p.watch = [&](Moment moment) {
        if (moment != Moment::dealt || p.seen(moment) != 2) return;
        EXPECT_EQ(p.now(), clicked);
        progress = p.g.progressoPartita;
    };
    p.then([&] { return p.seen(Moment::dealt) == 2; });
    p.run();
    EXPECT_EQ(progress, 10);
    EXPECT_TRUE(p.g.LBLdat.loaded(22));
}

TEST(DoublePress, StartsOneHand) {
    for (const bool matchOver : {false, true}) {
        Play p;
        p.watch = [&](Moment moment) {
            if (moment == Moment::leftovers) script::forceHand(p.g, matchOver ? 5 : 4, 4);
        };
        const auto twice = [&p](Control& control, Form& form) {
            clickOn(p.g, form, control);
            clickOn(p.g, form, control);
        };
        p.then([&] { return p.choosing(); }, [&] { twice(p.g.GO, p.g.frmscopa); });
        p.then([&] { return p.picking(); }, [&] { clickOn(p.g, p.g.frmscopa, p.g.GO); });
        p.then([&] { return p.scoreShown(); }, [&] { twice(p.g.Command1, p.g.frmscore); });
        if (matchOver) p.then([&] { return p.choosing(); }, [&] { twice(p.g.GO, p.g.frmscopa); });
        p.then([&] { return p.picking(); }, [&] { p.button(p.g.Command1); });
        p.then([&] { return p.scoreShown() && p.seen(Moment::scored) >= 2; });
        p.run();
        EXPECT_EQ(p.seen(Moment::dealt), 2);
        EXPECT_EQ(p.seen(Moment::turn), 72);
        EXPECT_EQ(p.seen(Moment::scored), 2);
    }
}

}  // namespace
