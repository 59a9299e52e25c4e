// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// A strict reader of standard MIDI files, for the tests of the melodies: whatever a lenient player
// might swallow (a wrong track length, a missing end of track, a stray byte) is an error here.

#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <vector>

namespace midi {

constexpr int drumChannel = 9;

struct Note {
    std::uint32_t start = 0;  // in ticks, like all times here
    std::uint32_t end = 0;
    int channel = 0;
    int pitch = 0;
};

struct File {
    int division = 0;       // ticks in a quarter note
    std::uint32_t bar = 0;  // ticks in a bar, by the last time signature
    std::vector<Note> notes;
    std::map<std::uint32_t, std::uint32_t> tempo;  // tick -> microseconds in a quarter note
    std::map<int, int> programs;                   // channel -> last program chosen
    std::vector<std::uint32_t> voiceEnds;          // end of every track that holds notes
    std::set<int> pedalDown;                       // channels whose pedal is held at the end
    int unfinished = 0;                            // notes on without their note off
    int strayOffs = 0;                             // notes off without their note on

    [[nodiscard]] double seconds(std::uint32_t tick) const;
};

/// Throws std::runtime_error, with the place, when the file is not a sound standard MIDI file.
File read(const std::filesystem::path& path);

}  // namespace midi
