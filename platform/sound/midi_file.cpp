// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/midi_file.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Seven bits a byte, the last one below 128; four bytes at most.
std::uint32_t takeVariable(ByteReader& reader) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
        const std::uint32_t byte = reader.bigEndian(1);
        value = value << 7 | (byte & 127);
        if (byte < 128) return value;
    }
    reader.fail();
    return 0;
}

void takeData(ByteReader& reader, int count) {
    for (int i = 0; i < count; ++i)
        if (reader.bigEndian(1) > 127) reader.fail();
}

struct Tempo {
    std::uint64_t tick;
    std::uint32_t quarter;  ///< microseconds
};

struct Score {
    std::vector<Tempo> tempos{{0, 500'000}};
    std::uint64_t end = 0;  ///< ticks
};

void readTempo(ByteReader& body, std::uint64_t tick, Score& score) {
    const std::uint32_t quarter = body.bigEndian(3);
    if (quarter == 0) body.fail();
    score.tempos.push_back({tick, quarter});
}

/// The standard gives some events one length. A synthesizer refuses a file with any other.
bool fits(std::uint32_t type, std::size_t length) {
    constexpr std::pair<std::uint32_t, std::size_t> fixed[] = {
        {0x2F, 0}, {0x51, 3}, {0x54, 5}, {0x58, 4}, {0x59, 2}};
    return std::ranges::none_of(
        fixed, [&](const auto& of) { return of.first == type && of.second != length; });
}

/// True at the end of the track, which must be where its bytes end.
bool readMeta(ByteReader& track, std::uint64_t tick, Score& score) {
    const std::uint32_t type = track.bigEndian(1);
    const Bytes bytes = track.take(takeVariable(track));
    if (!fits(type, bytes.size())) track.fail();
    ByteReader body(bytes);
    if (type == 0x51) readTempo(body, tick, score);
    const bool atEnd = type == 0x2F;
    if (!body.good() || (atEnd && !track.done())) track.fail();
    return atEnd;
}

void readChannelEvent(ByteReader& track, std::uint32_t status) {
    const std::uint32_t kind = status >> 4;
    takeData(track, kind == 0xC || kind == 0xD ? 1 : 2);
}

/// A byte that is not a status belongs to an event with the status of the one before. Bare bytes
/// for the wire, 0xF7, are more than some synthesizers know, like the rest from 0xF1 on.
void readNote(ByteReader& track, std::uint32_t first, std::uint32_t& running) {
    if (first >= 0xF0) return track.fail();
    if (first >= 0x80) {
        running = first;
        return readChannelEvent(track, running);
    }
    if (running == 0) return track.fail();
    const std::uint32_t kind = running >> 4;
    takeData(track, kind == 0xC || kind == 0xD ? 0 : 1);
}

bool readTrack(ByteReader track, Score& score) {
    std::uint64_t tick = 0;
    std::uint32_t running = 0;
    while (track.good()) {
        tick += takeVariable(track);
        const std::uint32_t first = track.bigEndian(1);
        if (first == 0xFF) {
            if (readMeta(track, tick, score)) break;
        } else if (first == 0xF0) {
            track.take(takeVariable(track));
        } else {
            readNote(track, first, running);
            continue;
        }
        running = 0;
    }
    score.end = std::max(score.end, tick);
    return track.good();
}

double secondsOf(Score score, std::uint32_t ticksPerQuarter) {
    std::ranges::stable_sort(score.tempos, {}, &Tempo::tick);
    score.tempos.push_back({score.end, 1});
    double microseconds = 0;
    for (std::size_t i = 0; i + 1 < score.tempos.size(); ++i) {
        const auto ticks = static_cast<double>(score.tempos[i + 1].tick - score.tempos[i].tick);
        microseconds += ticks * score.tempos[i].quarter / ticksPerQuarter;
    }
    return microseconds * 1e-6;
}

struct Piece {
    Score score;
    std::uint32_t ticksPerQuarter = 0;
    double seconds() const { return secondsOf(score, ticksPerQuarter); }
};

std::optional<Piece> readPiece(Bytes file) {
    ByteReader reader(file);
    if (!reader.takeName("MThd") || reader.bigEndian(4) != 6) return std::nullopt;
    const std::uint32_t format = reader.bigEndian(2), tracks = reader.bigEndian(2);
    Piece piece{.score = {}, .ticksPerQuarter = reader.bigEndian(2)};
    if (format > 1 || tracks == 0 || tracks > 64) return std::nullopt;
    if (piece.ticksPerQuarter == 0 || piece.ticksPerQuarter > 0x7FFF) return std::nullopt;
    for (std::uint32_t i = 0; i < tracks; ++i) {
        if (!reader.takeName("MTrk")) return std::nullopt;
        const Bytes track = reader.take(reader.bigEndian(4));
        if (!readTrack(ByteReader(track), piece.score)) return std::nullopt;
    }
    if (piece.score.end > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    return piece;
}

}  // namespace

std::optional<double> melodySeconds(Bytes file) {
    const std::optional<Piece> piece = readPiece(file);
    const double seconds = piece ? piece->seconds() : 0;
    if (seconds < 0.5 || seconds > 3600) return std::nullopt;
    return seconds;
}

std::vector<unsigned char> withEventAtEnd(Bytes file) {
    constexpr std::size_t headSize = 14, formatPlace = 9, tracksPlace = 11;
    constexpr std::uint64_t longestWait = 0xFFFFFFF;
    std::vector<unsigned char> longer(file.begin(), file.end());
    const std::optional<Piece> piece = readPiece(file);
    if (!piece || piece->score.end > longestWait) return longer;
    std::string track("MTrk\0\0\0\x0B", 8);
    for (const int shift : {21, 14, 7, 0})
        track += static_cast<char>((piece->score.end >> shift & 127) | (shift > 0 ? 128 : 0));
    track.append("\x80\0\0", 3);      // the lowest note ends, which has not begun
    track.append("\0\xFF\x2F\0", 4);  // and the track
    longer[formatPlace] = 1;          // of several tracks
    ++longer[tracksPlace];
    longer.insert(longer.begin() + headSize, track.begin(), track.end());
    return longer;
}
