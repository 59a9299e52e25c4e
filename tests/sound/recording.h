// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// What the tests of sound share: sounds to be played, and a device that writes what it is given
// into a file in place of a loudspeaker.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace test {

constexpr int rate = 44100;  ///< samples of one side in a second

void put(const std::filesystem::path& file, const std::string& content);

/// A WAVE file that is loud for five milliseconds at both ends. It promises more than there is.
std::string clickingWave(int milliseconds);
/// A MIDI file of one track with these events; two of its ticks are a millisecond.
std::string midiFile(const std::string& events);

/// A folder of its own that is the working folder meanwhile, with a sound bank; the sound device is
/// a file in it. Each test makes one before it plays anything.
class Studio {
public:
    Studio();
    ~Studio();
    Studio(const Studio&) = delete;
    Studio& operator=(const Studio&) = delete;

    /// Samples of one side that the device has asked for so far, which is the time that it knows.
    static int asked();
    /// How many it asks for at once.
    static int askedAtOnce();

private:
    std::filesystem::path former_, folder_;
};

/// Where a loud sound begins after a rest of so many milliseconds, in samples, on the left;
/// complete once the device is closed.
struct Listening {
    int loud = 600, rest = 4;
};
std::vector<int> onsets(const Listening&);

/// Waits, and calls `meanwhile` all the time, until it is so; fails after ten seconds.
testing::AssertionResult waitFor(
    const std::string& what, const std::function<bool()>& isSo,
    const std::function<void()>& meanwhile = [] {});

}  // namespace test
