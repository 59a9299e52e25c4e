// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// A whole hand on real windows; what is heard of it goes into a file and is measured.

#include <gtest/gtest.h>

#include <QApplication>
#include <filesystem>
#include <string>
#include <vector>

#include "../sound/recording.h"
#include "game/event_table.h"
#include "state/state.h"
#include "tools/robot.h"
#include "tools/scripted_desktop.h"

namespace test {
namespace {

// A stroke of the melody is on the left, dry, with silence up to half a second. So the right side
// holds the cards, and what the sides differ by is the melody.
const Listening toCards{.loud = 6000, .rest = 50, .left = 0, .right = 1};
const Listening toMelody{.loud = 500, .rest = 50, .left = 1, .right = -1};

/// Plays a hand, slowly enough for the ear, with music up to a card.
class HeardDesktop : public ScriptedDesktop {
public:
    explicit HeardDesktop(int lastCardWithMusic) : lastCardWithMusic_(lastCardWithMusic) {
        settings = "1,3,100";  // the first melody, the highest speed
        attach(g_);
        time.user = [this](double until) { return robot_.act(until); };
        g_.watch = [this](Moment now) { see(now); };
        runProgram(g_);
    }
    std::string programFolder() override { return "."; }

private:
    void see(Moment now) {
        if (now == Moment::dealt) {
            EXPECT_TRUE(await("the melody to end once", [this] { return !g_.queue.empty(); }));
            EXPECT_TRUE(await("it to be heard", [] { return onsets(toMelody).size() >= 2; }));
        }
        if (now == Moment::scored) throw EndProgram{};
        if (now == Moment::decided) hearCard();
    }
    /// And a rest after it, so that cards can be told apart.
    void hearCard() {
        EXPECT_TRUE(await("the end of a card's sound",
                          [this] { return g_.MMCw.state != MMControl::State::playing; }));
        const int until = Studio::asked() + rate / 10;
        EXPECT_TRUE(await("the device to go on", [&] { return Studio::asked() >= until; }));
        if (++cards_ == lastCardWithMusic_) g_.queue.push_back({Source::canzoni, Verb::Click, 0});
    }
    static testing::AssertionResult await(const std::string& what,
                                          const std::function<bool()>& isSo) {
        return waitFor(what, isSo, [] { QCoreApplication::processEvents(); });
    }

    Game g_{*this, eventTable()};
    Robot robot_{g_, 7};
    int cards_ = 0, lastCardWithMusic_;
};

TEST(HeardHand, HasEachCardAndTheMelodyUntilItIsSwitchedOff) {
    if (!canPlay()) GTEST_SKIP() << "SDL2_mixer is not installed";
    const Studio studio;
    constexpr std::size_t lastCardWithMusic = 24;
    put("carta.wav", clickingWave(20));
    std::filesystem::create_directory("music");
    put("music/Humanoid.mid", midiFile(std::string("\0\xB0\x0A\0\0\x5B\0\0\x5D\0", 10) +
                                       std::string("\0\x90\x3C\x60\x14\x80\x3C\0\x87\x54", 10)));
    { const HeardDesktop desktop(lastCardWithMusic); }
    const std::vector<int> knocks = onsets(toCards), strokes = onsets(toMelody);
    ASSERT_EQ(knocks.size(), 36u) << "one for each card played";
    ASSERT_GE(strokes.size(), 6u) << "of the melody";
    EXPECT_LT(strokes[1], knocks[0]) << "the melody begins before the first card";
    for (std::size_t i = 1; i < strokes.size(); ++i)
        EXPECT_NEAR(strokes[i] - strokes[i - 1], rate / 2.0, rate / 100.0) << "repeat " << i;
    EXPECT_GT(strokes.back(), knocks[lastCardWithMusic - 1] - rate / 2)
        << "the melody stops before it is switched off";
    const int lastOfMelody = onsets({.loud = 1, .rest = 0, .left = 1, .right = -1}).back();
    EXPECT_LT(lastOfMelody, knocks[lastCardWithMusic] + rate / 20)
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
