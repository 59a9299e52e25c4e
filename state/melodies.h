// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <array>

/// The music menu from its first entry: no music, then the melodies. A melody's name is that of its
/// source in music/ and of its file beside the program; the build reads the names from here. A new
/// one goes to the end: settings hold the number.
inline constexpr std::array melodies{
    "None",     "Humanoid", "Impact",   "Go4yrgun", "Sevilana", "Bugs",  "Astro",
    "Champion", "Champs",   "Easycity", "Fastlane", "Lastday",  "Scopa",
};
inline constexpr int noMelody = 0, lastMelody = static_cast<int>(melodies.size()) - 1;
