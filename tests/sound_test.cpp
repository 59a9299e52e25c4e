// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// What is played goes into a file of raw samples here instead of a loudspeaker, and is measured.

#include <SDL.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLibrary>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

#if defined(Q_OS_UNIX)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "platform/qt/sdl_player.h"
#include "platform/qt/sound_files.h"
#include "platform/qt/sound_worker.h"

namespace {

constexpr int rate = 44100;
using Samples = std::vector<int>;  ///< of the left side

void pump(int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    do {
        QCoreApplication::processEvents();
        QThread::msleep(2);
    } while (clock.elapsed() < milliseconds);
}

/// False when that has not come true within four seconds.
bool pumpUntil(const std::function<bool()>& done) {
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 4000) pump(2);
    return done();
}

QByteArray number(std::uint32_t value, int bytes) {
    QByteArray text;
    for (int i = bytes - 1; i >= 0; --i) text.push_back(static_cast<char>(value >> 8 * i));
    return text;
}

/// A quarter note of 240 ticks lasts a quarter of a second; `track` holds events with their times.
QByteArray midi(const QByteArray& track) {
    const QByteArray tempo("\0\xFF\x51\x03\x03\xD0\x90", 7);
    const QByteArray body = tempo + track;
    return "MThd" + number(6, 4) + number(0, 2) + number(1, 2) + number(240, 2) + "MTrk" +
           number(static_cast<std::uint32_t>(body.size()), 4) + body;
}

/// An organ's note of half a second that sounds up to the end.
QByteArray organ() {
    return midi(QByteArray("\0\xC0\x13\0\x90\x3C\x64\x83\x5F\x80\x3C\0\1\xFF\x2F\0", 16));
}

/// A woodblock's stroke, then silence up to half a second.
QByteArray stroke() {
    return midi(QByteArray("\0\x99\x4C\x7F\x3C\x89\x4C\0\x83\x24\xFF\x2F\0", 13));
}

/// The same up to two seconds.
QByteArray slowStroke() {
    return midi(QByteArray("\0\x99\x4C\x7F\x3C\x89\x4C\0\x8E\x44\xFF\x2F\0", 13));
}

QByteArray leastFirst(std::uint32_t value, int bytes) {
    QByteArray text = number(value, bytes);
    std::reverse(text.begin(), text.end());
    return text;
}

/// Loud for five milliseconds, then just to be heard.
QByteArray click(int milliseconds) {
    QByteArray samples;
    for (int i = 0; i < rate / 1000 * milliseconds; ++i)
        samples += leastFirst(static_cast<std::uint32_t>(i < rate / 200 ? 20000 : 2000), 2);
    const auto size = static_cast<std::uint32_t>(samples.size());
    return "RIFF" + leastFirst(36 + size, 4) + "WAVEfmt " + leastFirst(16, 4) + leastFirst(1, 2) +
           leastFirst(1, 2) + leastFirst(rate, 4) + leastFirst(rate * 2, 4) + leastFirst(2, 2) +
           leastFirst(16, 2) + "data" + leastFirst(size, 4) + samples;
}

/// Where a loud sound begins after 4 milliseconds without one.
std::vector<int> onsets(const Samples& samples, int loud) {
    std::vector<int> found;
    int last = -rate;
    for (int i = 0; i < static_cast<int>(samples.size()); ++i) {
        if (std::abs(samples[static_cast<std::size_t>(i)]) < loud) continue;
        if (i - last > rate / 250) found.push_back(i);
        last = i;
    }
    return found;
}

struct Stretch {
    int length = 0, longestGap = 0;
};

/// From the first to the last sample that is so loud, and what is longest without one between.
Stretch stretch(const Samples& samples, int loud) {
    Stretch found;
    int first = -1, last = -1;
    for (int i = 0; i < static_cast<int>(samples.size()); ++i) {
        if (std::abs(samples[static_cast<std::size_t>(i)]) < loud) continue;
        if (first < 0) first = last = i;
        found = {i - first, std::max(found.longestGap, i - last)};
        last = i;
    }
    return found;
}

