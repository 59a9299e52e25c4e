// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sound_font.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <system_error>
#include <tuple>

#include "platform/sound/sound_font_file.h"

namespace fs = std::filesystem;

namespace {

using Paths = std::vector<fs::path>;

/// Appends paths that stand between colons or semicolons.
void appendListed(Paths& fonts, const char* list) {
    std::string_view left = list ? list : "";
    while (!left.empty()) {
        const std::size_t end = std::min(left.find_first_of(":;"), left.size());
        fonts.emplace_back(left.substr(0, end));
        left.remove_prefix(std::min(end + 1, left.size()));
    }
}

void appendInstalled(Paths& fonts, const fs::path& folder) {
    Paths found;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const fs::path ending = at->path().extension();
        if (ending == ".sf2" || ending == ".sf3") found.push_back(at->path());
    }
    std::ranges::sort(found);
    fonts.insert(fonts.end(), found.begin(), found.end());
}

/// How much memory it takes, roughly. Compressed samples are unpacked when they are loaded.
std::uintmax_t weight(const fs::path& font) {
    constexpr std::uintmax_t unpacked = 8;
    std::error_code error;
    const bool isCompressed = fs::canonical(font, error).extension() == ".sf3";
    return fs::file_size(font, error) * (isCompressed ? unpacked : 1);
}

/// Whole fonts only; the first of the list where several are equal.
fs::path best(const Paths& fonts) {
    const auto rank = [](const fs::path& font) {
        const std::optional<SoundFontFile> known = readSoundFontFile(font);
        const bool isIntended = font.filename() == "TimGM6mb.sf2";
        const bool isPartial = !known || !known->hasAllInstruments;
        return std::tuple(!known, !isIntended, isPartial, weight(font));
    };
    const auto found = std::ranges::min_element(fonts, {}, rank);
    return found != fonts.end() && readSoundFontFile(*found) ? *found : fs::path();
}

}  // namespace

Paths soundFontFolders() {
    return {"/usr/share/sounds/sf2", "/usr/share/soundfonts", "/usr/share/sounds/sf3"};
}

fs::path findSoundFont(const char* listed, const Paths& folders) {
    Paths chosen, installed;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the program sets no variables
    appendListed(chosen, std::getenv("SDL_SOUNDFONTS"));
    for (const fs::path& font : chosen)
        if (readSoundFontFile(font)) return font;
    appendListed(installed, listed);
    for (const fs::path& folder : folders) appendInstalled(installed, folder);
    return best(installed);
}
