// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The title and the opening screen.

#include <map>

#include "tests/layout.h"

namespace {

using script::expectPlace;
using script::Play;

constexpr float across(float twips) {
    return twips * 800 / 15432;
}
constexpr float down(float twips) {
    return twips * 600 / 12360;
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
    for (TextBox* panel : {&p.g.Text1, &p.g.Text3, &p.g.Text4}) Move(*panel, 50, 50);
    p.then([&] { return p.titleShows(); }, [&] { p.g.totaleUmano = p.g.totaleComputer = 7; });
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
    EXPECT_EQ(g.totaleUmano + g.totaleComputer, 0);
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
    double start = 0;
    p.robotPlays = false;
    p.then([&] { return p.choosing(); }, [&] { start = p.now(); });
    p.then([&] { return p.now() > start + 3; });  // the mascots are in the middle of their play
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

}  // namespace
