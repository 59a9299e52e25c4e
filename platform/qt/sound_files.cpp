// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/sound_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace {

constexpr qint64 largestFile = 4 << 20;  ///< bytes

using Bytes = std::span<const unsigned char>;

/// Reads numbers from bytes, most significant first. Past the end, or after `fail`, all are 0.
class Reader {
public:
    explicit Reader(Bytes bytes) : left_(bytes) {}

    bool good() const { return good_; }
    bool done() const { return left_.empty(); }
    void fail() { left_ = {}, good_ = false; }

    Bytes take(std::size_t count) {
        if (count > left_.size()) fail();
        const Bytes taken = left_.first(good_ ? count : 0);
        left_ = left_.subspan(taken.size());
        return taken;
    }

    std::uint32_t number(std::size_t bytes) {
        std::uint32_t value = 0;
        for (const unsigned char byte : take(bytes)) value = value << 8 | byte;
        return value;
    }

    /// Seven bits a byte, the last one below 128; four bytes at most.
    std::uint32_t variable() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const std::uint32_t byte = number(1);
            value = value << 7 | (byte & 127);
            if (byte < 128) return value;
        }
        fail();
        return 0;
    }

    void data(int count) {
        for (int i = 0; i < count; ++i)
            if (number(1) > 127) fail();
    }

private:
    Bytes left_;
    bool good_ = true;
};

struct Tempo {
    std::uint64_t tick;
    std::uint32_t quarter;  ///< microseconds
};

struct Score {
    std::vector<Tempo> tempos{{0, 500'000}};
    std::uint64_t end = 0;  ///< ticks
};

void readTempo(Reader& body, std::uint64_t tick, Score& score) {
    const std::uint32_t quarter = body.number(3);
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
bool readMeta(Reader& track, std::uint64_t tick, Score& score) {
    const std::uint32_t type = track.number(1);
    const Bytes bytes = track.take(track.variable());
    if (!fits(type, bytes.size())) track.fail();
    Reader body(bytes);
    if (type == 0x51) readTempo(body, tick, score);
    const bool atEnd = type == 0x2F;
    if (!body.good() || (atEnd && !track.done())) track.fail();
    return atEnd;
}

void readChannelEvent(Reader& track, std::uint32_t status) {
    const std::uint32_t kind = status >> 4;
    track.data(kind == 0xC || kind == 0xD ? 1 : 2);
}

/// A byte that is not a status belongs to an event with the status of the one before. Bare bytes
/// for the wire, 0xF7, are more than some synthesizers know, like the rest from 0xF1 on.
void readNote(Reader& track, std::uint32_t first, std::uint32_t& running) {
    if (first >= 0xF0) return track.fail();
    if (first >= 0x80) {
        running = first;
        return readChannelEvent(track, running);
    }
    if (running == 0) return track.fail();
    const std::uint32_t kind = running >> 4;
    track.data(kind == 0xC || kind == 0xD ? 0 : 1);
}

bool readTrack(Reader track, Score& score) {
    std::uint64_t tick = 0;
    std::uint32_t running = 0;
    while (track.good()) {
        tick += track.variable();
        const std::uint32_t first = track.number(1);
        if (first == 0xFF) {
            if (readMeta(track, tick, score)) break;
        } else if (first == 0xF0) {
            track.take(track.variable());
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

bool named(Bytes bytes, std::string_view name) {
    return std::ranges::equal(bytes, name, [](unsigned char a, unsigned char b) { return a == b; });
}

Bytes bytesOf(const QByteArray& file) {
    return {reinterpret_cast<const unsigned char*>(file.constData()),
            static_cast<std::size_t>(file.size())};
}

std::uint32_t leastFirst(Reader& reader, int bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < bytes; ++i) value |= reader.number(1) << 8 * i;
    return value;
}

/// What follows the name of a chunk of a WAVE file; it is filled up to an even length.
Bytes takeChunk(Reader& reader) {
    const std::size_t size = leastFirst(reader, 4);
    return reader.take(size + size % 2);
}

QStringList installedSoundFonts(const QString& folder) {
    const QDir found(folder);
    QStringList paths;
    const QStringList patterns{QStringLiteral("*.sf2"), QStringLiteral("*.sf3")};
    for (const QString& name : found.entryList(patterns, QDir::Files, QDir::Name))
        paths.push_back(found.filePath(name));
    return paths;
}

}  // namespace

QString findSoundFile(const QString& path) {
    const QFileInfo exact(path);
    if (exact.isFile()) return exact.size() > 0 ? path : QString();
    for (const QFileInfo& file : exact.dir().entryInfoList(QDir::Files, QDir::Name))
        if (file.fileName().compare(exact.fileName(), Qt::CaseInsensitive) == 0 && file.size() > 0)
            return file.filePath();
    return {};
}

QByteArray readSoundFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.read(largestFile + 1);
    return bytes.size() > largestFile ? QByteArray() : bytes;
}

std::optional<double> melodySeconds(const QByteArray& file) {
    Reader reader(bytesOf(file));
    if (!named(reader.take(4), "MThd") || reader.number(4) != 6) return std::nullopt;
    const std::uint32_t format = reader.number(2), tracks = reader.number(2);
    const std::uint32_t ticksPerQuarter = reader.number(2);
    if (format > 1 || tracks == 0 || tracks > 64) return std::nullopt;
    if (ticksPerQuarter == 0 || ticksPerQuarter > 0x7FFF) return std::nullopt;
    Score score;
    for (std::uint32_t i = 0; i < tracks; ++i) {
        if (!named(reader.take(4), "MTrk")) return std::nullopt;
        if (!readTrack(Reader(reader.take(reader.number(4))), score)) return std::nullopt;
    }
    if (score.end > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    const double seconds = secondsOf(std::move(score), ticksPerQuarter);
    if (seconds < 0.5 || seconds > 3600) return std::nullopt;
    return seconds;
}

bool plausibleWave(const QByteArray& file) {
    Reader reader(bytesOf(file));
    if (!named(reader.take(4), "RIFF")) return false;
    reader.take(4);
    if (!named(reader.take(8), "WAVEfmt ")) return false;
    Reader format(takeChunk(reader));
    format.take(2);
    const std::uint32_t channels = leastFirst(format, 2), rate = leastFirst(format, 4);
    if (channels < 1 || channels > 2 || rate < 4'000 || rate > 192'000) return false;
    while (!reader.done()) {
        // A file may break off, but as much memory is asked for as it promises.
        if (named(reader.take(4), "data")) return leastFirst(reader, 4) <= largestFile;
        takeChunk(reader);
    }
    return false;
}

QString findSoundFont(const char* listed) {
    static const QRegularExpression separator(QStringLiteral("[:;]"));
    const QString first = qEnvironmentVariable("SDL_SOUNDFONTS");
    QStringList fonts = (first + u':' + QString::fromLocal8Bit(listed)).split(separator);
    for (const char* folder :
         {"/usr/share/sounds/sf2", "/usr/share/soundfonts", "/usr/share/sounds/sf3"})
        fonts += installedSoundFonts(QString::fromLatin1(folder));
    for (const QString& font : fonts)
        if (QFileInfo(font).isFile()) return font;
    return {};
}
