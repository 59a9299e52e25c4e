// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// What is played goes into a file of raw samples here instead of a loudspeaker, and is measured.

#include <SDL.h>
#include <SDL_mixer.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLibrary>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <vector>

#include "game/event_table.h"
#include "platform/qt/sdl_player.h"
#include "platform/qt/sound_files.h"
#include "platform/qt/sound_worker.h"
#include "state/state.h"
#include "tools/robot.h"
#include "tools/scripted_desktop.h"

namespace {

constexpr int rate = 44100;
constexpr auto wave = DeviceType::WaveAudio, melody = DeviceType::Sequencer;

/// False when that has not come true in so many milliseconds.
bool pump(int duration, const std::function<bool()>& done = nullptr) {
    QElapsedTimer clock;
    for (clock.start(); !(done && done()) && clock.elapsed() < duration; QThread::msleep(2))
        QCoreApplication::processEvents();
    return done && done();
}

// Melodies of one track of 23 bytes. Two ticks are a millisecond.
const QByteArray head("MThd\0\0\0\6\0\0\0\1\1\xF4MTrk\0\0\0\x17\0\xFF\x51\x03\x03\xD0\x90", 29);
/// An organ's note of half a second that sounds up to the end.
const QByteArray organ = head + QByteArray("\0\xC0\x13\0\x90<d\x87g\x80<\0\1\xFF/\0", 16);
/// A woodblock's stroke, then silence up to 0.7 seconds.
const QByteArray stroke = head + QByteArray("\0\xC9\0\0\x99L\x7F<\x89L\0\x8A<\xFF/\0", 16);

const QByteArray riff("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0D\xAC\0\0\x88X\1\0\2\0\x10\0", 36);
/// Loud for five milliseconds at both ends. The header promises more than there is.
QByteArray click(int milliseconds) {
    const QByteArray loud = QByteArray("\x20\x4E", 2).repeated(rate / 200);
    const QByteArray soft(2 * rate / 1000 * (milliseconds - 10), '\1');
    return riff + QByteArray("data\xFF\xFF\0\0", 8) + loud + soft + loud;
}

void put(const char* name, const QByteArray& content) {
    QFile file(QString::fromLatin1(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

/// Where a loud sound begins after a rest of so many milliseconds, as the sides are mixed; complete
/// once the device is closed.
std::vector<int> onsets(int loud, int rest = 4, int left = 1, int right = 0) {
    QFile file(QStringLiteral("heard"));
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const auto* sides = reinterpret_cast<const std::int16_t*>(bytes.constData());
    std::vector<int> found;
    for (int i = 0, last = -rate; i < bytes.size() / 4; ++i, sides += 2) {
        if (std::abs(left * sides[0] + right * sides[1]) < loud) continue;
        if (i - last > rate * rest / 1000) found.push_back(i);
        last = i;
    }
    return found;
}

template <class Function>
Function* loaded(const char* library, const char* name) {  // or has yet to be
    return reinterpret_cast<Function*>(QLibrary(QLatin1String(library), 0).resolve(name));
}

auto threads() {
    return QDir(QStringLiteral("/proc/self/task")).entryList().size();
}

struct Counted : SdlPlayer {
    Counted(DeviceType type, const char* name) : SdlPlayer(type) {
        ended = [this] { (position() == length() ? ends : failures) += 1; };
        EXPECT_TRUE(open(name));
    }
    bool playsTo(const int& counter) {  // one of these two
        const int wanted = counter + 1;
        play(0);
        return pump(4000, [&] { return counter == wanted; });
    }
    int ends = 0, failures = 0;
};

/// A folder of its own for each test; the device writes to a file in it while it is open.
class Sound : public testing::Test {
    void SetUp() override {
        if (findSoundFont("").isEmpty()) GTEST_SKIP() << "no sound font is installed";
        QDir::setCurrent(folder_.path());
        put("carta.wav", click(100));
        put("long.wav", click(300));
        put("organ.mid", organ);
        put("stroke.mid", stroke);
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", "heard");
    }
    QTemporaryDir folder_;
};

std::atomic<int> asked = 0, askedAtOnce = 0;  ///< by the device, in samples of one side

TEST_F(Sound, EachPlayIsHeardAtOnceAlsoInTheMiddleOfTheLast) {
    const auto count = [](void*, Uint8*, int bytes) { asked += askedAtOnce = bytes / 4; };
    loaded<decltype(Mix_SetPostMix)>("SDL2_mixer-2.0", "Mix_SetPostMix")(count, nullptr);
    std::vector<int> plays, delays;
    {
        Counted card(wave, "long.wav");
        for (asked = 0; plays.size() < 6; pump(67)) {
            plays.push_back(asked);
            card.play(0);
        }
        ASSERT_TRUE(pump(4000, [&] { return card.ends == 1; }));
    }
    const std::vector<int> clicks = onsets(8000);
    ASSERT_EQ(clicks.size(), 7u);
    for (std::size_t i = 0; i < 6; ++i) delays.push_back(clicks[i] - plays[i]);
    std::ranges::sort(delays);
    // A device has two of its buffers before it. The machine may be slow to begin once or twice.
    EXPECT_LT(delays[3] + 2 * askedAtOnce, rate / 20);
    EXPECT_NEAR(clicks[6] - clicks[5], rate * 295 / 1000, rate / 200);
}

TEST_F(Sound, WithNothingToPlayNoDeviceIsOpened) {
    const auto before = threads();
    put("empty.mid", "");
    ASSERT_TRUE(QDir().mkdir(QStringLiteral("folder.mid")));
    Counted card(wave, "CARTA.Wav"), music(melody, "organ.mid");
    for (const char* name : {"missing.mid", "empty.mid", "folder.mid", "none/organ.mid"})
        EXPECT_FALSE(music.open(name)) << name;
    music.play(0);
    pump(50);
    EXPECT_EQ(threads(), before);
    put("Carta.WAV", "another");
    for (const char* name : {"Carta.WAV", "carta.wav"})
        EXPECT_EQ(findSoundFile(QLatin1String(name)), QLatin1String(name));
}

TEST_F(Sound, ADamagedOrEnormousFileFailsInSilenceAndTheNextIsHeard) {
    put("damaged.wav", click(100).replace("fmt ", "tmf "));
    put("enormous.wav", click(100) + QByteArray(5 << 20, '\1'));
    put("damaged.mid", organ.chopped(1));
    {
        Counted card(wave, "carta.wav"), music(melody, "damaged.mid");
        EXPECT_TRUE(card.playsTo(card.ends) && music.playsTo(music.failures));
        for (const char* name : {"damaged.wav", "enormous.wav", "organ.mid"})
            EXPECT_TRUE(card.open(name) && card.playsTo(card.failures)) << name;
        EXPECT_TRUE(card.open("carta.wav") && card.playsTo(card.ends));
    }
    EXPECT_EQ(onsets(8000).size(), 4u);
    for (int i = 0; i < organ.size(); ++i) EXPECT_FALSE(melodySeconds(organ.left(i))) << i;
}

TEST_F(Sound, WhatIsClosedReportsNothingMore) {
    {
        Counted music(melody, "stroke.mid"), card(wave, "carta.wav");
        music.play(0);
        music.close();
        card.play(0);
        QThread::msleep(250);
        card.close();
        pump(100);
        EXPECT_EQ(music.ends + music.failures + card.ends + card.failures, 0);
    }
    EXPECT_EQ(onsets(600).size(), 2u);
}

TEST_F(Sound, ALostOrMissingDeviceIsReportedAndTriedAgain) {
    qputenv("SDL_AUDIODRIVER", "nosuchdevice");
    Counted music(melody, "organ.mid"), card(wave, "carta.wav");
    EXPECT_TRUE(music.playsTo(music.failures) && card.playsTo(card.failures));
    qputenv("SDL_AUDIODRIVER", "disk");
    EXPECT_TRUE(card.playsTo(card.ends) && card.open("long.wav"));
    // A pipe that nobody writes to stands for a disk that takes its time.
    ASSERT_TRUE(unlink("organ.mid") == 0 && mkfifo("organ.mid", 0600) == 0);
    card.play(0);
    music.play(0);
    pump(60);
    SDL_Event loss{.adevice = {SDL_AUDIODEVICEREMOVED, 0, 2, false, 0, 0, 0}};
    loaded<decltype(SDL_PushEvent)>("SDL2-2.0", "SDL_PushEvent")(&loss);
    close(open("organ.mid", O_WRONLY));
    EXPECT_TRUE(pump(4000, [&] { return music.failures == 2 && card.failures == 2; }));
    EXPECT_TRUE(card.playsTo(card.ends));
}

TEST_F(Sound, SilenceClosesTheDeviceAndWakesNoThread) {
    const auto before = threads();
    std::atomic<int> ends = 0;
    SoundWorker worker({.silence = std::chrono::milliseconds(150), .end = {}});
    for (const int n : {1, 2, 3}) {
        const QString file = n == 2 ? QStringLiteral("stroke.mid") : QStringLiteral("carta.wav");
        const auto count = [&](bool atEnd) { ends += atEnd; };
        worker.wish(n == 2 ? melody : wave,
                    {std::uint64_t(n), file, false, SoundClock::now(), count});
        EXPECT_TRUE(pump(4000, [&] { return ends == n; }));
        EXPECT_GT(threads(), before + 1);
        EXPECT_TRUE(pump(4000, [&] { return threads() == before + 1; }));
    }
}

TEST_F(Sound, OnlyTheLastMelodyIsHeardWithoutAGapAndOverAgainWhenAsked) {
    {
        Counted music(melody, "organ.mid");
        for (const char* name : {"stroke.mid", "organ.mid", "stroke.mid"})
            music.play(0), pump(5), music.open(name);
        ASSERT_TRUE(music.playsTo(music.ends));
        QThread::msleep(200);  // a late answer disturbs nothing
        ASSERT_TRUE(music.playsTo(music.ends));
        music.play(0);
        EXPECT_EQ(music.position(), 0);
        pump(60);
        ASSERT_TRUE(music.playsTo(music.ends));
        pump(60);
    }
    const std::vector<int> strokes = onsets(600);
    ASSERT_EQ(strokes.size(), 5u);
    for (const std::size_t i : {1u, 2u, 4u})
        EXPECT_NEAR(strokes[i] - strokes[i - 1], rate * 7 / 10, rate / 100) << i;
    EXPECT_LT(strokes[3] - strokes[2], rate * 68 / 100);
}

TEST_F(Sound, PlayersMayGoWhateverIsBeingRead) {
    Counted(melody, "organ.mid").play(0);
    {
        Counted music(melody, "organ.mid"), card(wave, "carta.wav");
        ASSERT_TRUE(unlink("organ.mid") == 0 && mkfifo("organ.mid", 0600) == 0);
        music.play(0);
        pump(50);
        EXPECT_TRUE(card.playsTo(card.ends));
    }  // for ever, if that waited for the file
    close(open("organ.mid", O_WRONLY));
    Counted card(wave, "carta.wav");
    EXPECT_TRUE(card.playsTo(card.ends));
}

/// Plays a hand on real windows, slowly enough for the ear, with music up to a card.
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
        // The music has begun, and come to its end, before the first card.
        if (now == Moment::dealt) pump(4000, [this] { return !g_.queue.empty(); });
        if (now == Moment::scored) throw EndProgram{};
        if (now != Moment::decided) return;
        pump(120);
        if (++cards_ == lastCardWithMusic_) g_.queue.push_back({Source::canzoni, Verb::Click, 0});
    }

    Game g_{*this, eventTable()};
    Robot robot_{g_, 7};
    int cards_ = 0, lastCardWithMusic_;
};

TEST_F(Sound, AWholeHandIsHeard) {
    constexpr std::size_t lastCardWithMusic = 24;
    put("carta.wav", click(20));
    // A stroke of the woodblock on the left, dry, and silence up to half a second. So the right
    // side holds the cards, and what the sides differ by is the melody.
    ASSERT_TRUE(QDir().mkdir(QStringLiteral("music")));
    put("music/Humanoid.mid",
        QByteArray("MThd\0\0\0\6\0\0\0\1\1\xF4MTrk\0\0\0\x1D", 22) +
            QByteArray("\0\xFF\x51\x03\x07\xA1\x20\0\xB9\x0A\0\0\x5B\0\0\x5D\0", 17) +
            QByteArray("\0\x99\x4C\x60\x3C\x4C\0\x83\x38\xFF\x2F\0", 12));
    { const HeardDesktop desktop(lastCardWithMusic); }
    const std::vector<int> knocks = onsets(6000, 50, 0, 1), strokes = onsets(500, 50, 1, -1);
    ASSERT_EQ(knocks.size(), 36u);
    ASSERT_GE(strokes.size(), 6u);
    EXPECT_LT(strokes[1], knocks[0]);
    for (std::size_t i = 1; i < strokes.size(); ++i)
        EXPECT_NEAR(strokes[i] - strokes[i - 1], rate / 2.0, rate / 100.0);
    // "None" came with a card: music up to it, no more of it some milliseconds after the next one.
    EXPECT_GT(strokes.back(), knocks[lastCardWithMusic - 1] - rate / 2);
    EXPECT_LT(onsets(1, 0, 1, -1).back(), knocks[lastCardWithMusic] + rate / 20);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
