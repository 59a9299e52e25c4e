// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// What is played goes into a file of raw samples here instead of a loudspeaker, and is measured.

#include <SDL.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/sound/sdl_player.h"
#include "platform/sound/shared_library.h"
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
        std::vector<std::function<void()>> tasks;
        {
            const std::lock_guard lock(mutex_);
            tasks.swap(tasks_);
        }
        for (const auto& task : tasks) task();
    }

private:
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

/// A file that takes its time: whoever reads it waits for `release`, or the end of this.
class SlowFile {
public:
    SlowFile() = default;
    ~SlowFile() { release(); }
    SlowFile(const SlowFile&) = delete;
    SlowFile& operator=(const SlowFile&) = delete;

    void replace(const char* name) {
        name_ = name;
        fs::remove(name);
        EXPECT_EQ(mkfifo(name, 0600), 0) << name << " cannot be made";
    }
    testing::AssertionResult isBeingRead() {
        return await(std::string("somebody to read ") + name_, [this] {
            writer_ = ::open(name_, O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            return writer_ >= 0;
        });
    }
    void release() {
        if (writer_ >= 0) ::close(std::exchange(writer_, -1));
    }

private:
    const char* name_ = "";
    int writer_ = -1;
};

auto threads() {
    return std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator());
}

testing::AssertionResult onlyTheseAreLeft(std::ptrdiff_t wanted) {
    return await("the threads to end", [&] { return threads() == wanted; });
}

class Sound : public testing::Test {
    void SetUp() override {
        if (!canPlay()) GTEST_SKIP() << "SDL2_mixer is not installed";
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
        CountingPlayer card(wave, "long.wav");
        ASSERT_TRUE(card.playsToItsEnd()) << "which opens the device";
        ASSERT_TRUE(heard(2, toClicks)) << "its two ends";
        for (int i = 0; i < 6; ++i) {
            plays.push_back(Studio::asked());
            card.play(0);
            ASSERT_TRUE(listenFor(67));
        }
        ASSERT_TRUE(await("the last to end", [&] { return card.ends == 2; }));
        ASSERT_TRUE(heard(9, toClicks)) << "of the first, six beginnings, the end of the last";
    }
    std::vector<int> clicks = onsets(toClicks);
    ASSERT_EQ(clicks.size(), 9u);
    clicks.erase(clicks.begin(), clicks.begin() + 2);
    EXPECT_NEAR(clicks[6] - clicks[5], rate * 295 / 1000, rate / 200) << "the last is not whole";
    int quickest = rate;
    for (std::size_t i = 0; i < plays.size(); ++i)
        quickest = std::min(quickest, clicks[i] - plays[i]);
    // A device has two of its buffers before it. A busy machine may be slow now and then.
    EXPECT_LT(quickest + 2 * Studio::askedAtOnce(), rate / 20) << "not within 50 milliseconds";
}

TEST_F(Sound, OpensNoDeviceForNothing) {
    const auto before = threads();
    put("empty.mid", "");
    fs::create_directory("folder.mid");
    CountingPlayer music(melody, "organ.mid");
    for (const char* name : {"missing.mid", "empty.mid", "folder.mid", "none/organ.mid"})
        EXPECT_FALSE(music.open(name)) << name;
    music.play(0);
    EXPECT_EQ(threads(), before) << "a thread was started for a file that is not there";
}

TEST_F(Sound, FindsAFileInAFolderOfAnyLanguage) {
    fs::create_directory("Müsica ♪");
    put("Müsica ♪/carta.wav", clickingWave(100));
    CountingPlayer card(wave, "Müsica ♪/CARTA.Wav");
    EXPECT_TRUE(card.playsToItsEnd());
}

TEST_F(Sound, FailsInSilenceOnDamagedOrEnormousFilesAndPlaysTheNext) {
    put("damaged.wav", clickingWave(100).replace(12, 4, "tmf "));
    put("enormous.wav", clickingWave(100) + std::string(5 << 20, '\1'));
    put("damaged.mid", organ.substr(0, organ.size() - 1));
    {
        CountingPlayer card(wave, "carta.wav"), music(melody, "damaged.mid");
        EXPECT_TRUE(card.playsToItsEnd());
        EXPECT_TRUE(heard(2, toClicks));
        EXPECT_TRUE(music.fails());
        for (const char* name : {"damaged.wav", "enormous.wav", "organ.mid"}) {
            EXPECT_TRUE(card.open(name));
            EXPECT_TRUE(card.fails()) << name;
        }
        EXPECT_TRUE(card.open("carta.wav"));
        EXPECT_TRUE(card.playsToItsEnd());
        EXPECT_TRUE(heard(4, toClicks));
    }
    EXPECT_EQ(onsets(toClicks).size(), 4u) << "the two ends of two good waves";
}

