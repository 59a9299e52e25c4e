// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The menu bar, and which control closes which of the three panels.

#include <sstream>

#include "tests/script.h"

namespace {

using script::Play;

constexpr int english = 1, italian = 2, information = 4, all = 7;

int open(const Game& g) {
    return (g.Text1.Visible ? english : 0) | (g.Text3.Visible ? italian : 0) |
           (g.Text4.Visible ? information : 0);
}

void setOpen(Game& g, int panels) {
    g.Text1.Visible = panels & english;
    g.Text3.Visible = panels & italian;
    g.Text4.Visible = panels & information;
}

struct Answer {
    Source source;
    Verb verb;
    int first, last;  ///< indices
    int closes;
};

const Answer answers[] = {
    {Source::Text1, Verb::Click, 0, 0, english},
    {Source::Text3, Verb::Click, 0, 0, italian},
    {Source::Text4, Verb::Change, 0, 0, information},
    {Source::Text4, Verb::Click, 0, 0, 0},
    {Source::Text1, Verb::Change, 0, 0, 0},
    {Source::Text3, Verb::Change, 0, 0, 0},
    {Source::Verde, Verb::Click, 0, 1, all},
    {Source::Rosso, Verb::Click, 0, 1, all},
    {Source::dorso, Verb::Click, 0, 2, all},
    {Source::Mazzo, Verb::Click, 0, 0, all},
    {Source::GO, Verb::Click, 0, 0, all},
    {Source::frmscopa, Verb::MouseDown, 0, 0, all},
    {Source::Option1, Verb::Click, 0, 2, 0},
    {Source::velocità_gioco, Verb::Click, 1, 3, 0},
    {Source::canzoni, Verb::Click, 0, 12, 0},
    {Source::Gorilla, Verb::Click, 1, 10, 0},
    {Source::Mask2, Verb::Click, 1, 5, 0},
    {Source::Picture2, Verb::Click, 0, 0, 0},
    {Source::frmscopa, Verb::Resize, 0, 0, 0},
};

TEST(Panels, CloseByTheRightControls) {
    for (const Answer& answer : answers)
        for (int index = answer.first; index <= answer.last; ++index)
            for (int before = 0; before <= all; ++before) {
                Play p;
                setOpen(p.g, before);
                p.g.queue.push_back({answer.source, answer.verb, index, 1, 0, 400, 300});
                p.robotPlays = false;
                p.backend.time.user = nullptr;
                rtcDoEvents(p.g);
                EXPECT_EQ(open(p.g), before & ~answer.closes)
                    << static_cast<int>(answer.source) << ' ' << index << ' ' << before;
            }
}

TEST(Panels, OpenAndGoByTheMenu) {
    Play p;
    p.backend.time.user = nullptr;
    const auto after = [&p](int before, const MenuEntry& entry) {
        setOpen(p.g, before);
        p.menu(entry);
        rtcDoEvents(p.g);
        return open(p.g);
    };
    for (int before = 0; before <= all; ++before) {
        EXPECT_EQ(after(before, p.g.Italiano), (before & ~english) | italian) << before;
        EXPECT_EQ(after(before, p.g.english), (before & ~italian) | english) << before;
        EXPECT_EQ(after(before, p.g.menu_about), (before & ~italian) ^ information) << before;
    }
}

TEST(Panels, TheOneOpenedLastIsInFront) {
    Play p;
    p.backend.time.user = nullptr;
    const auto choose = [&p](const MenuEntry& entry) {
        p.menu(entry);
        rtcDoEvents(p.g);
    };
    choose(p.g.english);
    choose(p.g.menu_about);
    EXPECT_EQ(open(p.g), english | information);
    EXPECT_GT(p.g.Text4.z, p.g.Text1.z);
    choose(p.g.english);
    EXPECT_GT(p.g.Text1.z, p.g.Text4.z);
    choose(p.g.Italiano);
    EXPECT_GT(p.g.Text3.z, p.g.Text4.z);
}

TEST(Panels, AClickOnThemOrOnALampIsNoMove) {
    Play p;
    p.then([&] { return p.picking(); }, [&] { p.menu(p.g.english); });
    // Inside the panel and over a hand card at once: the window system gives it to the panel.
    p.then([&] { return p.picking(); }, [&] { clickOn(p.g, p.g.frmscopa, p.g.Text1); });
    p.then([&] { return p.picking(); },
           [&] {
               EXPECT_EQ(open(p.g), 0);
               setOpen(p.g, all);
               p.robot.pressAt(636, 600 - script::cardHeight / 2 - 16);
           });
    p.then([&] { return p.picking(); },
           [&] {
               EXPECT_EQ(open(p.g), 0);
               setOpen(p.g, all);
               p.robot.pressAt(636, script::cardHeight / 2 + 16);
           });
    p.then([&] { return p.picking(); },
           [&] {
               EXPECT_EQ(open(p.g), 0);
               setOpen(p.g, all);
               p.robot.pressAt(560, 300, 2);  // bare table
           });
    p.then([&] { return p.picking(); },
           [&] {
               EXPECT_EQ(open(p.g), 0);
               setOpen(p.g, all);
               p.robot.pressHand(2);
               p.robotPlays = false;
           });
    p.then([&] { return p.g.cartaGiocata != 0; });
    p.run();
    EXPECT_EQ(open(p.g), 0) << "a click on a card closes them too";
    EXPECT_EQ(p.g.postoMano, 2) << "and is judged as a move";
}

/// All decided moves of one hand as text; in each of its waits the menus may be used first.
std::string playHand(bool withMenus, double* seconds = nullptr) {
    Play p(5);
    std::ostringstream moves;
    p.watch = [&](Moment moment) {
        if (moment != Moment::decided) return;
        moves << p.g.giocatore << ':' << p.g.cartaGiocata << '-' << p.g.postoMano;
        for (int i = 1; i <= p.g.numeroPresa; ++i) moves << ' ' << p.g.presa(i);
        moves << '\n';
    };
    int used = 0;
    bool robotsTurn = true;
    p.look = [&] {
        robotsTurn = !robotsTurn;
        if (!withMenus || robotsTurn || p.moment == Moment::scored) return;
        Game& g = p.g;
        const MenuEntry* const entries[] = {
            &g.english,    &g.menu_about,         &g.Italiano,
            &g.menu_about, &g.canzoni(used % 13), &g.velocità_gioco(2)};
        p.menu(*entries[static_cast<std::size_t>(used++ % 6)]);
    };
    p.then([&] { return p.scoreShown(); });
    p.run();
    if (withMenus) {
        EXPECT_GT(used, 100);
        EXPECT_GT(p.backend.settingsWritten, 30);
    }
    if (seconds) *seconds = p.now();
    return moves.str();
}

TEST(Menus, InEveryWaitLeaveTheHandAlone) {
    double quiet = 0, busy = 0;
    const std::string moves = playHand(false, &quiet);
    EXPECT_EQ(std::count(moves.begin(), moves.end(), '\n'), 36);
    EXPECT_EQ(playHand(true, &busy), moves);
    EXPECT_NEAR(busy, quiet, 1e-6) << "nothing pauses behind an open panel";
}

TEST(Menus, StandInTheirOrder) {
    Play p;
    std::string bar;
    for (const MenuEntry* entry : p.g.frmscopa.menu) {
        bar += (entry->topLevel ? "|" : " ") + entry->Caption;
        EXPECT_EQ(entry->heading,
                  entry == &p.g.play_rate || entry == &p.g.istruzioni || entry == &p.g.Musica);
    }
    EXPECT_EQ(bar,
              "|&Play rate Low Middle High|&Game rules Italiano English|&Music None Humanoid"
              " Impact Go4yrgun Sevilana Bugs Astro Champion Champs Easycity Fastlane Lastday"
              " Scopa|&Info|&QUIT");
}

TEST(Panels, HaveTheirSizeAndColour) {
    Play p;
    const Game& g = p.g;
    for (const TextBox* rules : {&g.Text1, &g.Text3}) {
        EXPECT_EQ(rules->fixedWidth, 360);
        EXPECT_EQ(rules->fixedHeight, 242);
        EXPECT_TRUE(rules->scrollBar);
        EXPECT_EQ(rules->BackColor, 0xC0FFFF);
    }
    EXPECT_EQ(g.Text4.fixedWidth, 221);
    EXPECT_EQ(g.Text4.fixedHeight, 101);
    EXPECT_FALSE(g.Text4.scrollBar);
    EXPECT_EQ(g.Text4.Text.rfind("Velarda  ver. 3.0\n", 0), 0u);
    EXPECT_EQ(std::count(g.Text4.Text.begin(), g.Text4.Text.end(), '\n'), 2);
    EXPECT_EQ(open(g), 0);
}

}  // namespace
