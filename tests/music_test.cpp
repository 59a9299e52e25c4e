// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The sound files as they were built: whether every melody can be played, looped and told apart,
// and whether they are equally loud and leave room for the sound of the card.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "midi_file.h"

namespace {

namespace fs = std::filesystem;

constexpr std::array captions{"Humanoid", "Impact", "Go4yrgun", "Sevilana", "Bugs",    "Astro",
                              "Champion", "Champs", "Easycity", "Fastlane", "Lastday", "Scopa"};

#ifdef _WIN32
const std::string quiet = " > NUL 2>&1";
#else
const std::string quiet = " > /dev/null 2>&1";
#endif

fs::path melodyPath(const std::string& caption) {
    return fs::path(VELARDA_BUILD_FOLDER) / "music" / (caption + ".mid");
}

fs::path cardPath() {
    return fs::path(VELARDA_BUILD_FOLDER) / "carta.wav";
}

std::uint32_t lastNoteEnd(const midi::File& file) {
    std::uint32_t last = 0;
    for (const midi::Note& note : file.notes) last = std::max(last, note.end);
    return last;
}

std::uint32_t length(const midi::File& file) {
    return *std::max_element(file.voiceEnds.begin(), file.voiceEnds.end());
}

std::set<int> channels(const midi::File& file) {
    std::set<int> result;
    for (const midi::Note& note : file.notes) result.insert(note.channel);
    return result;
}

// The General MIDI programs heard; drum kits are counted apart from the other instruments.
std::set<int> instruments(const midi::File& file) {
    std::set<int> result;
    for (const int channel : channels(file)) {
        const auto chosen = file.programs.find(channel);
        const int program = chosen == file.programs.end() ? 0 : chosen->second;
        result.insert(channel == midi::drumChannel ? 1000 + program : program);
    }
    return result;
}

// The seven pitch classes that sound longest: the scale of the piece, near enough.
std::set<int> scale(const midi::File& file) {
    std::array<std::uint64_t, 12> sounding{};
    for (const midi::Note& note : file.notes)
        if (note.channel != midi::drumChannel)
            sounding.at(static_cast<std::size_t>(note.pitch % 12)) += note.end - note.start;
    std::array<int, 12> order{};
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return sounding[static_cast<std::size_t>(a)] > sounding[static_cast<std::size_t>(b)];
    });
    return {order.begin(), order.begin() + 7};
}

// The tempo of the longest stretch, in whole quarter notes a minute.
int tempo(const midi::File& file) {
    std::map<std::uint32_t, std::uint32_t> ticks;
    for (auto at = file.tempo.begin(); at != file.tempo.end(); ++at) {
        const auto next = std::next(at);
        ticks[at->second] += (next == file.tempo.end() ? length(file) : next->first) - at->first;
    }
    const auto longest = std::max_element(ticks.begin(), ticks.end(),
                                          [](auto& a, auto& b) { return a.second < b.second; });
    return longest == ticks.end() ? 120 : static_cast<int>(std::lround(60e6 / longest->first));
}

class Melody : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const fs::path path = melodyPath(GetParam());
        ASSERT_TRUE(fs::exists(path)) << path;
        ASSERT_NO_THROW(file_ = midi::read(path));
        ASSERT_FALSE(file_.notes.empty());
    }

    midi::File file_;
};

TEST_P(Melody, LastsOneToTwoMinutes) {
    const double seconds = file_.seconds(length(file_));
    EXPECT_GE(seconds, 60);
    EXPECT_LE(seconds, 120);
}

TEST_P(Melody, LeavesNoNoteHanging) {
    EXPECT_EQ(file_.unfinished, 0);
    EXPECT_EQ(file_.strayOffs, 0);
    EXPECT_TRUE(file_.pedalDown.empty());
    // A voice that ends before the others has lost beats, and would be heard over its own end.
    const auto shortest = *std::min_element(file_.voiceEnds.begin(), file_.voiceEnds.end());
    EXPECT_LE(lastNoteEnd(file_), shortest);
}

TEST_P(Melody, LoopsWithoutAGap) {
    const auto first = std::min_element(file_.notes.begin(), file_.notes.end(),
                                        [](auto& a, auto& b) { return a.start < b.start; });
    EXPECT_LE(file_.seconds(first->start), 0.6);
    ASSERT_GT(file_.bar, 0u) << "no time signature";
    EXPECT_LT(length(file_) - lastNoteEnd(file_), file_.bar);
}

TEST_P(Melody, UsesThreeChannels) {
    EXPECT_GE(channels(file_).size(), 3u);
}

INSTANTIATE_TEST_SUITE_P(Music, Melody, testing::ValuesIn(captions),
                         [](const auto& melody) { return std::string(melody.param); });

TEST(Melodies, CanBeToldApart) {
    std::map<std::set<int>, std::string> bands;
    std::map<std::pair<int, std::set<int>>, std::string> manners;
    for (const std::string caption : captions) {
        const midi::File file = midi::read(melodyPath(caption));
        const auto [band, newBand] = bands.emplace(instruments(file), caption);
        EXPECT_TRUE(newBand) << caption << " is played by the instruments of " << band->second;
        const auto [manner, newManner] =
            manners.emplace(std::pair(tempo(file), scale(file)), caption);
        EXPECT_TRUE(newManner) << caption << " has the tempo and scale of " << manner->second;
    }
}

