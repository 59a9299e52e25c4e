// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// What is played goes into a file of raw samples here instead of a loudspeaker, and is measured.

#include <SDL_mixer.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLibrary>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <vector>

#include "platform/qt/sdl_player.h"
#include "platform/qt/sound_files.h"
#include "platform/qt/sound_worker.h"

namespace {

constexpr int rate = 44100;
constexpr auto wave = DeviceType::WaveAudio, melody = DeviceType::Sequencer;

/// False when that has not come true in time.
bool pumpUntil(const std::function<bool()>& done, int milliseconds = 4000) {
    QElapsedTimer clock;
    for (clock.start(); !done() && clock.elapsed() < milliseconds; QThread::msleep(2))
        QCoreApplication::processEvents();
    return done();
}

void pump(int milliseconds) {
    pumpUntil([] { return false; }, milliseconds);
}

QByteArray number(int value, int bytes) {
    QByteArray text;
    while (bytes-- > 0) text.push_back(static_cast<char>(value >> 8 * bytes));
    return text;
}

/// Two ticks are a millisecond; `track` holds events with their times.
QByteArray midi(const char* track, int bytes) {
    const QByteArray tempo("\0\xFF\x51\x03\x03\xD0\x90", 7);
    return "MThd" + number(6, 4) + number(0, 2) + number(1, 2) + number(500, 2) + "MTrk" +
           number(7 + bytes, 4) + tempo + QByteArray(track, bytes);
}

/// An organ's note of half a second that sounds up to the end.
const QByteArray organ = midi("\0\xC0\x13\0\x90\x3C\x64\x87\x67\x80\x3C\0\1\xFF\x2F\0", 16);
/// A woodblock's stroke, then silence up to half a second or to two.
const QByteArray stroke = midi("\0\x99\x4C\x7F\x3C\x89\x4C\0\x87\x2C\xFF\x2F\0", 13);
const QByteArray slow = midi("\0\x99\x4C\x7F\x3C\x89\x4C\0\x9E\x64\xFF\x2F\0", 13);

/// Loud for five milliseconds, then just to be heard.
QByteArray click(int milliseconds) {
    constexpr char header[] = "WAVEfmt \x10\0\0\0\1\0\1\0\x44\xAC\0\0\x88\x58\1\0\2\0\x10\0data";
    QByteArray samples;
    for (int i = 0; i < rate / 1000 * milliseconds; ++i)
        samples += i < rate / 200 ? QByteArray("\x20\x4E", 2) : QByteArray("\xD0\x07", 2);
    // The length of all is not looked at.
    QByteArray size = number(static_cast<int>(samples.size()), 4);
    std::ranges::reverse(size);
    return "RIFF" + number(0, 4) + QByteArray(header, sizeof header - 1) + size + samples;
}

/// Of one of the libraries that the player has loaded.
template <class Function>
Function* inLibrary(const char* library, const char* name) {
    return reinterpret_cast<Function*>(QLibrary(QLatin1String(library), 0).resolve(name));
}

bool melodySounds() {
    return inLibrary<decltype(Mix_PlayingMusic)>("SDL2_mixer-2.0", "Mix_PlayingMusic")() != 0;
}

void loseDevice() {
    SDL_Event loss{};
    loss.type = SDL_AUDIODEVICEREMOVED;
    loss.adevice.which = 2;
    inLibrary<decltype(SDL_PushEvent)>("SDL2-2.0", "SDL_PushEvent")(&loss);
}

/// How much has been handed to the device, in samples of one side.
std::atomic<int> handedOver = 0;
void count(void*, Uint8*, int bytes) {
    handedOver += bytes / 4;
}

auto threads() {
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs).size();
}

/// A folder of its own for each test; the device writes to a file in it while it is open.
struct Sound : testing::Test {
    Sound() {
        put("carta.wav", click(100));
        put("long.wav", click(300));
        put("organ.mid", organ);
        put("stroke.mid", stroke);
        put("slow.mid", slow);
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(path("heard")));
    }

    void put(const char* name, const QByteArray& content) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    /// The samples of the left side; complete once the device has been closed.
    std::vector<int> heard() const {
        QFile file(path("heard"));
        std::vector<int> samples;
        if (!file.open(QIODevice::ReadOnly)) return samples;
        const QByteArray bytes = file.readAll();
        for (qsizetype i = 0; i + 3 < bytes.size(); i += 4)
            samples.push_back(static_cast<std::uint8_t>(bytes[i]) | bytes[i + 1] * 256);
        return samples;
    }

    /// Where a loud sound begins after 4 milliseconds without one.
    std::vector<int> onsets(int loud) const {
        std::vector<int> found;
        int last = -rate, now = 0;
        for (const int sample : heard()) {
            if (std::abs(sample) >= loud && now - last > rate / 250) found.push_back(now);
            if (std::abs(sample) >= loud) last = now;
            ++now;
        }
        return found;
    }

    QTemporaryDir folder;
};

/// A player that counts what it reports.
struct Counted : SdlPlayer {
    Counted(const Sound& sound, DeviceType type, const char* name)
        : SdlPlayer(type), sound_(sound) {
        ended = [this] { (position() == length() ? ends : failures) += 1; };
        EXPECT_TRUE(find(name));
    }
    bool find(const char* name) { return open(sound_.path(name).toStdString()); }
    /// False when it does not end in the way that `counter` counts.
    bool playsTo(int Counted::*counter) {
        const int before = ends + failures, wanted = this->*counter + 1;
        play(0);
        return pumpUntil([&] { return ends + failures > before; }) && this->*counter == wanted;
    }
    int ends = 0, failures = 0;

private:
    const Sound& sound_;
};
constexpr auto toEnd = &Counted::ends, toFailure = &Counted::failures;

/// For those tests that play melodies.
struct Music : Sound {
    void SetUp() override {
        if (findSoundFont(nullptr).isEmpty()) GTEST_SKIP() << "no sound font is installed";
    }
    /// A pipe that nobody writes to stands for a disk that takes its time.
    void block(const char* name) const {
        ASSERT_TRUE(QFile::remove(path(name)));
        ASSERT_EQ(mkfifo(QFile::encodeName(path(name)), 0600), 0);
    }
    void release(const char* name) const {
        close(::open(QFile::encodeName(path(name)), O_WRONLY));
    }
};

TEST_F(Sound, EachPlayIsHeardAtOnceAlsoInTheMiddleOfTheLast) {
    std::vector<int> asked{0};
    {
        Counted card(*this, wave, "long.wav");
        ASSERT_TRUE(card.playsTo(toEnd));
        handedOver = 0;
        inLibrary<decltype(Mix_SetPostMix)>("SDL2_mixer-2.0", "Mix_SetPostMix")(count, nullptr);
        for (int i = 0; i < 6; ++i) {
            asked.push_back(handedOver);
            card.play(0);
            pump(i < 5 ? 67 : 0);
        }
        ASSERT_TRUE(pumpUntil([&] { return card.ends == 2; }));
        EXPECT_EQ(card.failures, 0);
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
