// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The sound files as they were built: whether every melody can be played, looped and told apart,
// and whether they are equally loud and leave room for the sound of the card.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <map>
#include <numeric>
#include <set>
#include <span>
#include <sstream>
#include <utility>
#include <vector>

#include "platform/sound/midi_file.h"
#include "platform/sound/wave_file.h"
#include "state/melodies.h"

namespace {

namespace fs = std::filesystem;

/// The melodies of the menu, without its first entry, which is none.
const std::span<const char* const> captions = std::span(melodies).subspan(1);

const fs::path buildFolder = VELARDA_BUILD_FOLDER;

std::string contentOf(const fs::path& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

Bytes bytesOf(const std::string& text) {
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

fs::path melodyPath(const std::string& caption) {
    return buildFolder / "music" / (caption + ".mid");
}

/// What a melody is made of. Times are in ticks.
struct Melody {
    double seconds = 0;
    std::uint32_t firstNote = ~0u, lastOff = 0;
    std::uint32_t firstEnd = ~0u, end = 0;        ///< of the tracks with notes, of all
    std::set<int> channels, instruments, pedals;  ///< drum kits begin at 128; pedals still held

    /// As if the tempo did not change.
    double secondsTo(std::uint32_t tick) const { return seconds * tick / end; }
};

/// Reads a track of a file that the game has found to be sound.
class Track {
public:
    Track(Bytes bytes, Melody& melody) : bytes_(bytes), melody_(melody) {
        while (!bytes_.done()) readEvent();
        EXPECT_TRUE(sounding_.empty()) << "a note without its off";
        if (hasNotes_) melody_.firstEnd = std::min(melody_.firstEnd, tick_);
        melody_.end = std::max(melody_.end, tick_);
    }

private:
    int byte() { return static_cast<int>(bytes_.bigEndian(1)); }

    std::uint32_t variable() {
        std::uint32_t value = 0, next = 0x80;
        for (; next >= 0x80; value = value << 7 | (next & 0x7F)) next = bytes_.bigEndian(1);
        return value;
    }

    void readEvent() {
        tick_ += variable();
        int first = byte();
        if (first == 0xFF) {
            byte();
            bytes_.take(variable());
            return;
        }
        if (first >= 0x80) status_ = std::exchange(first, byte());
        const int kind = status_ >> 4, channel = status_ & 0x0F;
        if (kind == 0xC) programs_[channel] = first;
        if (kind == 0xC || kind == 0xD) return;
        const int second = byte();
        if (kind == 0xB && first == 64) melody_.pedals.erase(channel);
        if (kind == 0xB && first == 64 && second >= 64) melody_.pedals.insert(channel);
        if (kind == 0x8 || kind == 0x9) readNote(channel, first, kind == 0x9 && second > 0);
    }

    void readNote(int channel, int pitch, bool begins) {
        constexpr int drums = 9;  // the channel
        if (begins) {
            hasNotes_ = true;
            sounding_.insert({channel, pitch});
            melody_.firstNote = std::min(melody_.firstNote, tick_);
            melody_.channels.insert(channel);
            melody_.instruments.insert(programs_[channel] + (channel == drums ? 128 : 0));
        } else {
            sounding_.erase({channel, pitch});
            melody_.lastOff = std::max(melody_.lastOff, tick_);
        }
    }

    ByteReader bytes_;
    Melody& melody_;
    std::uint32_t tick_ = 0;
    int status_ = 0;
    bool hasNotes_ = false;
    std::map<int, int> programs_;             ///< by channel
    std::set<std::pair<int, int>> sounding_;  ///< channel and pitch
};

/// Fails the test that asks where the file is missing or damaged.
Melody readMelody(const std::string& caption) {
    const std::string content = contentOf(melodyPath(caption));
    Melody melody;
    melody.seconds = melodySeconds(bytesOf(content)).value_or(0);
    EXPECT_GT(melody.seconds, 0) << caption << " is refused by the game";
    ByteReader file(bytesOf(content));
    file.take(14);
    while (!file.done()) {
        file.take(4);
        Track(file.take(file.bigEndian(4)), melody);
    }
    EXPECT_TRUE(melody.pedals.empty()) << caption << " has a pedal that is held to the end";
    return melody;
}

TEST(Melodies, LastOneToTwoMinutesAndLoopWithoutAGap) {
    for (const std::string caption : captions) {
        SCOPED_TRACE(caption);
        const Melody m = readMelody(caption);
        EXPECT_NEAR(m.seconds, 90, 30);
        EXPECT_LE(m.secondsTo(m.firstNote), 0.6);
        EXPECT_LE(m.seconds - m.secondsTo(m.lastOff), 0.6);
        // A voice that ends before the others has lost beats, and would be heard over its own end.
        EXPECT_LE(m.lastOff, m.firstEnd);
    }
}

TEST(Melodies, CanBeToldApart) {
    std::set<std::set<int>> bands;
    for (const std::string caption : captions) {
        const Melody m = readMelody(caption);
        EXPECT_GE(m.channels.size(), 3u) << caption;
        EXPECT_TRUE(bands.insert(m.instruments).second) << caption << " has the band of another";
    }
}

double decibels(double amplitude) {
    return 20 * std::log10(amplitude / 32768);  // samples have 16 bits
}

/// The samples of raw bytes, least first.
std::vector<int> samplesOf(const std::string& bytes) {
    std::vector<int> samples;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        samples.push_back(static_cast<std::uint8_t>(bytes[i]) | bytes[i + 1] * 256);
    return samples;
}

double peak(const std::vector<int>& samples) {
    int highest = 1;
    for (const int sample : samples) highest = std::max(highest, std::abs(sample));
    return decibels(highest);
}

constexpr std::size_t cardHeader = 44;

TEST(CardSound, IsAShortCleanKnock) {
    const std::string card = contentOf(buildFolder / "carta.wav");
    EXPECT_TRUE(plausibleWave(bytesOf(card))) << "the game refuses it";
    ASSERT_GT(card.size(), cardHeader);
    EXPECT_EQ(card.substr(20, 20), std::string("\1\0\1\0D\xAC\0\0\x88X\1\0\2\0\x10\0data", 20))
        << "not plain samples of 16 bits, 44100 in a second, from one side";
    const std::vector<int> samples = samplesOf(card.substr(cardHeader));
    EXPECT_LT(samples.size(), 44100u / 5);
    EXPECT_LT(std::max(std::abs(samples.front()), std::abs(samples.back())), 164) << "would click";
    EXPECT_NEAR(peak(samples), -6, 3);
    const int sum = std::accumulate(samples.begin(), samples.end(), 0);
    EXPECT_LT(std::abs(sum), 65 * static_cast<int>(samples.size())) << "DC offset";
}

/// How loud a melody is while it lasts: the synthesiser goes on for some seconds after it.
double renderedLoudness(const std::string& caption) {
    constexpr int rate = 22050, sides = 2;
    const fs::path raw = buildFolder / "tests" / (caption + ".raw");
    const std::string command =
        "\"" VELARDA_SYNTHESISER "\" -niq -g 0.6 -O s16 -r " + std::to_string(rate) + " -F \"" +
        raw.string() + "\" \"" VELARDA_SOUND_FONT "\" \"" + melodyPath(caption).string() + '"';
    // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe)  the test is alone in its process
    EXPECT_EQ(std::system(command.c_str()), 0);
    std::vector<int> samples = samplesOf(contentOf(raw));
    fs::remove(raw);
    EXPECT_LT(peak(samples), -1) << caption;
    const Melody m = readMelody(caption);
    samples.resize(static_cast<std::size_t>(m.secondsTo(m.lastOff) * rate) * sides);
    const double squares = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0);
    return decibels(std::sqrt(squares / static_cast<double>(samples.size())));
}

TEST(Loudness, IsTheSameForAllMelodiesAndBelowTheCard) {
    if (!fs::exists(VELARDA_SOUND_FONT) || !fs::exists(VELARDA_SYNTHESISER))
        GTEST_SKIP() << "no TimGM6mb.sf2, which the melodies were made for, or no fluidsynth";
    std::vector<double> levels(captions.size());
    const auto renderEveryOther = [&](std::size_t i) {
        for (; i < levels.size(); i += 2) levels.at(i) = renderedLoudness(captions[i]);
    };
    auto half = std::async(std::launch::async, renderEveryOther, 1);
    renderEveryOther(0);
    half.get();
    const auto [softest, loudest] = std::ranges::minmax_element(levels);
    EXPECT_LE(*loudest - *softest, 3) << testing::PrintToString(levels);
    const std::string card = contentOf(buildFolder / "carta.wav").substr(cardHeader);
    EXPECT_GE(peak(samplesOf(card)), *loudest + 10) << "the card drowns in the music";
}

}  // namespace
