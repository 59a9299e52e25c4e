// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "music/score.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/sound/midi_file.h"

namespace music {
namespace {

constexpr int drums = 9;  ///< the channel

/// Reads a track of a file that the game has found to be sound.
class Track {
public:
    Track(Bytes bytes, Tick quarter, Score& score)
        : bytes_(bytes), quarter_(quarter), score_(score) {}

    void read() {
        const std::size_t before = score_.notes.size();
        while (!bytes_.done()) readEvent();
        score_.held += static_cast<int>(sounding_.size() + pedals_.size());
        if (score_.notes.size() > before) score_.firstEnd = std::min(score_.firstEnd, tick_);
        score_.end = std::max(score_.end, tick_);
    }

private:
    int byte() { return static_cast<int>(bytes_.bigEndian(1)); }

    Tick variable() {
        Tick value = 0, next = 0x80;
        for (; next >= 0x80; value = value << 7 | (next & 0x7F)) next = bytes_.bigEndian(1);
        return value;
    }

    void readEvent() {
        tick_ += variable();
        int first = byte();
        if (first == 0xFF) return readMeta();
        if (first >= 0x80) status_ = std::exchange(first, byte());
        const int kind = status_ >> 4, channel = status_ & 0x0F;
        if (kind == 0xC) programs_[channel] = first;
        if (kind == 0xC || kind == 0xD) return;
        const int second = byte();
        if (kind == 0xB && first == 64) movePedal(channel, second >= 64);
        if (kind == 0x9 && second > 0) {
            begin(channel, first);
        } else if (kind == 0x8 || kind == 0x9) {
            finish(channel, first);
        }
    }

    void readMeta() {
        constexpr int metre = 0x58;
        const int type = byte();
        ByteReader body(bytes_.take(variable()));
        if (type != metre) return;
        const Tick count = body.bigEndian(1), unit = 1u << body.bigEndian(1);
        const Tick tick = 4 * quarter_ / unit;
        score_.bar = count * tick;
        // In six-eight and twelve-eight three of them are a beat, in two-two half of one.
        score_.beat = unit == 8 && count % 3 == 0 ? 3 * tick : std::min(tick, quarter_);
    }

    void movePedal(int channel, bool down) {
        pedals_.erase(channel);
        if (down) pedals_.insert(channel);
    }

    void begin(int channel, int pitch) {
        const int instrument = programs_[channel] + (channel == drums ? drumKits : 0);
        sounding_[{channel, pitch}] = score_.notes.size();
        score_.notes.push_back({tick_, tick_, channel, instrument, pitch});
    }

    void finish(int channel, int pitch) {
        const auto found = sounding_.find({channel, pitch});
        if (found == sounding_.end()) return;
        score_.notes.at(found->second).end = tick_;
        sounding_.erase(found);
    }

    ByteReader bytes_;
    const Tick quarter_;
    Score& score_;
    Tick tick_ = 0;
    int status_ = 0;
    std::map<int, int> programs_;  ///< by channel
    std::set<int> pedals_;
    std::map<std::pair<int, int>, std::size_t> sounding_;  ///< by channel and pitch
};

}  // namespace

Score readScore(Bytes midi) {
    Score score;
    score.seconds = melodySeconds(midi).value_or(0);
    ByteReader file(midi);
    file.take(12);
    const Tick quarter = file.bigEndian(2);
    while (!file.done()) {
        file.take(4);
        Track(file.take(file.bigEndian(4)), quarter, score).read();
    }
    std::ranges::stable_sort(score.notes, {}, &Note::begin);
    return score;
}

std::string Score::placeOf(Tick tick) const {
    return "bar " + std::to_string(barOf(tick)) + ", beat " + std::to_string(tick % bar / beat + 1);
}

}  // namespace music
