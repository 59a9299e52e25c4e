// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/melody_bytes.h"

/// This one keeps to the end of the tracks.
std::vector<unsigned char> melodyBytes(Bytes file) {
    return {file.begin(), file.end()};
}
