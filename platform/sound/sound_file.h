// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

constexpr std::size_t largestSoundFile = 4 << 20;  ///< bytes

/// A path as the system writes it, of one in UTF-8.
std::filesystem::path pathOf(const std::string& utf8);

/// The file that a path names, whatever the case of the letters A to Z in its name within its
/// folder; an exact match comes first. Empty when there is no such file or it holds nothing.
std::filesystem::path findSoundFile(const std::filesystem::path&);

/// What a file holds; empty when it cannot be read or is larger than any sound of the game.
std::vector<unsigned char> readSoundFile(const std::filesystem::path&);
