// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The settings file, and what the menus of play rate and music do with it.

#include "preferences/settings.h"

#include <cmath>

#include "tests/script.h"

namespace {

using script::Play;

/// What a fresh program makes of a settings file, once its table is loaded.
struct Loaded : Play {
    explicit Loaded(const std::string& text) : Play(1, text) {
        backend.time.user = nullptr;
        Load(g, g.frmscopa);
    }
    void choose(const MenuEntry& entry) {
        menu(entry);
        rtcDoEvents(g);
    }
    /// The one entry of an array that carries the check mark; -1 if it is not just one.
    template <int Last>
    static int checked(const Array<MenuEntry, Last>& entries) {
        int found = -1, marks = 0;
        for (int i = 0; i <= Last; ++i)
            if (entries(i).Checked) found = i, ++marks;
        return marks == 1 ? found : -1;
    }
};

void expectRead(const std::string& text, int brano, int velocita, float scala) {
    SCOPED_TRACE(testing::PrintToString(text));
    const SettingsFile read = parseSettings(text);
    EXPECT_EQ(read.brano, brano);
    EXPECT_EQ(read.velocita, velocita);
    EXPECT_EQ(read.scala, scala);
}

TEST(SettingsFile, IsWrittenByteForByte) {
    EXPECT_EQ(formatSettings({3, 2, 100}), " 3 \r\n 2 \r\n 100 \r\n");
    EXPECT_EQ(formatSettings({0, 1, 80}), " 0 \r\n 1 \r\n 80 \r\n");
    EXPECT_EQ(formatSettings({12, 3, 62.5f}), " 12 \r\n 3 \r\n 62.5 \r\n");
    expectRead(formatSettings({12, 3, 62.54321f}), 12, 3, 62.54321f);
    for (int brano = 0; brano <= 12; ++brano)
        for (int rate = 1; rate <= 3; ++rate)
            expectRead(formatSettings({brano, rate, 95}), brano, rate, 95);
}

TEST(SettingsFile, IsReadInAnyLayout) {
    const char* const layouts[] = {" 3 \r\n 2 \r\n 100 \r\n",
                                   "3,2,100",
                                   "3 2 100",
                                   "3\n2\n100",
                                   "3\r\n2,100",
                                   "\r\n\n  3\n\n2   100",
                                   "3, 2, 100",
                                   "3,2,100,7,8",
                                   "3,2\r\n100\r\n",
                                   "  3,\r\n2,\r\n100",
                                   "3 2 100 \x1a"};
    for (const char* text : layouts) expectRead(text, 3, 2, 100);
}

TEST(SettingsFile, TakesEachFieldThatIsSound) {
    // 12, 2 and 100 are what the program is delivered with.
    const std::string binary("\0\xff\x80\x01", 4);
    struct {
        std::string text;
        int brano, velocita;
        float scala;
    } const cases[] = {
        {"", 12, 2, 100},
        {"   \r\n\r\n", 12, 2, 100},
        {",", 12, 2, 100},
        {std::string(100000, ','), 12, 2, 100},
        {std::string(100000, '\n') + "4,1,90", 4, 1, 90},
        {std::string(100000, '9'), 12, 2, 100},
        {"5", 5, 2, 100},
        {"5,3", 5, 3, 100},
        {",3,90", 12, 3, 90},
        {"5,,90", 5, 2, 90},
        {"13,3,90", 12, 3, 90},
        {"-1,3,90", 12, 3, 90},
        {"5,0,90", 5, 2, 90},
        {"5,4,90", 5, 2, 90},
        {"5,20,90", 5, 2, 90},
        {"5,3,0", 5, 3, 100},
        {"5,3,-90", 5, 3, 100},
        {"5,3,nan", 5, 3, 100},
        {"5,3,inf", 5, 3, 100},
        {"5,3,1e99", 5, 3, 100},
        {"nan,inf,90", 12, 2, 90},
        {"four,3,90", 12, 3, 90},
        {"5x,3y,90z", 12, 2, 100},
        {"99999999999999999999,3,90", 12, 3, 90},
        {"5,99999999999999999999,90", 5, 2, 90},
        {"4294967301,3,90", 12, 3, 90},
        {"0x5,3,90", 12, 3, 90},
        {binary + ",3,90", 12, 3, 90},
        {"5," + binary + ",90", 5, 2, 90},
        {"5,3," + binary, 5, 3, 100},
        {"\xef\xbb\xbf"
         "5,3,90",
         12, 3, 90},
    };
    for (const auto& [text, brano, velocita, scala] : cases)
        expectRead(text, brano, velocita, scala);
}

TEST(SettingsFile, NeverLeavesItsRangesWhateverItHolds) {
    std::uint64_t state = 20260101;
    const std::string alphabet = "0123456789.,-+eE \r\ninfaNx\t";
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (int i = 0; i < 24; ++i) {
            state = state * 6364136223846793005u + 1442695040888963407u;
            text += alphabet[static_cast<std::size_t>(state >> 40) % alphabet.size()];
        }
        const SettingsFile read = parseSettings(text);
        ASSERT_TRUE(read.brano >= 0 && read.brano <= 12) << testing::PrintToString(text);
        ASSERT_TRUE(read.velocita >= 1 && read.velocita <= 3) << testing::PrintToString(text);
        ASSERT_TRUE(read.scala > 0 && std::isfinite(read.scala)) << testing::PrintToString(text);
    }
}

