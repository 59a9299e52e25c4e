// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// What is played goes into a file of raw samples here instead of a loudspeaker, and is measured.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iterator>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/sound/mixer_library.h"
#include "platform/sound/sdl_player.h"
#include "platform/sound/sound_worker.h"
#include "recording.h"

namespace fs = std::filesystem;

namespace test {
namespace {

constexpr auto wave = DeviceType::WaveAudio, melody = DeviceType::Sequencer;

// Two ticks are a millisecond: 0x87 0x68 are 500 ms, 0x8A 0x64 are 690.
const std::string organ = midiFile(std::string("\0\x90\x3C\x64\x87\x68\x80\x3C\0\1", 10));
const std::string stroke = midiFile(std::string("\0\x90\x3C\x64\x14\x80\x3C\0\x8A\x64", 10));
constexpr int strokePlays = rate * 7 / 10;  ///< samples, up to where it repeats

/// What stands for the game's thread: tasks wait here until the test does them.
class GamesThread {
public:
    void post(std::function<void()> task) {
        const std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
    }
    bool isEmpty() {
        const std::lock_guard lock(mutex_);
        return tasks_.empty();
    }
    void work() {
        for (const auto& task : takeAll()) task();
    }

private:
    std::vector<std::function<void()>> takeAll() {
        const std::lock_guard lock(mutex_);
        return std::exchange(tasks_, {});
    }

    std::mutex mutex_;
    std::vector<std::function<void()>> tasks_;
};

GamesThread game;

testing::AssertionResult await(const std::string& what, const std::function<bool()>& isSo) {
    return waitFor(what, isSo, [] { game.work(); });
}

testing::AssertionResult listenFor(int milliseconds) {
    const int until = Studio::asked() + rate * milliseconds / 1000;
    return await("the device to go on", [&] { return Studio::asked() >= until; });
}

/// A busy machine's device may be behind the clock, by which a sound's end is told.
testing::AssertionResult heard(std::size_t sounds, const Listening& listening) {
    return await(std::to_string(sounds) + " sounds to be heard",
                 [&] { return onsets(listening).size() >= sounds; });
}

constexpr Listening toClicks{.loud = 8000}, toAnything{};

/// A player with a file open that counts what it reports.
class CountingPlayer : public SdlPlayer {
public:
    CountingPlayer(DeviceType type, const char* name)
        : SdlPlayer(type, [](std::function<void()> task) { game.post(std::move(task)); }) {
        ended = [this] { (position() == length() ? ends : failures) += 1; };
        EXPECT_TRUE(open(name)) << name << " cannot be opened";
    }
    testing::AssertionResult playsToItsEnd() { return playsUntil(ends, "a sound to end"); }
    testing::AssertionResult fails() { return playsUntil(failures, "a sound to fail"); }

    int ends = 0, failures = 0;

private:
    testing::AssertionResult playsUntil(const int& counter, const char* what) {
        const int before = counter;
        play(0);
        return await(what, [&] { return counter == before + 1; });
    }
};

auto threads() {
    return std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator());
}

class Sound : public testing::Test {
    void SetUp() override {
        if (!MixerLibrary::find()) GTEST_SKIP() << "SDL2_mixer is not installed";
        put("carta.wav", clickingWave(100));
        put("long.wav", clickingWave(300));
        put("organ.mid", organ);
        put("stroke.mid", stroke);
    }
    void TearDown() override { game.work(); }

