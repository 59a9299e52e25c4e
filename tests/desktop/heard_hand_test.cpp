// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <vector>

#include "platform/qt/sound_files.h"
#include "tools/scripted_desktop.h"

// A whole hand is played on real windows and on a sound device that is a file of raw samples. The
// melody is all on the left side, so that the right one holds the cards, and what the sides differ
// by is the melody.

namespace {

constexpr int rate = 44100, lastCardWithMusic = 24;

/// A stroke of the woodblock on the left, dry, and silence up to half a second.
void writeMelody() {
    const QByteArray header("MThd\0\0\0\6\0\0\0\1\1\xF4MTrk\0\0\0\x1D", 22);
    const QByteArray leftAndDry("\0\xFF\x51\x03\x07\xA1\x20\0\xB9\x0A\0\0\x5B\0\0\x5D\0", 17);
    const QByteArray stroke("\0\x99\x4C\x60\x3C\x4C\0\x83\x38\xFF\x2F\0", 12);
    ASSERT_TRUE(QDir().mkdir(QStringLiteral("music")));
    QFile file(QStringLiteral("music/Humanoid.mid"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(header + leftAndDry + stroke);
}

struct HeardDesktop : ScriptedDesktop {
    std::string programFolder() override { return "."; }
};

/// What is heard takes its time, whatever the game's clock reads.
void listen(int milliseconds) {
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < milliseconds; QThread::msleep(2))
        QCoreApplication::processEvents();
}

void watch(Game& g, Moment moment, void* cards) {
    int& played = *static_cast<int*>(cards);
    // The music has begun, and come to its end, before the first card.
    for (int i = 0; moment == Moment::dealt && g.queue.empty() && i < 400; ++i) listen(10);
    if (moment == Moment::scored) throw EndProgram{};
    if (moment != Moment::decided) return;
    listen(120);
    if (++played == lastCardWithMusic) g.queue.push_back({Source::canzoni, Verb::Click, 0});
}

void playHand() {
    HeardDesktop desktop;
    desktop.settings = " 1 \r\n 3 \r\n 100 \r\n";  // the first melody, the highest speed
    Game g(desktop);
    desktop.attach(g);
    Robot robot(g, 7);
    desktop.time.user = [&](double until) { return robot.act(until); };
    int cards = 0;
    g.watcher = &cards;
    g.watch = watch;
    desktop.window(g.frmscopa).resize(640, 480);
    runProgram(g);
    EXPECT_EQ(cards, 36);
}

/// Where a loud sound begins after 50 milliseconds without one.
std::vector<int> onsets(const std::vector<int>& samples, int loud) {
    std::vector<int> found;
    for (int i = 0, last = -rate; const int sample : samples) {
        if (std::abs(sample) >= loud && i - last > rate / 20) found.push_back(i);
        if (std::abs(sample) >= loud) last = i;
        ++i;
    }
    return found;
}

TEST(Hand, IsHeard) {
    if (findSoundFont("").isEmpty()) GTEST_SKIP() << "no sound font is installed";
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", "heard");
    ASSERT_TRUE(QFile::link(QStringLiteral(VELARDA_BUILD_FOLDER "/carta.wav"), "carta.wav"));
    writeMelody();
    playHand();
    QFile file(QStringLiteral("heard"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const auto* sides = reinterpret_cast<const std::int16_t*>(bytes.constData());
    std::vector<int> cards, music;
    for (qsizetype i = 0; i + 3 < bytes.size(); i += 4, sides += 2) {
        cards.push_back(sides[1]);
        music.push_back(sides[0] - sides[1]);
    }
    const std::vector<int> knocks = onsets(cards, 6000), strokes = onsets(music, 500);
    ASSERT_EQ(knocks.size(), 36u);
    ASSERT_GE(strokes.size(), 6u);
    EXPECT_LT(strokes[1], knocks[0]);
    for (std::size_t i = 1; i < strokes.size(); ++i)
        EXPECT_NEAR(strokes[i] - strokes[i - 1], rate / 2.0, rate / 100.0);
    // "None" came with a card: music up to it, no more of it some milliseconds after the next one.
    EXPECT_GT(strokes.back(), knocks[lastCardWithMusic - 1] - rate / 2);
    const auto none = music.begin() + knocks[lastCardWithMusic] + rate / 20;
    EXPECT_EQ(music.end() - none, std::count(none, music.end(), 0));
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
