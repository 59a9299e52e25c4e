// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Sound files found, read and judged before any library sees them.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/sound/midi_file.h"
#include "platform/sound/sound_file.h"
#include "platform/sound/sound_font.h"
#include "platform/sound/wave_file.h"
#include "tests/sound/recording.h"

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

TEST_F(SoundFile, OfInstrumentsIsTheOneThatTheUserNames) {
    EXPECT_EQ(findSoundFont("/nowhere/other.sf2").filename(), "bank.sf2");
}

}  // namespace
}  // namespace test
