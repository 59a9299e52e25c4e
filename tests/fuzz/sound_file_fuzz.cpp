// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Any bytes as a sound file, judged as before they are played.

#include <cassert>

#include "platform/sound/midi_file.h"
#include "platform/sound/wave_file.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    plausibleWave({data, size});
    const double seconds = melodySeconds({data, size}).value_or(1);
    assert(seconds >= 0.5 && seconds <= 3600);
    return 0;
}