int threads() {
    return static_cast<int>(QDir(QStringLiteral("/proc/self/task"))
                                .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                                .size());
}

/// A folder of its own for each test; the device writes to a file in it while it is open.
class Sound : public testing::Test {
protected:
    Sound() {
        put("carta.wav", click(100));
        put("long.wav", click(300));
        put("organ.mid", organ());
        put("stroke.mid", stroke());
        put("slow.mid", slowStroke());
        useDevice("disk");
        speed(false);
        qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(path("heard")));
    }

    void put(const char* name, const QByteArray& content) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    std::string file(const char* name) const { return path(name).toStdString(); }
    static void useDevice(const char* name) { qputenv("SDL_AUDIODRIVER", name); }
    /// About ten times faster than it is heard, or as fast.
    static void speed(bool fast) {
        if (fast)
            qputenv("SDL_DISKAUDIODELAY", "1");
        else
            qunsetenv("SDL_DISKAUDIODELAY");
    }

    /// The file of samples is complete once the device has been closed.
    Samples heard() const {
        QFile file(path("heard"));
        if (!file.open(QIODevice::ReadOnly)) return {};
        const QByteArray bytes = file.readAll();
        Samples samples(static_cast<std::size_t>(bytes.size() / 4));
        for (std::size_t i = 0; i < samples.size(); ++i) {
            std::int16_t sample = 0;
            std::memcpy(&sample, bytes.constData() + 4 * i, 2);
            samples[i] = sample;
        }
        return samples;
    }

    bool deviceOpened() const { return QFile::exists(path("heard")); }

private:
    QTemporaryDir folder_;
};

bool melodySounds() {
    QLibrary mixer(QStringLiteral("SDL2_mixer-2.0"), 0);
    const auto playing = reinterpret_cast<int (*)()>(mixer.resolve("Mix_PlayingMusic"));
    return playing && playing() != 0;
}

void loseDevice() {
    QLibrary sdl(QStringLiteral("SDL2-2.0"), 0);
    const auto push = reinterpret_cast<decltype(&SDL_PushEvent)>(sdl.resolve("SDL_PushEvent"));
    ASSERT_TRUE(push);
    SDL_Event loss{};
    loss.type = SDL_AUDIODEVICEREMOVED;
    loss.adevice.which = 2;
    push(&loss);
}

/// A player that counts what it reports.
struct Counted : SdlPlayer {
    explicit Counted(DeviceType type) : SdlPlayer(type) {
        ended = [this] { (position() == length() ? ends : failures) += 1; };
    }
    int ends = 0, failures = 0;
};

/// For those tests that play melodies.
class Music : public Sound {
protected:
    void SetUp() override {
        if (findSoundFont(nullptr).isEmpty()) GTEST_SKIP() << "no sound font is installed";
    }
};

TEST_F(Sound, EachPlayIsHeardAlsoInTheMiddleOfTheLast) {
    {
        Counted card(DeviceType::WaveAudio);
        ASSERT_TRUE(card.open(file("long.wav")));
        card.play(0);
        ASSERT_TRUE(pumpUntil([&] { return card.ends == 1; }));
        card.play(0);
        pump(100);
        card.play(0);
        ASSERT_TRUE(pumpUntil([&] { return card.ends == 2; }));
        EXPECT_EQ(card.failures, 0);
    }
    const Samples samples = heard();
    const std::vector<int> clicks = onsets(samples, 8000);
    ASSERT_EQ(clicks.size(), 3u);
    const int inTheMiddle = clicks[2] - clicks[1];
    EXPECT_GT(inTheMiddle, rate / 50);
    EXPECT_LT(inTheMiddle, rate * 3 / 10);
    const int whole = static_cast<int>(std::ranges::count_if(
        samples.begin() + clicks[2], samples.end(), [](int value) { return value > 900; }));
    EXPECT_NEAR(whole, rate * 3 / 10, rate / 200);
}

