// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sound_font_file.h"

#include <bitset>
#include <cstdint>
#include <fstream>
#include <system_error>
#include <vector>

#include "platform/sound/byte_reader.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t chunkHead = 8, listHead = 12;  ///< bytes
constexpr std::size_t instrument = 38;               ///< bytes, of which 20 are its name

/// The next bytes of a file that may be too large to be read whole; fewer at its end.
std::vector<unsigned char> next(std::ifstream& file, std::size_t count) {
    std::vector<unsigned char> bytes(count);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(count));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

bool isAsLongAsItSays(std::ifstream& file, std::uintmax_t length) {
    const std::vector<unsigned char> bytes = next(file, listHead);
    ByteReader reader(bytes);
    if (!reader.takeName("RIFF")) return false;
    const std::uintmax_t said = reader.littleEndian(4);
    return said + chunkHead <= length && reader.takeName("sfbk");
}

/// The list of instruments; empty when there is none.
std::vector<unsigned char> instruments(std::ifstream& file) {
    constexpr int lists = 3;
    constexpr std::uint32_t most = 1 << 20;
    for (int i = 0; i < lists; ++i) {
        const std::vector<unsigned char> bytes = next(file, listHead + chunkHead);
        ByteReader reader(bytes);
        if (!reader.takeName("LIST")) break;
        const std::uint32_t size = reader.littleEndian(4);
        if (reader.takeName("pdta") && reader.takeName("phdr")) {
            const std::uint32_t content = reader.littleEndian(4);
            return content > most ? std::vector<unsigned char>() : next(file, content);
        }
        file.seekg(std::int64_t{size} - static_cast<std::int64_t>(listHead), std::ios::cur);
    }
    return {};
}

/// The last entry of the list stands for none.
bool areAllThere(const std::vector<unsigned char>& list) {
    constexpr std::uint32_t usualBank = 0, drumBank = 128;
    std::bitset<128> usual;
    bool drums = false;
    ByteReader reader(list);
    for (std::size_t left = list.size() / instrument; left > 1; --left) {
        ByteReader entry(reader.take(instrument));
        entry.take(20);
        const std::uint32_t number = entry.littleEndian(2), bank = entry.littleEndian(2);
        if (bank == usualBank && number < usual.size()) usual.set(number);
        if (bank == drumBank) drums = true;
    }
    return usual.all() && drums;
}

}  // namespace

std::optional<SoundFontFile> readSoundFontFile(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return std::nullopt;
    const std::uintmax_t length = fs::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || !isAsLongAsItSays(file, length)) return std::nullopt;
    const std::vector<unsigned char> list = instruments(file);
    if (list.size() < 2 * instrument) return std::nullopt;
    return SoundFontFile{areAllThere(list)};
}
