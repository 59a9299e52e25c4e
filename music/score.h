// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "platform/sound/byte_reader.h"

/// A melody as it is written: what its MIDI file and the chord symbols of its ABC file say of it.
/// Times are in ticks, bars and beats are counted from 1.
namespace music {

using Tick = std::uint32_t;

constexpr int drumKits = 128;  ///< instruments from here on are drum kits

struct Note {
    Tick begin, end;
    int voice;       ///< its channel
    int instrument;  ///< of General MIDI, from 0
    int pitch;
};

struct Score {
    std::vector<Note> notes;  ///< in the order of their beginnings
    Tick beat = 0, bar = 0;
    Tick end = 0;         ///< where the last track ends
    Tick firstEnd = ~0u;  ///< where the first track with notes ends
    int held = 0;         ///< notes without their offs, and pedals that are never lifted
    double seconds = 0;

    /// As if the tempo did not change.
    double secondsOf(Tick ticks) const { return seconds * ticks / end; }
    std::size_t barOf(Tick tick) const { return tick / bar + 1; }
    std::size_t bars() const { return barOf(end - beat); }
    std::string placeOf(Tick tick) const;  ///< "bar 41, beat 4"
};

/// Expects a file that the game accepts, with one metre from its beginning to its end.
Score readScore(Bytes midi);

/// A bit for each of the twelve notes, the lowest one for C.
using Chord = unsigned;
/// For each bar the chords that are written in it, or that last from before.
using Harmony = std::vector<std::vector<Chord>>;
/// The symbols over the first voice. Throws std::runtime_error for one that it does not know.
Harmony readHarmony(const std::string& abc);

/// "Oboe C#5"
std::string nameOf(const Note& note);
/// Drums are in any register.
bool isInGoodRegister(const Note& note);

/// The share of the melody in which a voice is silent.
double silence(const Score& score, int voice);
/// Seconds. A rest is a moment in which nobody plays, drums included, for at least a quarter of a
/// second.
double longestWithoutRest(const Score& score);
double notesASecond(const Score& score);
/// The most notes that begin within four seconds, by the second.
double mostNotesASecond(const Score& score);
/// How many bars of the drums differ from each other; 0 without drums.
std::size_t drumRhythms(const Score& score);

/// Pairs of voices that stand a minor second or major seventh apart on a beat, whatever octaves
/// are between them, unless both notes belong to one chord of the bar or the strange one resolves:
/// it is not the lowest, goes down by a step or up by half of one into the chord, and either was
/// prepared as a note of the chord before or lasts less than a beat. As they are to be read:
/// "bar 41, beat 4: Rock organ C#4 against Slap bass C2".
std::vector<std::string> clashes(const Score& score, const Harmony& harmony);

}  // namespace music
