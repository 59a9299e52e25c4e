// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Any bytes as a sound file, judged as before they are played, beside the reader of the tests.

#include <cassert>
#include <cmath>

#include "../music/midi_file.h"
#include "platform/sound/midi_file.h"
#include "platform/sound/wave_file.h"

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    const Bytes file(reinterpret_cast<const unsigned char*>(data), size);
    plausibleWave(file);
    const std::optional<double> length = melodySeconds(file);
    try {
        const MidiMelody strict = MidiReader(std::string(data, size)).read();
        if (length) assert(std::abs(*length / strict.seconds(strict.end) - 1) < 1e-6);
    } catch (const std::runtime_error&) {  // it refuses what is merely odd, too
    }
    return 0;
}
