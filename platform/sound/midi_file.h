// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include "platform/sound/byte_reader.h"

/// How long a MIDI file plays, in seconds. Nothing unless the file is sound in every part and
/// plays for between half a second and an hour: a synthesizer that plays anything else over and
/// over may never come back from it.
std::optional<double> melodySeconds(Bytes file);

/// The same melody with one event more, which is not heard, at its very end: for a synthesizer to
/// which a melody ends with its last event. As it is when it is not sound.
std::vector<unsigned char> withEventAtEnd(Bytes file);
