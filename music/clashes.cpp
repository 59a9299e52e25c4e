// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cstdlib>

#include "music/score.h"

namespace music {
namespace {

/// A chord is spread a little, so that its notes may come later than they are written.
constexpr Tick late = 60;

class Reading {
public:
    Reading(const Score& score, const Harmony& harmony) : score_(score), harmony_(harmony) {}

    std::vector<std::string> clashes() {
        std::vector<std::string> found;
        for (tick_ = 0; tick_ < score_.end; tick_ += score_.beat) {
            sounding_ = soundingNotes();
            for (const Note* a : sounding_)
                for (const Note* b : sounding_)
                    if (a->voice < b->voice && isClash(*a, *b))
                        found.push_back(score_.placeOf(tick_) + ": " + nameOf(*a) + " against " +
                                        nameOf(*b));
        }
        return found;
    }

private:
    /// The lowest one first.
    std::vector<const Note*> soundingNotes() const {
        std::vector<const Note*> notes;
        for (const Note& note : score_.notes)
            if (note.instrument < drumKits && note.begin <= tick_ + late && note.end > tick_ + late)
                notes.push_back(&note);
        std::ranges::stable_sort(notes, {}, &Note::pitch);
        return notes;
    }

    bool isClash(const Note& a, const Note& b) const {
        const int apart = std::abs(a.pitch - b.pitch) % 12;
        if (apart != 1 && apart != 11) return false;
        return std::ranges::none_of(chordsAt(tick_), [&](Chord chord) {
            return (isIn(chord, a) || resolves(a)) && (isIn(chord, b) || resolves(b));
        });
    }

    static bool isIn(Chord chord, const Note& note) {
        return (chord >> (note.pitch % 12) & 1) != 0;
    }

    std::vector<Chord> chordsAt(Tick tick) const {
        const auto bar = static_cast<std::size_t>(tick / score_.bar);
        return bar < harmony_.size() ? harmony_[bar] : std::vector<Chord>();
    }

    bool isInChord(const Note& note) const {
        return std::ranges::any_of(chordsAt(note.begin),
                                   [&](Chord chord) { return isIn(chord, note); });
    }

    bool resolves(const Note& note) const {
        const bool isPrepared = note.begin + late < tick_ && isInChord(note);
        const bool isShort =
            note.begin + late >= tick_ && note.end - note.begin + late < score_.beat;
        if (note.pitch == sounding_.front()->pitch || (!isPrepared && !isShort)) return false;
        return std::ranges::any_of(score_.notes, [&](const Note& next) {
            const int step = next.pitch - note.pitch;
            return next.voice == note.voice && next.begin >= note.end &&
                   next.begin <= note.end + late && -2 <= step && step <= 1 && step != 0 &&
                   isInChord(next);
        });
    }

    const Score& score_;
    const Harmony& harmony_;
    Tick tick_ = 0;
    std::vector<const Note*> sounding_;
};

}  // namespace

std::vector<std::string> clashes(const Score& score, const Harmony& harmony) {
    return Reading(score, harmony).clashes();
}

}  // namespace music
