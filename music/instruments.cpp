// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <stdexcept>

#include "music/score.h"

namespace music {
namespace {

struct Instrument {
    int number;
    const char* name;
    int lowest, highest;  ///< where it sounds well in a small sound bank
};

/// Those that the melodies have; 60 is the middle C.
constexpr std::array instruments = {Instrument{0, "Piano", 24, 96},
                                    Instrument{4, "Electric piano", 36, 88},
                                    Instrument{7, "Clavinet", 36, 88},
                                    Instrument{8, "Celesta", 60, 103},
                                    Instrument{9, "Glockenspiel", 72, 103},
                                    Instrument{15, "Dulcimer", 53, 91},
                                    Instrument{11, "Vibraphone", 53, 89},
                                    Instrument{12, "Marimba", 45, 91},
                                    Instrument{13, "Xylophone", 65, 99},
                                    Instrument{14, "Bells", 60, 84},
                                    Instrument{18, "Rock organ", 45, 88},
                                    Instrument{21, "Accordion", 53, 88},
                                    Instrument{22, "Harmonica", 60, 88},
                                    Instrument{24, "Nylon guitar", 40, 86},
                                    Instrument{25, "Steel guitar", 40, 86},
                                    Instrument{26, "Jazz guitar", 40, 82},
                                    Instrument{27, "Clean guitar", 38, 84},
                                    Instrument{28, "Muted guitar", 38, 80},
                                    Instrument{29, "Overdriven guitar", 38, 84},
                                    Instrument{30, "Distortion guitar", 38, 84},
                                    Instrument{32, "Double bass", 28, 60},
                                    Instrument{33, "Fingered bass", 28, 62},
                                    Instrument{34, "Picked bass", 28, 60},
                                    Instrument{35, "Fretless bass", 28, 62},
                                    Instrument{36, "Slap bass", 28, 60},
                                    Instrument{38, "Synth bass", 28, 64},
                                    Instrument{40, "Violin", 55, 96},
                                    Instrument{41, "Viola", 48, 86},
                                    Instrument{42, "Cello", 36, 76},
                                    Instrument{43, "Double basses", 26, 60},
                                    Instrument{45, "Pizzicato", 36, 91},
                                    Instrument{46, "Harp", 30, 98},
                                    Instrument{47, "Timpani", 36, 57},
                                    Instrument{44, "Tremolo strings", 43, 94},
                                    Instrument{49, "Slow strings", 43, 94},
                                    Instrument{52, "Choir", 48, 84},
                                    Instrument{54, "Synth voice", 48, 84},
                                    Instrument{56, "Trumpet", 54, 84},
                                    Instrument{57, "Trombone", 40, 72},
                                    Instrument{58, "Tuba", 26, 60},
                                    Instrument{60, "Horn", 41, 77},
                                    Instrument{61, "Brass", 46, 84},
                                    Instrument{65, "Alto saxophone", 56, 83},
                                    Instrument{68, "Oboe", 58, 88},
                                    Instrument{69, "English horn", 52, 81},
                                    Instrument{70, "Bassoon", 34, 72},
                                    Instrument{71, "Clarinet", 50, 91},
                                    Instrument{72, "Piccolo", 74, 91},
                                    Instrument{73, "Flute", 60, 96},
                                    Instrument{75, "Pan flute", 60, 91},
                                    Instrument{79, "Ocarina", 62, 89},
                                    Instrument{80, "Square lead", 43, 91},
                                    Instrument{81, "Saw lead", 43, 91},
                                    Instrument{82, "Calliope", 53, 91},
                                    Instrument{84, "Charang", 48, 91},
                                    Instrument{89, "Warm pad", 41, 84},
                                    Instrument{91, "Space voice", 41, 84},
                                    Instrument{98, "Crystal", 55, 98}};

const Instrument& instrumentOf(const Note& note) {
    const auto* const found = std::ranges::find(instruments, note.instrument, &Instrument::number);
    if (found == instruments.end())
        throw std::runtime_error("instrument " + std::to_string(note.instrument) + " is new");
    return *found;
}

}  // namespace

std::string nameOf(const Note& note) {
    static constexpr std::array letters = {"C",  "C#", "D",  "Eb", "E",  "F",
                                           "F#", "G",  "Ab", "A",  "Bb", "B"};
    if (note.instrument >= drumKits) return "Drum " + std::to_string(note.pitch);
    return std::string(instrumentOf(note).name) + ' ' +
           letters.at(static_cast<std::size_t>(note.pitch % 12)) +
           std::to_string(note.pitch / 12 - 1);
}

bool isInGoodRegister(const Note& note) {
    if (note.instrument >= drumKits) return true;
    const Instrument& instrument = instrumentOf(note);
    return instrument.lowest <= note.pitch && note.pitch <= instrument.highest;
}

}  // namespace music
