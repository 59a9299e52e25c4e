// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The sound files as they were built: whether every melody can be played, looped and told apart,
// and whether they are equally loud and leave room for the sound of the card.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <future>
#include <numeric>
#include <span>
#include <sstream>
#include <vector>

#include "midi_file.h"
#include "platform/sound/midi_file.h"
#include "state/melodies.h"

namespace {

namespace fs = std::filesystem;

/// The melodies of the menu, without its first entry, which is none.
const std::span<const char* const> captions = std::span(melodies).subspan(1);

const fs::path buildFolder = VELARDA_BUILD_FOLDER;

std::string bytesOf(const fs::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

fs::path melodyPath(const std::string& caption) {
    return buildFolder / "music" / (caption + ".mid");
}

/// Fails the test that asks where the file is missing or damaged.
MidiMelody melody(const std::string& caption) {
    MidiMelody read;
    EXPECT_NO_THROW(read = MidiReader(bytesOf(melodyPath(caption))).read()) << caption;
    return read;
}

TEST(Melodies, LastOneToTwoMinutesAndLoopWithoutAGap) {
    for (const std::string caption : captions) {
        SCOPED_TRACE(caption);
        const MidiMelody m = melody(caption);
        EXPECT_NEAR(m.seconds(m.end), 90, 30);
        const std::string file = bytesOf(melodyPath(caption));
        const auto* first = reinterpret_cast<const unsigned char*>(file.data());
        EXPECT_NEAR(melodySeconds({first, file.size()}).value_or(0), m.seconds(m.end), 0.001)
            << "for the game";
        EXPECT_LE(m.seconds(m.firstNote), 0.6);
        EXPECT_LT(m.end - m.lastOff, m.bar) << "a bar of silence, or no time signature";
        // A voice that ends before the others has lost beats, and would be heard over its own end.
        EXPECT_LE(m.lastOff, m.firstEnd);
    }
}

TEST(Melodies, CanBeToldApart) {
    std::set<std::set<int>> bands;
    std::set<std::pair<long, std::set<int>>> manners;
    for (const std::string caption : captions) {
        const MidiMelody m = melody(caption);
        EXPECT_GE(m.channels.size(), 3u) << caption;
        EXPECT_TRUE(bands.insert(m.instruments).second) << caption << " has the band of another";
        // The seven pitch classes that sound longest are its scale.
        std::array<std::size_t, 12> order{};
        std::iota(order.begin(), order.end(), 0u);
        std::ranges::stable_sort(order, std::greater{},
                                 [&](std::size_t pitch) { return m.pitchClasses.at(pitch); });
        const double quarters = static_cast<double>(m.end) / m.division;
        const long tempo = std::lround(60 * quarters / m.seconds(m.end));
        EXPECT_TRUE(manners.insert({tempo, {order.begin(), order.begin() + 7}}).second)
            << caption << " has the tempo and scale of another";
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
    const std::string card = bytesOf(buildFolder / "carta.wav");
    ASSERT_GT(card.size(), cardHeader);
    const auto size = static_cast<std::uint32_t>(card.size());
    constexpr std::uint32_t riff = 0x46464952, wave = 0x45564157, format = 0x20746d66,
                            data = 0x61746164, pcm = 1, mono = 1, bytes = 2;
    const std::array<std::uint32_t, 11> wanted{
        riff,          size - 8,         wave, format,   16, pcm | mono << 16, 44100,
        44100 * bytes, bytes | 16 << 16, data, size - 44};
    EXPECT_EQ(std::memcmp(card.data(), wanted.data(), cardHeader), 0);
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
    std::vector<int> samples = samplesOf(bytesOf(raw));
    fs::remove(raw);
    EXPECT_LT(peak(samples), -1) << caption;
    const MidiMelody m = melody(caption);
    samples.resize(static_cast<std::size_t>(m.seconds(m.lastOff) * rate) * sides);
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
    const std::string card = bytesOf(buildFolder / "carta.wav").substr(cardHeader);
    EXPECT_GE(peak(samplesOf(card)), *loudest + 10) << "the card drowns in the music";
}

}  // namespace
