// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "music/score.h"

namespace music {
namespace {

using Span = std::pair<Tick, Tick>;

/// Where none of the notes sounds, in their order, with the piece's beginning and end.
std::vector<Span> rests(const Score& score, const std::function<bool(const Note&)>& counts) {
    std::vector<Span> found;
    Tick last = 0;
    for (const Note& note : score.notes) {
        if (!counts(note)) continue;
        if (note.begin > last) found.emplace_back(last, note.begin);
        last = std::max(last, note.end);
    }
    found.emplace_back(last, std::max(last, score.end));
    return found;
}

bool isDrum(const Note& note) {
    return note.instrument >= drumKits;
}

}  // namespace

double silence(const Score& score, int voice) {
    const auto isOfVoice = [=](const Note& note) { return note.voice == voice; };
    double ticks = 0;
    for (const auto& [begin, end] : rests(score, isOfVoice)) ticks += end - begin;
    return ticks / score.end;
}

double longestWithoutRest(const Score& score) {
    constexpr double rest = 0.25;
    double longest = 0;
    Tick last = 0;
    const auto isAny = [](const Note&) { return true; };
    for (const auto& [begin, end] : rests(score, isAny)) {
        if (score.secondsOf(end - begin) < rest && end < score.end) continue;
        longest = std::max(longest, score.secondsOf(begin - last));
        last = end;
    }
    return longest;
}

double notesASecond(const Score& score) {
    return static_cast<double>(score.notes.size()) / score.seconds;
}

double mostNotesASecond(const Score& score) {
    constexpr double window = 4;
    std::size_t most = 0, first = 0;
    for (std::size_t i = 0; i < score.notes.size(); ++i) {
        while (score.secondsOf(score.notes[i].begin - score.notes[first].begin) >= window) ++first;
        most = std::max(most, i + 1 - first);
    }
    return static_cast<double>(most) / window;
}

std::size_t drumRhythms(const Score& score) {
    std::map<std::size_t, std::set<std::pair<Tick, int>>> bars;
    for (const Note& note : score.notes)
        if (isDrum(note)) bars[score.barOf(note.begin)].emplace(note.begin % score.bar, note.pitch);
    std::set<std::set<std::pair<Tick, int>>> different;
    for (const auto& [bar, strokes] : bars) different.insert(strokes);
    return different.size();
}

}  // namespace music
