// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

/// The General MIDI sound font to play melodies with: the first one that exists of those that the
/// environment variable SDL_SOUNDFONTS lists (paths between colons or semicolons), then of the list
/// given, which may be null, then of those in the system's usual folders. Empty when there is none.
std::filesystem::path findSoundFont(const char* listed);