TEST_F(Sound, NoDeviceIsOpenedBeforeTheFirstPlay) {
    const int before = threads();
    SdlPlayer melody(DeviceType::Sequencer), card(DeviceType::WaveAudio);
    EXPECT_TRUE(melody.open(file("organ.mid")));
    EXPECT_TRUE(card.open(file("carta.wav")));
    pump(50);
    EXPECT_FALSE(deviceOpened());
    EXPECT_EQ(threads(), before);
}

TEST_F(Sound, NamesAreFoundInAnyCaseOfLetters) {
    SdlPlayer card(DeviceType::WaveAudio);
    EXPECT_TRUE(card.open(file("CARTA.Wav")));
    EXPECT_EQ(card.length(), 1);
    EXPECT_EQ(card.position(), 0);
    put("Carta.WAV", "another");
    EXPECT_EQ(findSoundFile(path("Carta.WAV")), path("Carta.WAV"));
    EXPECT_EQ(findSoundFile(path("carta.wav")), path("carta.wav"));
}

TEST_F(Sound, ThereIsNothingToPlayInAMissingOrEmptyFile) {
    put("empty.mid", "");
    ASSERT_TRUE(QDir().mkdir(path("folder.mid")));
    SdlPlayer melody(DeviceType::Sequencer);
    for (const char* name : {"missing.mid", "empty.mid", "folder.mid", "none/organ.mid"})
        EXPECT_FALSE(melody.open(file(name))) << name;
    melody.play(0);
    EXPECT_EQ(melody.length(), 0);
    pump(30);
    EXPECT_FALSE(deviceOpened());
}

TEST_F(Sound, ADamagedFileFailsInSilenceAndTheNextIsHeard) {
    put("damaged.wav", click(100).replace("fmt ", "tmf "));
    put("enormous.wav", click(100) + QByteArray(5 << 20, '\1'));
    {
        Counted card(DeviceType::WaveAudio);
        ASSERT_TRUE(card.open(file("carta.wav")));
        card.play(0);
        ASSERT_TRUE(pumpUntil([&] { return card.ends == 1; }));
        for (const char* name : {"damaged.wav", "enormous.wav", "organ.mid"}) {
            const int before = card.failures;
            ASSERT_TRUE(card.open(file(name)));
            card.play(0);
            EXPECT_TRUE(pumpUntil([&] { return card.failures == before + 1; })) << name;
        }
        card.open(file("carta.wav"));
        card.play(0);
        EXPECT_TRUE(pumpUntil([&] { return card.ends == 2; }));
    }
    EXPECT_EQ(onsets(heard(), 8000).size(), 2u);
}

TEST_F(Sound, AnEndThatACommandHasOvertakenIsNotReported) {
    Counted card(DeviceType::WaveAudio);
    ASSERT_TRUE(card.open(file("carta.wav")));
    card.play(0);
    QThread::msleep(250);
    card.close();
    pump(30);
    EXPECT_EQ(card.ends + card.failures, 0);
    EXPECT_EQ(card.position(), 0);
}

TEST_F(Sound, WithoutADeviceEachPlayFailsAndTriesAgain) {
    useDevice("nosuchdevice");
    Counted melody(DeviceType::Sequencer), card(DeviceType::WaveAudio);
    ASSERT_TRUE(melody.open(file("organ.mid")) && card.open(file("carta.wav")));
    melody.play(0);
    card.play(0);
    ASSERT_TRUE(pumpUntil([&] { return melody.failures == 1 && card.failures == 1; }));
    useDevice("disk");
    card.play(0);
    ASSERT_TRUE(pumpUntil([&] { return card.ends == 1; }));
    EXPECT_EQ(card.failures, 1);
}

TEST_F(Sound, ALostDeviceIsReportedAndOpenedAgainForTheNextSound) {
    Counted card(DeviceType::WaveAudio);
    ASSERT_TRUE(card.open(file("carta.wav")));
    card.play(0);
    ASSERT_TRUE(pumpUntil([&] { return card.ends == 1; }));
    ASSERT_TRUE(card.open(file("long.wav")));
    card.play(0);
    pump(60);
    loseDevice();
    ASSERT_TRUE(pumpUntil([&] { return card.failures == 1; }));
    card.play(0);
    EXPECT_TRUE(pumpUntil([&] { return card.ends == 2; }));
}

