// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/melody_bytes.h"

#include "platform/sound/midi_file.h"

/// SDL's way to the system's synthesizer plays on as the last event comes, a rest or not.
std::vector<unsigned char> melodyBytes(Bytes file) {
    return withEventAtEnd(file);
}
