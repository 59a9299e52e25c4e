// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sound_font.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <vector>

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

}  // namespace

fs::path findSoundFont(const char* listed) {
    Paths fonts;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the program sets no variables
    appendListed(fonts, std::getenv("SDL_SOUNDFONTS"));
    appendListed(fonts, listed);
    for (const char* folder :
         {"/usr/share/sounds/sf2", "/usr/share/soundfonts", "/usr/share/sounds/sf3"})
        appendInstalled(fonts, folder);
    std::error_code error;
    for (const fs::path& font : fonts)
        if (fs::is_regular_file(font, error)) return font;
    return {};
}