TEST_F(Sound, SilenceClosesTheDeviceAndWakesNoThread) {
    const int before = threads();
    std::atomic<int> ends = 0;
    SoundWorker worker({.silence = std::chrono::milliseconds(150)});
    const auto play = [&](std::uint64_t number) {
        worker.wish(DeviceType::WaveAudio, {number, path("carta.wav"), false, SoundClock::now(),
                                            [&](bool atEnd) { ends += atEnd; }});
    };
    play(1);
    ASSERT_TRUE(pumpUntil([&] { return ends == 1; }));
    EXPECT_GT(threads(), before + 1);
    EXPECT_TRUE(pumpUntil([&] { return threads() == before + 1; }));
    EXPECT_EQ(onsets(heard(), 8000).size(), 1u);
    play(2);
    EXPECT_TRUE(pumpUntil([&] { return ends == 2; }));
}

TEST_F(Music, AMelodyRepeatsWithoutAGapAndTellsItsEnd) {
    speed(true);
    {
        Counted melody(DeviceType::Sequencer);
        ASSERT_TRUE(melody.open(file("organ.mid")));
        melody.play(0);
        EXPECT_NE(melody.position(), melody.length());
        ASSERT_TRUE(pumpUntil([&] { return melody.ends == 1; }));
        EXPECT_EQ(melody.position(), melody.length());
        melody.play(0);
        EXPECT_NE(melody.position(), melody.length());
    }
    const Stretch sounding = stretch(heard(), 600);
    EXPECT_GT(sounding.length, rate * 5 / 4);
    EXPECT_LT(sounding.longestGap, rate / 100);
}

TEST_F(Music, ALateAnswerToTheEndDisturbsNothing) {
    {
        Counted melody(DeviceType::Sequencer);
        ASSERT_TRUE(melody.open(file("stroke.mid")));
        melody.play(0);
        ASSERT_TRUE(pumpUntil([&] { return melody.ends == 1; }));
        QThread::msleep(200);
        melody.play(0);
        pump(300);
    }
    const std::vector<int> strokes = onsets(heard(), 1500);
    ASSERT_GE(strokes.size(), 2u);
    for (std::size_t i = 1; i < strokes.size(); ++i)
        EXPECT_NEAR(strokes[i] - strokes[i - 1], rate / 2, rate / 100);
}

TEST_F(Music, AMelodyStartsOverInTheMiddle) {
    {
        Counted melody(DeviceType::Sequencer);
        ASSERT_TRUE(melody.open(file("slow.mid")));
        melody.play(0);
        ASSERT_TRUE(pumpUntil(melodySounds));
        pump(200);
        melody.play(0);
        pump(60);
        ASSERT_TRUE(pumpUntil(melodySounds));
        pump(200);
    }
    EXPECT_EQ(onsets(heard(), 1500).size(), 2u);
}

TEST_F(Music, AMelodyThatNobodyAsksForAgainStops) {
    const SoundPatience patience{.silence = std::chrono::milliseconds(50),
                                 .end = std::chrono::milliseconds(100)};
    const int before = threads();
    std::atomic<int> ends = 0;
    SoundWorker worker(patience);
    worker.wish(DeviceType::Sequencer, {1, path("stroke.mid"), false, SoundClock::now(),
                                        [&](bool atEnd) { ends += atEnd; }});
    ASSERT_TRUE(pumpUntil([&] { return ends == 1; }));
    EXPECT_TRUE(pumpUntil([&] { return threads() == before + 1; }));
    EXPECT_EQ(ends, 1);
}