struct Wave {
    std::uint32_t format = 0;
    std::uint32_t channels = 0;
    std::uint32_t rate = 0;
    std::uint32_t bits = 0;
    std::vector<double> samples;  // interleaved, full scale is 1
};

std::uint32_t little(const std::string& bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    while (size-- > 0) value = value << 8 | static_cast<std::uint8_t>(bytes.at(at + size));
    return value;
}

void readChunk(Wave& wave, const std::string& tag, const std::string& body) {
    if (tag == "fmt ") {
        wave.format = little(body, 0, 2);
        wave.channels = little(body, 2, 2);
        wave.rate = little(body, 4, 4);
        wave.bits = little(body, 14, 2);
    } else if (tag == "data") {
        if (wave.bits != 16) throw std::runtime_error("samples that are not of 16 bits");
        for (std::size_t i = 0; i + 1 < body.size(); i += 2)
            wave.samples.push_back(static_cast<std::int16_t>(little(body, i, 2)) / 32768.0);
    }
}

Wave readWave(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    if (bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE")
        throw std::runtime_error(path.string() + " is no RIFF wave file");
    if (little(bytes, 4, 4) + 8 != bytes.size()) throw std::runtime_error("wrong RIFF length");
    Wave wave;
    for (std::size_t at = 12; at < bytes.size();) {
        const std::uint32_t size = little(bytes, at + 4, 4);
        if (size > bytes.size() - at - 8) throw std::runtime_error("a chunk breaks off");
        readChunk(wave, bytes.substr(at, 4), bytes.substr(at + 8, size));
        at += 8 + size + size % 2;
    }
    if (wave.samples.empty()) throw std::runtime_error("a wave file without samples");
    return wave;
}

double decibels(double amplitude) {
    return 20 * std::log10(std::max(amplitude, 1e-9));
}

double peak(const Wave& wave) {
    double highest = 0;
    for (const double sample : wave.samples) highest = std::max(highest, std::abs(sample));
    return decibels(highest);
}

TEST(CardSound, IsAShortCleanKnock) {
    const Wave wave = readWave(cardPath());
    EXPECT_EQ(wave.format, 1u);
    EXPECT_EQ(wave.channels, 1u);
    EXPECT_EQ(wave.rate, 44100u);
    EXPECT_LT(static_cast<double>(wave.samples.size()) / 44100, 0.2);
    EXPECT_LT(std::abs(wave.samples.front()), 0.005) << "would click at the beginning";
    EXPECT_LT(std::abs(wave.samples.back()), 0.005) << "would click at the end";
    EXPECT_GE(peak(wave), -9);
    EXPECT_LE(peak(wave), -3);
    const double sum = std::accumulate(wave.samples.begin(), wave.samples.end(), 0.0);
    EXPECT_LT(std::abs(sum / static_cast<double>(wave.samples.size())), 0.002) << "DC offset";
}

class Loudness : public testing::Test {
protected:
    void SetUp() override {
        const std::string font = VELARDA_SOUND_FONT;
        if (font.empty() || !fs::exists(font)) GTEST_SKIP() << "no General MIDI sound font";
        if (std::system(("fluidsynth --version" + quiet).c_str()) != 0)
            GTEST_SKIP() << "fluidsynth is not installed";
        fs::create_directories(folder_);
    }

    void TearDown() override { fs::remove_all(folder_); }

    Wave render(const std::string& caption) const {
        const fs::path wave = folder_ / "melody.wav";
        fs::remove(wave);
        const std::string command = "fluidsynth -ni -g 0.6 -r 44100 -F \"" + wave.string() +
                                    "\" \"" + VELARDA_SOUND_FONT + "\" \"" +
                                    melodyPath(caption).string() + "\"" + quiet;
        if (std::system(command.c_str()) != 0) throw std::runtime_error("fluidsynth failed");
        return readWave(wave);
    }

    fs::path folder_ =
        fs::temp_directory_path() / ("velarda-music-" + std::to_string(std::random_device{}()));
};

// Of the music alone: the synthesiser goes on for some seconds after the last note.
double level(const Wave& wave, double seconds) {
    const auto wanted = static_cast<std::size_t>(seconds * wave.rate) * wave.channels;
    const std::size_t count = std::min(wanted, wave.samples.size());
    double squares = 0;
    for (std::size_t i = 0; i < count; ++i) squares += wave.samples[i] * wave.samples[i];
    return decibels(std::sqrt(squares / static_cast<double>(count)));
}

TEST_F(Loudness, IsTheSameForAllMelodiesAndBelowTheCard) {
    std::vector<double> levels;
    for (const std::string caption : captions) {
        const midi::File file = midi::read(melodyPath(caption));
        const Wave wave = render(caption);
        levels.push_back(level(wave, file.seconds(lastNoteEnd(file))));
        EXPECT_LT(peak(wave), -1) << caption;
        RecordProperty(caption, std::to_string(levels.back()));
    }
    const auto [softest, loudest] = std::minmax_element(levels.begin(), levels.end());
    EXPECT_LE(*loudest - *softest, 3)
        << captions.at(static_cast<std::size_t>(loudest - levels.begin())) << " is too loud, or "
        << captions.at(static_cast<std::size_t>(softest - levels.begin())) << " too soft";
    EXPECT_GE(peak(readWave(cardPath())), *loudest + 10) << "the card drowns in the music";
}

}  // namespace
