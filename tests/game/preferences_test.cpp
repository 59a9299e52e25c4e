// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The menu bar with its panels, the settings file, and the two sound devices.

#include "preferences/settings.h"
#include "script.h"

using namespace script;
using State = MMControl::State;

namespace {

constexpr int english = 1, italian = 2, information = 4, all = 7;

/// Which panels are open after an event that found these open.
int after(int before, const Event& event) {
    Play p;
    p.g.Text1.Visible = before & english;
    p.g.Text3.Visible = before & italian;
    p.g.Text4.Visible = before & information;
    deliver(p.g, event);
    return p.g.Text1.Visible * english + p.g.Text3.Visible * italian +
           p.g.Text4.Visible * information;
}

TEST(Presses, OnALampAreNoneOnTheTable) {
    Play p;
    const Image& lamp = p.g.Verde(0);
    p.then(&Play::picking, [&] {
        pressAt(p.g, p.g.frmscopa, lamp.Left + lamp.Width / 2, lamp.Top + lamp.Height / 2, 1);
        EXPECT_EQ(p.g.queue.back().source, Source::Verde);
    });
    p.run();
}

TEST(Panels, OpenByTheMenuAndCloseByTheRightControls) {
    struct {
        Source source{};
        int closes = 0;
        Verb verb = Verb::Click;
    } const closed[] = {{Source::Text1, english},
                        {Source::Text3, italian},
                        {Source::Text4, 0},
                        {Source::Verde, all},
                        {Source::Rosso, all},
                        {Source::dorso, all},
                        {Source::Mazzo, all},
                        {Source::GO, all},
                        {Source::Option1, 0},
                        {Source::velocità_gioco, 0},
                        {Source::canzoni, 0},
                        {Source::Text3, 0, Verb::Change},
                        {Source::Text4, information, Verb::Change},
                        {Source::frmscopa, all, Verb::MouseDown}};
    for (int before = 0; before <= all; ++before) {
        for (const auto& [source, closes, verb] : closed)
            EXPECT_EQ(after(before, {source, verb, 1}), before & ~closes) << int(source);
        EXPECT_EQ(after(before, {Source::Italiano}), (before & ~english) | italian);
        EXPECT_EQ(after(before, {Source::english}), (before & ~italian) | english);
        EXPECT_EQ(after(before, {Source::menu_about}), (before & ~italian) ^ information);
    }
    Play p;
    deliver(p.g, {Source::english});
    deliver(p.g, {Source::menu_about});
    EXPECT_GT(p.g.Text4.z, p.g.Text1.z) << "the one opened last is in front";
}

void expectRead(const std::string& text, int brano, int velocita, float scala) {
    const SettingsFile read = parseSettings(text);
    EXPECT_EQ(std::tuple(read.brano, read.velocita, read.scala), std::tuple(brano, velocita, scala))
        << testing::PrintToString(text);
}

TEST(SettingsFile, TakesEachFieldThatIsSound) {
    for (const char* text :
         {" 3 \r\n 1 \r\n 80 \r\n", "\n 3\n\n1   80", "3,1 80 \x1a", "3 ,1,\n80"})
        expectRead(text, 3, 1, 80);
    for (const char* bad : {"", "-1", "5x", "0x5", "nan", "inf", "1e99", "\xff\x80"}) {
        const std::string field = bad;
        expectRead(field + ",3,90", 12, 3, 90);  // what the program is delivered with
        expectRead("5," + field + ",90", 5, 2, 90);
        expectRead("5,3," + field, 5, 3, 100);
    }
    expectRead("", 12, 2, 100);
    expectRead("0,1,0", 0, 1, 100);
    expectRead("4294967301,0,90", 12, 2, 90);
    expectRead("13,4,90", 12, 2, 90);
    expectRead(std::string(100000, '\n') + "4,1,90", 4, 1, 90);
}

TEST(Settings, AreWrittenByteForByteAtEachChoice) {
    for (const char* scale : {"10", "40", "62.54321", "77", "83", "99", "106", "1000"}) {
        Play p(1, std::string("5,2,") + scale);
        Load(p.g, p.g.frmscopa);
        const auto expect = [&](const std::string& file, const std::string& marks) {
            std::string checked;
            for (const MenuEntry* entry : p.g.frmscopa.menu)
                if (entry->Checked) checked += entry->Caption + ' ';
            EXPECT_EQ(checked, marks);
            EXPECT_EQ(p.backend.settings, file + scale + (file[0] == ' ' ? " \r\n" : ""));
        };
        expect("5,2,", "Middle Bugs ");
        deliver(p.g, {Source::canzoni, Verb::Click, 7});
        expect(" 7 \r\n 2 \r\n ", "Middle Champion ");
        deliver(p.g, {Source::velocità_gioco, Verb::Click, 3});
        expect(" 7 \r\n 3 \r\n ", "High Champion ");
    }
}

TEST(Settings, TheScaleMakesTheCardsAsFarAsThereIsRoom) {
    for (const auto& [percent, scale] : {std::pair("60", 0.6f), {"1e30", 1.06f}, {"1", 0.4f}}) {
        Play p(1, std::string("0,2,") + percent);
        p.then(&Play::picking, [&] { EXPECT_EQ(p.backend.melody, "") << "entry 0 is none"; });
        p.run();
        EXPECT_NEAR(p.g.larghezzaCarta, cardWidth * scale, 0.001);
        EXPECT_NEAR(p.g.altezzaCarta, cardHeight * scale, 0.001);
    }
}

TEST(Music, RunsInALoopFromHandToHandAndChangesAtOnce) {
    Play p(1, "3,2,100");
    p.backend.melodySeconds = 20;
    MMControl& music = p.g.MMC1;
    int ended = 0;
    p.look = [&] {
        if (music.state != State::playing || Position(music) != Length(music)) return;
        ++ended;
        music.player->ended();
    };
    p.then(&Play::choosing, [&] { EXPECT_EQ(music.state, State::open) << "not heard yet"; });
    p.then([&](auto&) { return ended == 3; }, [&] { p.backend.melodySeconds = 1e6; });
    p.then(&Play::secondHand, [&] {
        EXPECT_GT(Position(music), 10000) << "the second hand does not start it over again";
        EXPECT_EQ(p.backend.melody, "/velarda/music/Go4yrgun.mid");
        music.player->ended();
    });
    p.then(&Play::secondHand, [&] {
        EXPECT_EQ(music.state, State::open) << "what breaks off does not start again";
        p.menu(p.g.canzoni(9));
    });
    p.then(&Play::secondHand, [&] {
        EXPECT_TRUE(music.state == State::playing && Position(music) == 0);
        EXPECT_EQ(p.backend.melody, "/velarda/music/Easycity.MID");
        p.menu(p.g.canzoni(0));
    });
    p.then(&Play::secondHand, [&] { EXPECT_EQ(p.backend.melody, ""); });
    p.run();
}

TEST(Music, ThatFindsNoDeviceIsTriedAgainByTheNextHandAndTheNextChoice) {
    Play p(1, "3,2,100");
    MMControl& music = p.g.MMC1;
    bool deviceIsThere = false;
    int failures = 0;
    p.look = [&] {
        if (music.state != State::playing || deviceIsThere) return;
        music.player->ended();
        if (++failures > 2) throw EndProgram{};  // one of the first hand, one of the second
    };
    p.then(&Play::picking, [&] {
        EXPECT_EQ(music.state, State::open) << "the first hand finds no device";
        deviceIsThere = true;
    });
    p.then(&Play::secondHand, [&] {
        EXPECT_EQ(music.state, State::playing) << "the second hand tries again";
        deviceIsThere = false;
    });
    p.then(&Play::secondHand, [&] {
        EXPECT_EQ(music.state, State::open) << "the device has been pulled out";
        deviceIsThere = true;
        p.menu(p.g.canzoni(3));
    });
    p.then(&Play::secondHand, [&] {
        EXPECT_EQ(music.state, State::playing) << "the melody chosen again tries again";
    });
    p.run();
    EXPECT_EQ(failures, 2);
}

}  // namespace
