// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sound_font.h"

/// The system's synthesiser has instruments of its own.
std::vector<std::filesystem::path> soundFontFolders() {
    return {};
}

std::filesystem::path findSoundFont(const char*, const std::vector<std::filesystem::path>&) {
    return {};
}