TEST(Settings, MarkTheirMenuEntries) {
    for (int brano = 0; brano <= 12; ++brano)
        for (int rate = 1; rate <= 3; ++rate) {
            const Loaded p(formatSettings({brano, rate, 100}));
            EXPECT_EQ(p.g.brano, brano);
            EXPECT_EQ(p.g.velocita, rate * 10);
            EXPECT_EQ(p.g.scalaCarte, 1);
            EXPECT_EQ(Loaded::checked(p.g.canzoni), brano);
            EXPECT_EQ(Loaded::checked(p.g.velocità_gioco), rate);
        }
}

TEST(Settings, NoneOpensNoMusic) {
    const Loaded none(" 0 2 100");
    EXPECT_EQ(none.backend.melody, "");
    EXPECT_EQ(none.g.MMC1.state, MMControl::State::closed);
    EXPECT_EQ(none.g.MMCw.state, MMControl::State::open);
}

TEST(Settings, RateAndTrackAreBothKept) {
    Loaded p(" 12 2 100");
    p.choose(p.g.canzoni(7));
    EXPECT_EQ(p.backend.settings, " 7 \r\n 2 \r\n 100 \r\n");
    p.choose(p.g.velocità_gioco(3));
    EXPECT_EQ(p.backend.settings, " 7 \r\n 3 \r\n 100 \r\n");
    EXPECT_EQ(p.g.velocita, 30);
    p.choose(p.g.canzoni(0));
    EXPECT_EQ(p.backend.settings, " 0 \r\n 3 \r\n 100 \r\n");
    p.choose(p.g.velocità_gioco(1));
    EXPECT_EQ(p.backend.settings, " 0 \r\n 1 \r\n 100 \r\n");
    EXPECT_EQ(p.g.velocita, 10);
    EXPECT_EQ(p.backend.settingsWritten, 4) << "written at each choice and at no other time";
    EXPECT_EQ(Loaded::checked(p.g.canzoni), 0);
    EXPECT_EQ(Loaded::checked(p.g.velocità_gioco), 1);
    const Loaded again(p.backend.settings);
    EXPECT_EQ(again.g.velocita, 10);
    EXPECT_EQ(again.g.brano, 0);
}

TEST(Settings, TheScaleSurvivesEveryRewrite) {
    for (int percent = 40; percent <= 106; ++percent) {
        std::string text = "5,2," + std::to_string(percent);
        for (int run = 0; run < 3; ++run) {
            Loaded p(text);
            EXPECT_FLOAT_EQ(p.g.scalaCarte, static_cast<float>(percent) / 100);
            p.choose(p.g.velocità_gioco(3));
            p.choose(p.g.canzoni(5));
            text = p.backend.settings;
            EXPECT_EQ(text, " 5 \r\n 3 \r\n " + std::to_string(percent) + " \r\n");
        }
    }
}

TEST(Settings, NoMenuTouchesAScaleThatTheTableHasNoRoomFor) {
    for (const char* percent : {"10", "39", "107", "150", "1000"}) {
        Loaded p(std::string("5,2,") + percent);
        p.choose(p.g.velocità_gioco(3));
        EXPECT_EQ(p.backend.settings, std::string(" 5 \r\n 3 \r\n ") + percent + " \r\n");
    }
}

TEST(Settings, AnyScaleLeavesATableToPlayOn) {
    for (const char* scale : {"0.001", "1", "40", "106", "107", "500", "1e30"}) {
        Play p(1, std::string("5,2,") + scale);
        p.then([&] { return p.started; });
        p.run();
        const float height = p.g.altezzaCarta, rows = 1.5f * height + 6;
        EXPECT_LE(5 + height, 300 - rows) << scale << ": the computer's cards clear the table";
        EXPECT_LE(300 + rows, 595 - height) << scale << ": and so do the human's";
        EXPECT_GE(p.g.larghezzaCarta, 20) << scale << ": they can be seen";
    }
}

TEST(Settings, TheScaleMakesTheCards) {
    for (const int percent : {60, 80, 100}) {
        Play p(1, "0,2," + std::to_string(percent));
        p.then([&] { return p.started; });
        p.run();
        const auto scale = static_cast<float>(percent) / 100;
        EXPECT_NEAR(p.g.larghezzaCarta, script::cardWidth * scale, 0.001);
        EXPECT_NEAR(p.g.altezzaCarta, script::cardHeight * scale, 0.001);
    }
}

TEST(Settings, AChangeOfRateCountsFromTheNextWait) {
    Play p(1, "0,1,100");
    double changed = -1, chosen = -1, seen = -1;
    p.watch = [&](Moment moment) {
        if (moment == Moment::leftovers) script::forceHand(p.g, 5, 4);
    };
    p.then([&] { return p.titleShows(); }, [&] { p.menu(p.g.velocità_gioco(3)); });
    p.then([&] { return p.choosing(); }, [&] { changed = p.now(); });
    p.then([&] { return p.titleShows() && p.started; }, [&] { chosen = p.now(); });
    p.then([&] { return p.choosing(); }, [&] { seen = p.now(); });
    p.run();
    EXPECT_NEAR(changed, 10, 1e-6) << "the wait under way keeps its length";
    EXPECT_NEAR(seen - chosen, 10 / 3.0, 1e-6) << "the next one is shorter";
}

}  // namespace