TEST_F(Sound, ReportsNothingOnceItIsClosed) {
    {
        CountingPlayer music(melody, "stroke.mid"), card(wave, "carta.wav");
        music.play(0);
        music.close();
        card.play(0);
        ASSERT_TRUE(waitFor(
            "the card", [] { return onsets(toAnything).size() == 2; }, [] {}));
        // The report is on its way, but has not arrived.
        ASSERT_TRUE(waitFor(
            "a report", [] { return !game.isEmpty(); }, [] {}));
        card.close();
        game.work();
        EXPECT_EQ(music.ends + music.failures, 0) << "a melody that was closed at once";
        EXPECT_EQ(card.ends + card.failures, 0) << "a card that was closed at its end";
    }
    EXPECT_EQ(onsets(toAnything).size(), 2u) << "the card alone is heard";
}

TEST_F(Sound, IsSafeWhenReportsComeAfterIt) {
    {
        CountingPlayer card(wave, "carta.wav");
        card.play(0);
        ASSERT_TRUE(waitFor(
            "a report", [] { return !game.isEmpty(); }, [] {}));
    }
    game.work();  // the sanitizer would tell
    EXPECT_TRUE(game.isEmpty());
}

TEST_F(Sound, TriesAgainWhenThereWasNoDevice) {
    setenv("SDL_AUDIODRIVER", "nosuchdevice", 1);  // NOLINT(concurrency-mt-unsafe)
    CountingPlayer music(melody, "organ.mid"), card(wave, "carta.wav");
    EXPECT_TRUE(music.fails());
    EXPECT_TRUE(card.fails());
    setenv("SDL_AUDIODRIVER", "disk", 1);  // NOLINT(concurrency-mt-unsafe)
    EXPECT_TRUE(card.playsToItsEnd());
    EXPECT_TRUE(music.playsToItsEnd());
}

TEST_F(Sound, ReportsALostDeviceAlsoWhileAMelodyIsReadAndTriesAgain) {
    put("long.wav", clickingWave(740));
    CountingPlayer music(melody, "organ.mid"), card(wave, "long.wav");
    SlowFile slow;
    slow.replace("organ.mid");
    card.play(0);
    music.play(0);
    ASSERT_TRUE(slow.isBeingRead());
    SDL_Event loss{.adevice = {SDL_AUDIODEVICEREMOVED, 0, 2, false, 0, 0, 0}};
    SharedLibrary{"SDL2-2.0"}.find<decltype(&SDL_PushEvent)>("SDL_PushEvent")(&loss);
    slow.release();
    EXPECT_TRUE(await("both to fail", [&] { return music.failures + card.failures == 2; }));
    EXPECT_TRUE(card.playsToItsEnd());
    EXPECT_TRUE(music.open("stroke.mid"));
    EXPECT_TRUE(music.playsToItsEnd());
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
    }
    const std::vector<int> strokes = onsets(toAnything);
    ASSERT_EQ(strokes.size(), 5u);
    for (const std::size_t i : {1u, 2u, 4u})
        EXPECT_NEAR(strokes[i] - strokes[i - 1], strokePlays, rate / 100) << "repeat " << i;
    EXPECT_LT(strokes[3] - strokes[2], strokePlays - rate / 50) << "it does not start over again";
}

TEST_F(Sound, PlayersMayGoWhateverIsBeingRead) {
    CountingPlayer(melody, "organ.mid").play(0);
    CountingPlayer later(wave, "carta.wav");
    SlowFile slow;
    {
        CountingPlayer music(melody, "organ.mid"), card(wave, "carta.wav");
        slow.replace("organ.mid");
        music.play(0);
        ASSERT_TRUE(slow.isBeingRead());
        EXPECT_TRUE(card.playsToItsEnd()) << "while a melody is being read";
    }  // for ever, if that waited for the file
    slow.release();
    EXPECT_TRUE(later.playsToItsEnd());
}

TEST_F(Sound, SilenceClosesTheDeviceAndEndsItsThreads) {
    const auto before = threads();
    SoundWorker worker({.silence = std::chrono::milliseconds(150), .end = {}});
    std::uint64_t number = 0;
    std::atomic<bool> atEnd = false;
    for (const auto& [type, file] : {std::pair(wave, "carta.wav"), std::pair(melody, "stroke.mid"),
                                     std::pair(wave, "carta.wav")}) {
        atEnd = false;
        worker.wish(
            type, {++number, file, false, SoundClock::now(), [&](bool played) { atEnd = played; }});
        EXPECT_TRUE(await("a sound to end", [&] { return atEnd.load(); })) << file;
        EXPECT_GT(threads(), before + 1) << "the device is still open";
        EXPECT_TRUE(onlyTheseAreLeft(before + 1)) << "the worker's own";
    }
}

}  // namespace
}  // namespace test
