// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/sound/byte_reader.h"

/// Whether a WAVE file says of itself what can be believed: its chunks are whole up to the sound,
/// and that is no longer than any of the game.
bool plausibleWave(Bytes file);