    Studio studio_;
};

TEST_F(Sound, StartsACardAtOnceAlsoInTheMiddleOfTheLast) {
    std::vector<int> plays;
    {
        CountingPlayer card(wave, "LONG.Wav");
        ASSERT_TRUE(card.playsToItsEnd()) << "which opens the device";
        for (int i = 0; i < 6; ++i) {
            ASSERT_TRUE(listenFor(67));
            plays.push_back(Studio::asked());
            card.play(0);
        }
        ASSERT_TRUE(await("the last to end", [&] { return card.ends == 2; }));
        ASSERT_TRUE(heard(9, toClicks)) << "of the first, six beginnings, the end of the last";
    }
    const std::vector<int> clicks = onsets(toClicks);
    ASSERT_EQ(clicks.size(), 9u);
    EXPECT_NEAR(clicks[8] - clicks[7], rate * 295 / 1000, rate / 200) << "the last is not whole";
    int quickest = rate;
    for (std::size_t i = 0; i < plays.size(); ++i)
        quickest = std::min(quickest, clicks[i + 2] - plays[i]);
    // A device has two of its buffers before it. A busy machine may be slow now and then.
    EXPECT_LT(quickest + 2 * Studio::askedAtOnce(), rate / 20) << "not within 50 milliseconds";
}

TEST_F(Sound, FailsOnDamagedOrEnormousFilesAndPlaysTheNext) {
    put("damaged.wav", clickingWave(100).replace(12, 4, "tmf "));
    put("enormous.wav", clickingWave(100) + std::string(5 << 20, '\1'));
    put("damaged.mid", organ.substr(0, organ.size() - 1));
    CountingPlayer card(wave, "carta.wav"), music(melody, "damaged.mid");
    EXPECT_TRUE(music.fails());
    for (const char* name : {"damaged.wav", "enormous.wav", "organ.mid"}) {
        EXPECT_TRUE(card.open(name));
        EXPECT_TRUE(card.fails()) << name;
    }
    EXPECT_TRUE(card.open("carta.wav"));
    EXPECT_TRUE(card.playsToItsEnd());
}

TEST_F(Sound, ReportsNothingOnceItIsClosedOrGone) {
    const auto waitForReport = [] {
        return waitFor("a report on its way", [] { return !game.isEmpty(); });
    };
    CountingPlayer music(melody, "stroke.mid"), card(wave, "carta.wav");
    music.play(0);
    music.close();
    card.play(0);
    ASSERT_TRUE(waitForReport());
    card.close();
    game.work();
    EXPECT_EQ(music.ends + music.failures, 0) << "a melody that was closed at once";
    EXPECT_EQ(card.ends + card.failures, 0) << "a card that was closed at its end";
    {
        CountingPlayer gone(wave, "carta.wav");
        gone.play(0);
        ASSERT_TRUE(waitForReport());
    }
    game.work();  // the sanitizer would tell
}

TEST_F(Sound, OnlyTheLastMelodyIsHeardWithoutAGapAndOverAgainWhenAsked) {
    {
        CountingPlayer music(melody, "organ.mid");
        for (const char* name : {"stroke.mid", "organ.mid", "stroke.mid"}) {
            music.play(0);
            music.open(name);
        }
        ASSERT_TRUE(music.playsToItsEnd());
        ASSERT_TRUE(listenFor(200)) << "a late answer disturbs nothing";
        ASSERT_TRUE(music.playsToItsEnd());
        music.play(0);
        EXPECT_EQ(music.position(), 0);
        ASSERT_TRUE(heard(3, toAnything));
        ASSERT_TRUE(music.playsToItsEnd()) << "though it was in the middle";
        ASSERT_TRUE(heard(5, toAnything));
        music.close();
        ASSERT_TRUE(listenFor(1000)) << "in silence";
    }
    const std::vector<int> strokes = onsets(toAnything);
    ASSERT_EQ(strokes.size(), 5u);
    for (const std::size_t i : {1u, 2u, 4u})
        EXPECT_NEAR(strokes[i] - strokes[i - 1], strokePlays, rate / 100) << "repeat " << i;
    EXPECT_LT(strokes[3] - strokes[2], strokePlays - rate / 50) << "it does not start over again";
}

TEST_F(Sound, PlayersMayGoWhateverIsBeingRead) {
    CountingPlayer later(wave, "carta.wav");
    int pipe = -1;  // in the place of a melody; who reads it waits until it is closed
    {
        CountingPlayer music(melody, "organ.mid"), card(wave, "carta.wav");
        fs::remove("organ.mid");
        ASSERT_EQ(mkfifo("organ.mid", 0600), 0);
        music.play(0);
        ASSERT_TRUE(await("the melody to be read", [&] {
            pipe = open("organ.mid", O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            return pipe >= 0;
        }));
        EXPECT_TRUE(card.playsToItsEnd()) << "while a melody is being read";
    }  // for ever, if that waited for the file
    ::close(pipe);
    EXPECT_TRUE(later.playsToItsEnd());
}

TEST_F(Sound, SilenceClosesTheDeviceAndEndsItsThreads) {
    const auto before = threads();
    SoundWorker worker({.silence = std::chrono::milliseconds(150), .end = {}});
    std::uint64_t number = 0;
    for (const auto& [type, file] : {std::pair(wave, "carta.wav"), std::pair(melody, "stroke.mid"),
                                     std::pair(wave, "carta.wav")}) {
        std::atomic<bool> atEnd = false;
        const auto report = [&](bool played) { atEnd = played; };
        worker.wish(type, {++number, file, false, SoundClock::now(), report});
        EXPECT_TRUE(await("a sound to end", [&] { return atEnd.load(); })) << file;
        EXPECT_GT(threads(), before + 1) << "the device is still open";
        EXPECT_TRUE(await("the device's threads to end", [&] { return threads() == before + 1; }));
    }
}

}  // namespace
}  // namespace test
