// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The sound files as they were built: whether every melody can be played, looped and told apart,
// whether it is well written, and whether all are equally loud and leave room for the sound of the
// card.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <numeric>
#include <set>
#include <span>
#include <sstream>
#include <vector>

#include "music/loudness.h"
#include "music/score.h"
#include "platform/sound/midi_file.h"
#include "platform/sound/sound_font.h"
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

music::Score scoreOf(const std::string& caption) {
    const std::string midi = contentOf(melodyPath(caption));
    EXPECT_TRUE(melodySeconds(bytesOf(midi))) << caption << " is refused by the game";
    return music::readScore(bytesOf(midi));
}

class Melody : public testing::TestWithParam<const char*> {
protected:
    std::string placeOf(const music::Note& note) const {
        return score_.placeOf(note.begin) + ": " + music::nameOf(note);
    }

    const music::Score score_ = scoreOf(GetParam());
    const music::Harmony harmony_ =
        music::readHarmony(contentOf(fs::path(VELARDA_MUSIC_SOURCES) / GetParam() += ".abc"));
};

INSTANTIATE_TEST_SUITE_P(Melodies, Melody, testing::ValuesIn(captions.begin(), captions.end()),
                         [](const auto& melody) { return std::string(melody.param); });

TEST_P(Melody, LastsTwoToThreeAndAHalfMinutes) {
    EXPECT_GE(score_.seconds, 120);
    EXPECT_LE(score_.seconds, 210);
}

TEST_P(Melody, LoopsWithoutAGap) {
    music::Tick lastOff = 0;
    for (const music::Note& note : score_.notes) lastOff = std::max(lastOff, note.end);
    EXPECT_LE(score_.secondsOf(score_.notes.front().begin), 0.6);
    EXPECT_LE(score_.secondsOf(score_.end - lastOff), 0.6);
    EXPECT_LE(lastOff, score_.firstEnd) << "a voice has lost beats, and is heard over its own end";
    EXPECT_EQ(score_.held, 0) << "notes or pedals last beyond the end";
}

TEST_P(Melody, HasAReasonToGoOnAtItsEnd) {
    EXPECT_NE(harmony_.back().back(), harmony_.front().front()) << "it ends as it begins";
}

TEST_P(Melody, HasChordsOverEveryBar) {
    EXPECT_EQ(harmony_.size(), score_.bars());
    for (std::size_t i = 0; i < harmony_.size(); ++i)
        EXPECT_FALSE(harmony_[i].empty()) << "bar " << i + 1;
}

TEST_P(Melody, HasNoWrongNotes) {
    for (const std::string& clash : music::clashes(score_, harmony_)) ADD_FAILURE() << clash;
}

TEST_P(Melody, TellsWhereAWrongNoteIs) {
    // A voice that doubles the lowest one, half a tone beside it.
    music::Score wrong = score_;
    const auto bass = std::ranges::find_if(wrong.notes, [&](const music::Note& note) {
        return note.pitch < 48 && note.begin > wrong.bar && note.begin % wrong.bar < 60;
    });
    ASSERT_NE(bass, wrong.notes.end());
    const music::Note planted = {bass->begin, bass->end, 15, bass->instrument, bass->pitch + 1};
    wrong.notes.push_back(planted);
    const std::vector<std::string> found = music::clashes(wrong, harmony_);
    EXPECT_TRUE(std::ranges::any_of(found, [&](const std::string& text) {
        return text.starts_with(wrong.placeOf(planted.begin)) &&
               text.find(music::nameOf(planted)) != std::string::npos;
    })) << placeOf(planted);
}

TEST_P(Melody, LetsEveryVoiceRest) {
    std::set<int> voices;
    for (const music::Note& note : score_.notes) {
        if (!voices.insert(note.voice).second) continue;
        EXPECT_GE(music::silence(score_, note.voice), 0.1)
            << "the share of silence of the voice that begins with " << placeOf(note);
    }
}

TEST_P(Melody, BreathesAsAWhole) {
    EXPECT_LE(music::longestWithoutRest(score_), 40) << "seconds without a rest of everybody";
}

TEST_P(Melody, StaysWhereItsInstrumentsSoundWell) {
    for (const music::Note& note : score_.notes)
        EXPECT_TRUE(music::isInGoodRegister(note)) << placeOf(note);
}

TEST_P(Melody, IsNotCrowded) {
    EXPECT_LE(music::notesASecond(score_), 22);
    EXPECT_LE(music::mostNotesASecond(score_), 32);
}

TEST_P(Melody, VariesItsDrums) {
    const std::size_t rhythms = music::drumRhythms(score_);
    if (rhythms == 0) return;  // it has no drums
    EXPECT_GE(rhythms, 12u) << "bars of different rhythm in the drums";
}

TEST(Melodies, CanBeToldApart) {
    std::set<std::set<int>> bands;
    for (const std::string caption : captions) {
        std::set<int> band, voices;
        for (const music::Note& note : scoreOf(caption).notes) {
            band.insert(note.instrument);
            voices.insert(note.voice);
        }
        EXPECT_GE(voices.size(), 3u) << caption;
        EXPECT_TRUE(bands.insert(band).second) << caption << " has the band of another";
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
double renderedLoudness(const fs::path& bank, const std::string& caption) {
    constexpr int rate = 22050, sides = 2;
    const fs::path raw = buildFolder / "tests" / (caption + ".raw");
    const std::string command = "\"" VELARDA_SYNTHESISER "\" -niq -g 0.6 -O s16 -r " +
                                std::to_string(rate) + " -F \"" + raw.string() + "\" \"" +
                                bank.string() + "\" \"" + melodyPath(caption).string() + '"';
    // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe)  the test is alone in its process
    EXPECT_EQ(std::system(command.c_str()), 0);
    std::vector<int> samples = samplesOf(contentOf(raw));
    fs::remove(raw);
    EXPECT_LT(peak(samples), -1) << caption;
    samples.resize(static_cast<std::size_t>(scoreOf(caption).seconds * rate) * sides);
    return music::loudness(samples, rate);
}

/// The sound banks that the melodies were balanced on.
class Loudness : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Banks, Loudness, testing::Values("TimGM6mb", "FluidR3_GM"),
                         [](const auto& bank) { return std::string(bank.param); });

TEST_P(Loudness, IsTheSameForAllMelodiesAndBelowTheCard) {
    fs::path bank;
    for (const fs::path& folder : soundFontFolders())
        if (fs::exists(folder / GetParam() += ".sf2")) bank = folder / GetParam() += ".sf2";
    if (bank.empty() || !fs::exists(VELARDA_SYNTHESISER))
        GTEST_SKIP() << "no " << GetParam() << ".sf2, or no fluidsynth";
    std::vector<double> levels(captions.size());
    const auto renderEveryOther = [&](std::size_t i) {
        for (; i < levels.size(); i += 2) levels.at(i) = renderedLoudness(bank, captions[i]);
    };
    auto half = std::async(std::launch::async, renderEveryOther, 1);
    renderEveryOther(0);
    half.get();
    const auto [softest, loudest] = std::ranges::minmax_element(levels);
    EXPECT_LE(*loudest - *softest, 2.5)
        << captions[static_cast<std::size_t>(softest - levels.begin())] << " is softest, "
        << captions[static_cast<std::size_t>(loudest - levels.begin())] << " is loudest of "
        << testing::PrintToString(levels);
    const std::string card = contentOf(buildFolder / "carta.wav").substr(cardHeader);
    EXPECT_GE(peak(samplesOf(card)), *loudest + 10) << "the card drowns in the music";
}

}  // namespace