TEST_F(Music, OnlyTheLastOfAQuickSeriesIsHeard) {
    speed(true);
    {
        Counted melody(DeviceType::Sequencer);
        for (const char* name : {"organ.mid", "stroke.mid", "organ.mid", "stroke.mid"}) {
            melody.close();
            ASSERT_TRUE(melody.open(file(name)));
            melody.play(0);
        }
        ASSERT_TRUE(pumpUntil([&] { return melody.ends == 1; }));
        EXPECT_EQ(melody.failures, 0);
    }
    // Hardly anything is left of a stroke after a third of a second; the organ would go on.
    const Samples samples = heard();
    const std::vector<int> strokes = onsets(samples, 1500);
    ASSERT_FALSE(strokes.empty());
    const auto from = samples.begin() + strokes[0] + rate / 3;
    ASSERT_GT(samples.end() - from, rate / 10);
    EXPECT_LT(*std::max_element(from, from + rate / 10), 300);
}

TEST_F(Music, AMelodyClosedBeforeItWasReadyIsNeverHeard) {
    {
        Counted melody(DeviceType::Sequencer);
        ASSERT_TRUE(melody.open(file("organ.mid")));
        melody.play(0);
        melody.close();
        pump(200);
        EXPECT_EQ(melody.ends + melody.failures, 0);
    }
    EXPECT_TRUE(onsets(heard(), 100).empty());
}

TEST_F(Music, ADamagedMelodyIsNotPlayed) {
    const QByteArray good = organ();
    ASSERT_TRUE(melodySeconds(good));
    EXPECT_NEAR(*melodySeconds(good), 0.5, 0.001);
    for (int length = 0; length < good.size(); ++length)
        EXPECT_FALSE(melodySeconds(good.left(length))) << length;
    put("damaged.mid", good.left(good.size() - 1));
    Counted melody(DeviceType::Sequencer);
    ASSERT_TRUE(melody.open(file("damaged.mid")));
    melody.play(0);
    ASSERT_TRUE(pumpUntil([&] { return melody.failures == 1; }));
    EXPECT_EQ(melody.position(), 0);
}

TEST_F(Music, PlayersMayGoWhileASoundBankIsBeingRead) {
    for (const int after : {0, 3, 10, 25}) {
        Counted melody(DeviceType::Sequencer);
        ASSERT_TRUE(melody.open(file("organ.mid")));
        melody.play(0);
        QThread::msleep(static_cast<unsigned long>(after));
    }
}

#if defined(Q_OS_UNIX)
class StuckFile : public Music {
protected:
    /// A pipe that nobody writes to stands for a disk that takes its time.
    void block(const char* name) const {
        ASSERT_TRUE(QFile::remove(path(name)));
        ASSERT_EQ(mkfifo(file(name).c_str(), 0600), 0);
    }
    void release(const char* name) const { close(open(file(name).c_str(), O_WRONLY)); }
};

TEST_F(StuckFile, ADeviceMayBeLostMeanwhile) {
    Counted melody(DeviceType::Sequencer), card(DeviceType::WaveAudio);
    ASSERT_TRUE(melody.open(file("organ.mid")) && card.open(file("carta.wav")));
    block("organ.mid");
    card.play(0);
    melody.play(0);
    ASSERT_TRUE(pumpUntil([&] { return card.ends == 1; }));
    loseDevice();
    pump(20);
    release("organ.mid");
    ASSERT_TRUE(pumpUntil([&] { return melody.failures == 1; }));
    card.play(0);
    EXPECT_TRUE(pumpUntil([&] { return card.ends == 2; }));
    EXPECT_EQ(melody.failures, 1);
}

TEST_F(StuckFile, NothingWaitsForIt) {
    QElapsedTimer clock;
    {
        Counted melody(DeviceType::Sequencer), card(DeviceType::WaveAudio);
        ASSERT_TRUE(melody.open(file("organ.mid")) && card.open(file("carta.wav")));
        block("organ.mid");
        melody.play(0);
        pump(50);
        card.play(0);
        EXPECT_TRUE(pumpUntil([&] { return card.ends == 1; }));
        clock.start();
    }
    EXPECT_LT(clock.elapsed(), 800);
    release("organ.mid");
    // The thread left behind goes in its own time, and sound is to be had again.
    Counted card(DeviceType::WaveAudio);
    ASSERT_TRUE(card.open(file("carta.wav")));
    card.play(0);
    EXPECT_TRUE(pumpUntil([&] { return card.ends + card.failures == 1; }));
}
#endif

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
