// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>

/// What a sound font says of itself, which takes reading a few thousandths of it.
struct SoundFontFile {
    bool hasAllInstruments = false;  ///< of General MIDI, the drums too
};

/// Nothing unless the file is a sound font as long as it says it is, with the list of instruments
/// that stands near its end: so not when it is damaged, broken off or empty.
std::optional<SoundFontFile> readSoundFontFile(const std::filesystem::path&);
