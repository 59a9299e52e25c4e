// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sound_file.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace {

bool holdsSomething(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    return !error && size > 0;
}

bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

/// Bytes that are no letters from A to Z, as those of other alphabets, stay as they are.
std::string lowered(std::u8string_view name) {
    std::string result;
    for (const char8_t letter : name) {
        const bool capital = letter >= u8'A' && letter <= u8'Z';
        result.push_back(static_cast<char>(capital ? letter - u8'A' + u8'a' : letter));
    }
    return result;
}

}  // namespace

fs::path pathOf(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

fs::path findSoundFile(const fs::path& path) {
    if (isFile(path)) return holdsSomething(path) ? path : fs::path();
    const fs::path folder = path.has_parent_path() ? path.parent_path() : ".";
    const std::string wanted = lowered(path.filename().u8string());
    fs::path found;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const fs::path& file = at->path();
        if (lowered(file.filename().u8string()) != wanted) continue;
        if (!isFile(file) || !holdsSomething(file)) continue;
        if (found.empty() || file < found) found = file;
    }
    return found;
}

std::vector<unsigned char> readSoundFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<unsigned char> bytes;
    std::array<char, 1 << 14> part{};
    do {
        file.read(part.data(), part.size());
        bytes.insert(bytes.end(), part.begin(), part.begin() + file.gcount());
    } while (file && bytes.size() <= largestSoundFile);
    if (bytes.size() > largestSoundFile) return {};
    return bytes;
}
