// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Sound files found, read and judged before any library sees them.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <tuple>

#include "platform/sound/midi_file.h"
#include "platform/sound/sound_file.h"
#include "platform/sound/sound_font.h"
#include "platform/sound/wave_file.h"
#include "recording.h"
#include "sound_bank.h"

namespace fs = std::filesystem;

namespace test {
namespace {

Bytes bytesOf(const std::string& text) {
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

/// A note for half a second, then at half the tempo a rest for one.
const std::string melody = midiFile(std::string("\0\x90\x3C\x64\x87\x68\x80\x3C\0", 9) +
                                    std::string("\0\xFF\x51\x03\x07\xA1\x20\x87\x68", 9));

TEST(MidiFile, TellsHowLongItPlaysThroughAChangeOfTempo) {
    EXPECT_DOUBLE_EQ(melodySeconds(bytesOf(melody)).value_or(0), 1.5);
}

TEST(MidiFile, ThatBreaksOffIsRefusedWhereverItDoes) {
    for (std::size_t i = 0; i < melody.size(); ++i)
        EXPECT_FALSE(melodySeconds(bytesOf(melody.substr(0, i)))) << "after byte " << i;
}

TEST(MidiFile, CanBeGivenAnEventWhereItEndsAndIsAsLongAsBefore) {
    const std::vector<unsigned char> longer = withEventAtEnd(bytesOf(melody));
    EXPECT_DOUBLE_EQ(melodySeconds(longer).value_or(0), 1.5);
    const std::string waitsForTheEnd("\x80\x80\x8F\x50", 4), endsLowestNote("\x80\0\0", 3);
    const std::string text(longer.begin(), longer.end());
    EXPECT_NE(text.find(waitsForTheEnd + endsLowestNote), text.npos) << "no event after 2000 ticks";
}

TEST(WaveFile, IsBelievedUpToTheLargestSound) {
    const std::string wave = clickingWave(100);
    EXPECT_TRUE(plausibleWave(bytesOf(wave)));
    std::string promisesGigabytes = wave;
    promisesGigabytes.at(43) = '\x7F';
    EXPECT_FALSE(plausibleWave(bytesOf(promisesGigabytes)));
    std::string withManySides = wave;
    withManySides.at(22) = 9;
    EXPECT_FALSE(plausibleWave(bytesOf(withManySides)));
}

class SoundFile : public testing::Test {
    Studio studio_;
};

TEST_F(SoundFile, IsFoundWhateverTheCaseOfItsLettersAndTheExactOneWhereThereAreTwo) {
    put("carta.wav", "something");
    EXPECT_EQ(findSoundFile("CARTA.Wav").filename(), "carta.wav");
    put("Carta.WAV", "something");
    for (const char* name : {"carta.wav", "Carta.WAV"}) EXPECT_EQ(findSoundFile(name), name);
}

TEST_F(SoundFile, IsNoneWhereThereIsNothingToBeHeard) {
    put("empty.mid", "");
    fs::create_directory("folder.mid");
    for (const char* name : {"missing.mid", "empty.mid", "folder.mid", "none/organ.mid"})
        EXPECT_EQ(findSoundFile(name), fs::path()) << name;
}

TEST_F(SoundFile, IsReadUpToTheLargest) {
    put("largest", std::string(largestSoundFile, 'x'));
    EXPECT_EQ(readSoundFile("largest").size(), largestSoundFile);
    put("larger", std::string(largestSoundFile + 1, 'x'));
    EXPECT_TRUE(readSoundFile("larger").empty());
    EXPECT_TRUE(readSoundFile("missing").empty());
    EXPECT_TRUE(readSoundFile(".").empty()) << "a folder";
}

TEST_F(SoundFile, HasItsPathInUtf8) {
    fs::create_directory(pathOf("Müsica ♪"));
    put(pathOf("Müsica ♪/città.mid"), "something");
    EXPECT_EQ(findSoundFile(pathOf("Müsica ♪/CITTà.MID")).filename(), pathOf("città.mid"));
}

/// A folder of the system's, to which the user has added nothing.
class SoundFont : public testing::Test {
protected:
    SoundFont() {
        unsetenv("SDL_SOUNDFONTS");  // NOLINT(concurrency-mt-unsafe): there is one thread
        fs::create_directory("fonts");
    }
    static std::string found() { return findSoundFont(nullptr, {"fonts"}).filename().string(); }

    const std::string all_ = soundBank(128, true);

private:
    Studio studio_;
};

TEST_F(SoundFont, IsTheSmallestWithAllInstrumentsUnlessTheOneThatTheMelodiesWereMadeForIsThere) {
    const std::string half(20'000, '\0'), more = half + half;
    const std::tuple<const char*, std::string, const char*> installed[] = {
        {"Piano.sf2", soundBank(1, true), "Piano.sf2"},  // better than none
        {"Large.sf2", all_ + more, "Large.sf2"},
        {"WithoutDrums.sf2", soundBank(128), "Large.sf2"},
        {"Packed.sf3", all_, "Large.sf2"},  // which takes more memory than it
        {"Medium.sf2", all_ + half, "Medium.sf2"},
        {"TimGM6mb.sf2", all_ + more, "TimGM6mb.sf2"},
        {"default-GM.sf2", all_, "TimGM6mb.sf2"}};
    EXPECT_EQ(found(), "");
    for (const auto& [name, content, best] : installed) {
        put(fs::path("fonts") / name, content);
        EXPECT_EQ(found(), best) << "with " << name;
    }
}

TEST_F(SoundFont, IsPassedOverWhenItIsDamaged) {
    put("fonts/TimGM6mb.sf2", all_.substr(0, all_.size() - 1));
    put("fonts/Empty.sf2", "");
    put("fonts/Other.sf2", "RIFF" + std::string(100, '\0'));
    fs::create_symlink("nowhere", "fonts/Gone.sf2");
    EXPECT_EQ(found(), "");
    put("fonts/Whole.sf2", all_);
    EXPECT_EQ(found(), "Whole.sf2");
}

TEST_F(SoundFont, IsTheFirstWholeOneThatTheUserNames) {
    put("fonts/TimGM6mb.sf2", all_);
    put("mine.sf2", soundBank());
    setenv("SDL_SOUNDFONTS", "missing.sf2;mine.sf2", 1);  // NOLINT(concurrency-mt-unsafe)
    EXPECT_EQ(found(), "mine.sf2");
    setenv("SDL_SOUNDFONTS", "missing.sf2", 1);  // NOLINT(concurrency-mt-unsafe)
    EXPECT_EQ(found(), "TimGM6mb.sf2");
}

}  // namespace
}  // namespace test
