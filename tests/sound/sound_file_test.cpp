// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Sound files found, read and judged before any library sees them.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <string>

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

/// A note of half a second at two ticks a millisecond.
const std::string halfASecond = midiFile(std::string("\0\x90\x3C\x64\x87\x68\x80\x3C\0\0", 10));

TEST(MidiFile, TellsHowLongItPlays) {
    EXPECT_DOUBLE_EQ(melodySeconds(bytesOf(halfASecond)).value_or(0), 0.5);
}

TEST(MidiFile, ThatBreaksOffIsRefusedWhereverItDoes) {
    for (std::size_t i = 0; i < halfASecond.size(); ++i)
        EXPECT_FALSE(melodySeconds(bytesOf(halfASecond.substr(0, i)))) << "after byte " << i;
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

TEST_F(SoundFile, IsFoundWhateverTheCaseOfItsLetters) {
    put("carta.wav", "something");
    EXPECT_EQ(findSoundFile("CARTA.Wav").filename(), "carta.wav");
    EXPECT_EQ(findSoundFile("cart.wav"), fs::path());
}

TEST_F(SoundFile, IsTheExactOneWhereThereAreTwo) {
    for (const char* name : {"carta.wav", "Carta.WAV"}) put(name, "something");
    for (const char* name : {"carta.wav", "Carta.WAV"}) EXPECT_EQ(findSoundFile(name), name);
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
    static constexpr BankContent all{.programs = 128, .drums = true};

    SoundFont() {
        unsetenv("SDL_SOUNDFONTS");  // NOLINT(concurrency-mt-unsafe): there is one thread
        fs::create_directory("fonts");
    }
    static void install(const char* name, BankContent content, std::size_t silence) {
        content.silence = silence;
        put(fs::path("fonts") / name, soundBank(content));
    }
    static std::string found() { return findSoundFont(nullptr, {"fonts"}).filename().string(); }

private:
    Studio studio_;
};

TEST_F(SoundFont, IsTheOneThatTheMelodiesWereMadeFor) {
    install("Small.sf2", all, 0);
    install("TimGM6mb.sf2", all, 5000);
    install("default-GM.sf2", all, 20'000);
    EXPECT_EQ(found(), "TimGM6mb.sf2");
}

TEST_F(SoundFont, IsElseTheSmallestWithAllInstruments) {
    install("Large.sf2", all, 20'000);
    install("Medium.sf2", all, 5000);
    install("Piano.sf2", {.programs = 1, .drums = true}, 0);
    install("WithoutDrums.sf2", {.programs = 128}, 0);
    EXPECT_EQ(found(), "Medium.sf2");
}

TEST_F(SoundFont, IsWeighedAsItIsWhenUnpacked) {
    install("Packed.sf3", all, 0);
    install("Plain.sf2", all, 5000);
    EXPECT_EQ(found(), "Plain.sf2");
}

TEST_F(SoundFont, MayLackInstrumentsRatherThanBeMissing) {
    EXPECT_EQ(found(), "");
    install("Piano.sf2", {.programs = 1}, 0);
    EXPECT_EQ(found(), "Piano.sf2");
}

TEST_F(SoundFont, IsPassedOverWhenItIsDamaged) {
    const std::string whole = soundBank(all);
    put("fonts/TimGM6mb.sf2", whole.substr(0, whole.size() - 1));
    put("fonts/Empty.sf2", "");
    put("fonts/Other.sf2", "RIFF" + std::string(100, '\0'));
    fs::create_symlink("nowhere", "fonts/Gone.sf2");
    EXPECT_EQ(found(), "");
    install("Whole.sf2", all, 5000);
    EXPECT_EQ(found(), "Whole.sf2");
}

TEST_F(SoundFont, IsTheFirstWholeOneThatTheUserNames) {
    install("TimGM6mb.sf2", all, 0);
    put("mine.sf2", soundBank());
    setenv("SDL_SOUNDFONTS", "missing.sf2;mine.sf2", 1);  // NOLINT(concurrency-mt-unsafe)
    EXPECT_EQ(found(), "mine.sf2");
    setenv("SDL_SOUNDFONTS", "missing.sf2", 1);  // NOLINT(concurrency-mt-unsafe)
    EXPECT_EQ(found(), "TimGM6mb.sf2");
}

}  // namespace
}  // namespace test
