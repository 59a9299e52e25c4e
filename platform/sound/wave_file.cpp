// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/wave_file.h"

#include <cstdint>

#include "platform/sound/sound_file.h"

namespace {

/// What follows the name of a chunk of a WAVE file; it is filled up to an even length.
Bytes takeChunk(ByteReader& reader) {
    const std::size_t size = reader.littleEndian(4);
    return reader.take(size + size % 2);
}

}  // namespace

bool plausibleWave(Bytes file) {
    ByteReader reader(file);
    if (!reader.takeName("RIFF")) return false;
    reader.take(4);
    if (!reader.takeName("WAVEfmt ")) return false;
    ByteReader format(takeChunk(reader));
    format.take(2);
    const std::uint32_t channels = format.littleEndian(2), frequency = format.littleEndian(4);
    if (channels < 1 || channels > 2 || frequency < 4'000 || frequency > 192'000) return false;
    while (!reader.done()) {
        // A file may break off, but as much memory is asked for as it promises.
        if (reader.takeName("data")) return reader.littleEndian(4) <= largestSoundFile;
        takeChunk(reader);
    }
    return false;
}
