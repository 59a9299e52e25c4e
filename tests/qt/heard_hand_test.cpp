// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// A whole hand on real windows; what is heard of it goes into a file and is measured.

#include <gtest/gtest.h>

#include <QApplication>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "../sound/recording.h"
#include "game/event_table.h"
#include "platform/sound/mixer_library.h"
#include "state/state.h"
#include "tools/robot.h"
#include "tools/scripted_desktop.h"

namespace test {
namespace {

constexpr Listening toCards{.loud = 12'000, .rest = 50}, toAnything{.rest = 15};

testing::AssertionResult await(const std::string& what, const std::function<bool()>& isSo) {
    return waitFor(what, isSo, [] { QCoreApplication::processEvents(); });
}

struct DesktopInTheStudio : ScriptedDesktop {
    std::string programFolder() override { return "."; }
};

/// Plays a hand, slowly enough for cards to be told apart, with music up to a card.
void playHand(int lastCardWithMusic) {
    DesktopInTheStudio desktop;
    desktop.settings = "1,3,100";  // the first melody, the highest speed
    Game g(desktop, eventTable());
    desktop.attach(g);
    desktop.time.user = [robot = Robot(g, 7)](double until) mutable { return robot.act(until); };
    g.watch = [&, cards = 0](Moment now) mutable {
        if (now == Moment::dealt) {
            EXPECT_TRUE(await("the melody twice", [] { return onsets(toAnything).size() >= 2; }));
        }
        if (now == Moment::scored) throw EndProgram{};
        if (now != Moment::decided) return;
        EXPECT_TRUE(await("the end of a card's sound",
                          [&] { return g.MMCw.state != MMControl::State::playing; }));
        const int rested = Studio::asked() + rate / 10;
        EXPECT_TRUE(await("the device to go on", [&] { return Studio::asked() >= rested; }));
        if (++cards != lastCardWithMusic) return;
        EXPECT_TRUE(await("the melody under the cards", [before = onsets(toAnything).size()] {
            return onsets(toAnything).size() > before;
        }));
        g.queue.push_back({Source::canzoni, Verb::Click, 0});
    };
    runProgram(g);
}

TEST(HeardHand, HasEachCardAndTheMelodyUntilItIsSwitchedOff) {
    if (!MixerLibrary::find()) GTEST_SKIP() << "SDL2_mixer is not installed";
    const Studio studio;
    put("carta.wav", clickingWave(20));
    std::filesystem::create_directory("music");
    put("music/Humanoid.mid", midiFile(std::string("\0\x90\x3C\x60\x14\x80\x3C\0\x87\x54", 10)));
    constexpr int lastCardWithMusic = 12;
    playHand(lastCardWithMusic);
    const std::vector<int> knocks = onsets(toCards), all = onsets(toAnything);
    ASSERT_EQ(knocks.size(), 36u) << "one for each card played";
    const int switchedOff = knocks[lastCardWithMusic];
    EXPECT_EQ(std::ranges::count_if(all, [&](int one) { return one > switchedOff; }),
              35 - lastCardWithMusic)
        << "the melody goes on after it was switched off";
}

}  // namespace
}  // namespace test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
