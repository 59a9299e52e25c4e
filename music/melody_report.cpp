// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Tells who writes a melody what is measured of it, and which notes clash.
//
//   velarda-melody-report FILE.abc FILE.mid

#include <cstdio>
#include <exception>
#include <fstream>
#include <sstream>

#include "music/score.h"

namespace {

std::string contentOf(const char* path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

void report(const char* abc, const char* midi) {
    const std::string bytes = contentOf(midi);
    const music::Score score =
        music::readScore({reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()});
    std::printf("%zu bars, %.1f s, %.1f notes a second, at most %.1f, %.1f s without a rest\n",
                score.bars(), score.seconds, music::notesASecond(score),
                music::mostNotesASecond(score), music::longestWithoutRest(score));
    std::printf("%zu different bars of drums\n", music::drumRhythms(score));
    std::set<int> voices;
    for (const music::Note& note : score.notes)
        if (voices.insert(note.voice).second)
            std::printf("channel %d, which begins with %s: silent %.0f %%\n", note.voice + 1,
                        music::nameOf(note).c_str(), 100 * music::silence(score, note.voice));
    for (const music::Note& note : score.notes)
        if (!music::isInGoodRegister(note))
            std::printf("%s: %s is out of its good register\n", score.placeOf(note.begin).c_str(),
                        music::nameOf(note).c_str());
    for (const std::string& clash : music::clashes(score, music::readHarmony(contentOf(abc))))
        std::printf("%s\n", clash.c_str());
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "velarda-melody-report FILE.abc FILE.mid\n");
        return 2;
    }
    try {
        report(arguments[1], arguments[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], error.what());
        return 1;
    }
}
