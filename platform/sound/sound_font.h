// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <vector>

/// Where systems install sound fonts.
std::vector<std::filesystem::path> soundFontFolders();

/// The sound font to play melodies with; empty when there is none.
///
/// The user's own choice comes first: the first whole one (see `readSoundFontFile`) of those that
/// the environment variable SDL_SOUNDFONTS lists, as paths between colons or semicolons. Of those
/// in the folders, and in the list given, which may be null, TimGM6mb comes first: the melodies
/// were made for it. Then comes the one that takes the least memory: a large one is no better for
/// twelve melodies, takes three times the memory of the whole game, and lets the first melody wait.
/// One that has not got all the instruments of General MIDI comes last.
std::filesystem::path findSoundFont(const char* listed,
                                    const std::vector<std::filesystem::path>& folders);
