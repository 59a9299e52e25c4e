// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <map>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "music/score.h"

namespace music {
namespace {

/// Counted from the chord's root.
Chord stackOf(const std::string& kind) {
    const auto notes = [](std::initializer_list<unsigned> steps) {
        Chord chord = 0;
        for (const unsigned step : steps) chord |= 1u << step;
        return chord;
    };
    static const std::map<std::string, Chord> kinds = {{"", notes({0, 4, 7})},
                                                       {"m", notes({0, 3, 7})},
                                                       {"5", notes({0, 7})},
                                                       {"aug", notes({0, 4, 8})},
                                                       {"dim", notes({0, 3, 6})},
                                                       {"dim7", notes({0, 3, 6, 9})},
                                                       {"sus4", notes({0, 5, 7})},
                                                       {"sus2", notes({0, 2, 7})},
                                                       {"6", notes({0, 4, 7, 9})},
                                                       {"m6", notes({0, 3, 7, 9})},
                                                       {"add9", notes({0, 2, 4, 7})},
                                                       {"m(add9)", notes({0, 2, 3, 7})},
                                                       {"7", notes({0, 4, 7, 10})},
                                                       {"m7", notes({0, 3, 7, 10})},
                                                       {"maj7", notes({0, 4, 7, 11})},
                                                       {"m7b5", notes({0, 3, 6, 10})},
                                                       {"9", notes({0, 2, 4, 7, 10})},
                                                       {"m9", notes({0, 2, 3, 7, 10})},
                                                       {"13", notes({0, 2, 4, 7, 9, 10})},
                                                       {"maj9", notes({0, 2, 4, 7, 11})},
                                                       {"7b9", notes({0, 1, 4, 7, 10})},
                                                       {"7sus4", notes({0, 5, 7, 10})},
                                                       {"6/9", notes({0, 2, 4, 7, 9})},
                                                       {"maj7#11", notes({0, 4, 6, 7, 11})},
                                                       {"9sus4", notes({0, 2, 5, 7, 10})}};
    const auto found = kinds.find(kind);
    if (found == kinds.end()) throw std::runtime_error("no chord is called " + kind);
    return found->second;
}

unsigned pitchOf(const std::string& letter, const std::string& sign) {
    const std::size_t natural = std::string("C D EF G A B").find(letter);
    return static_cast<unsigned>(natural + (sign == "#" ? 1 : sign == "b" ? 11 : 0)) % 12;
}

Chord chordOf(const std::string& symbol) {
    static const std::regex form("([A-G])([#b]?)(.*?)(?:/([A-G])([#b]?))?");
    std::smatch part;
    if (!std::regex_match(symbol, part, form)) throw std::runtime_error("no chord: " + symbol);
    const Chord stack = stackOf(part[3]) << pitchOf(part[1], part[2]);
    const Chord bass = part[4].matched ? 1u << pitchOf(part[4], part[5]) : 0;
    return (stack | stack >> 12 | bass) & 0xFFF;
}

/// The lines of the first voice, one after the other.
std::string firstVoice(const std::string& abc) {
    static const std::regex voice("V:(\\w+).*"), other("([A-Za-z]:|%).*");
    std::istringstream lines(abc);
    std::string first, current, text;
    for (std::string line; std::getline(lines, line);) {
        std::smatch name;
        if (std::regex_match(line, name, voice)) {
            current = name[1];
            if (first.empty()) first = current;
        } else if (!current.empty() && current == first && !std::regex_match(line, other)) {
            text += line + ' ';
        }
    }
    return text;
}

}  // namespace

Harmony readHarmony(const std::string& abc) {
    static const std::regex symbol("\"([^\"]+)\""), rests(R"(\s*Z(\d+)\s*)");
    Harmony bars;
    std::vector<Chord> last;
    std::istringstream text(firstVoice(abc));
    for (std::string bar; std::getline(text, bar, '|');) {
        if (bar.find_first_not_of(' ') == std::string::npos) continue;
        const std::sregex_iterator begin(bar.begin(), bar.end(), symbol), none;
        if (begin != none) last.clear();
        for (auto at = begin; at != none; ++at) last.push_back(chordOf((*at)[1]));
        std::smatch count;
        const std::string plain = std::regex_replace(bar, symbol, "");
        bars.insert(bars.end(), std::regex_match(plain, count, rests) ? std::stoul(count[1]) : 1,
                    last);
        if (last.size() > 1) last = {last.back()};
    }
    return bars;
}

}  // namespace music
