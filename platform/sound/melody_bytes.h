// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "platform/sound/byte_reader.h"

/// What the synthesizer is given to play of a sound MIDI file, so that a repetition begins when the
/// length that the file tells is over.
std::vector<unsigned char> melodyBytes(Bytes file);
