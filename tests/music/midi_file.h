// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// A strict reader of standard MIDI files, for the tests of the melodies: whatever a lenient player
// might swallow (a wrong track length, a stray byte, a note that nothing ends) is an error here.

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

/// What a melody is made of. Times are in ticks.
struct MidiMelody {
    std::uint32_t division = 1;                    ///< of a quarter note
    std::uint32_t bar = 0;                         ///< by the last time signature
    std::map<std::uint32_t, std::uint32_t> tempo;  ///< when -> microseconds in a quarter note
    std::uint32_t firstNote = ~0u, lastOff = 0;
    std::uint32_t firstEnd = ~0u, end = 0;  ///< of the tracks
    std::set<int> channels, instruments;    ///< that notes are heard on; drum kits begin at 128
    std::array<std::uint64_t, 12> pitchClasses{};  ///< how long each sounds, without the drums

    double seconds(std::uint32_t tick) const {
        double each = 500'000, total = each * tick;  // without a tempo half a second a quarter note
        for (const auto& [start, microseconds] : tempo) {
            if (start < tick) total += (microseconds - each) * (tick - start);
            each = microseconds;
        }
        return total / division / 1e6;
    }
};

/// Throws std::runtime_error, with the place, when the bytes are not a sound standard MIDI file.
class MidiReader {
public:
    explicit MidiReader(std::string bytes) : bytes_(std::move(bytes)), limit_(bytes_.size()) {}

    MidiMelody read() {
        const bool known = number(4) == 0x4D546864;  // MThd
        require(known && number(4) == 6 && number(2) <= 1, "bad header");
        const std::uint32_t tracks = number(2);
        melody_.division = number(2);
        for (std::uint32_t i = 0; i < tracks; ++i) track();
        require(place_ == bytes_.size(), "bytes after the last track");
        require(pedals_.empty(), "a pedal that is held to the end");
        return melody_;
    }

private:
    void require(bool sound, const char* what) const {
        if (!sound) throw std::runtime_error(what + (" at byte " + std::to_string(place_)));
    }

    std::uint8_t byte() {
        require(place_ < limit_, "the file or the track breaks off");
        return static_cast<std::uint8_t>(bytes_[place_++]);
    }

    int data() {
        const std::uint8_t b = byte();
        require(b < 0x80, "a status byte among data");
        return b;
    }

    std::uint32_t number(int size) {
        std::uint32_t value = 0;
        while (size-- > 0) value = value << 8 | byte();
        return value;
    }

    std::uint32_t variable() {
        std::uint32_t value = 0, b = 0x80;
        for (int i = 0; i < 4 && b >= 0x80; ++i) value = value << 7 | ((b = byte()) & 0x7F);
        require(b < 0x80, "an endless number");
        return value;
    }

    void track() {
        require(number(4) == 0x4D54726B, "no track");  // MTrk
        const std::uint32_t length = number(4);
        require(length <= bytes_.size() - place_, "a track that is longer than the file");
        limit_ = place_ + length;
        status_ = 0;
        for (tick_ = 0; event();) continue;
        require(place_ == limit_, "events after the end of the track");
        limit_ = bytes_.size();
        for (const auto& [key, notes] : sounding_) require(notes.empty(), "a note without its off");
        if (!sounding_.empty()) melody_.firstEnd = std::min(melody_.firstEnd, tick_);
        melody_.end = std::max(melody_.end, tick_);
        sounding_.clear();
    }

    /// Reads one event; false when it was the end of the track.
    bool event() {
        tick_ += variable();
        const int first = byte();
        if (first == 0xFF) return meta();
        require(first < 0xF0, "a system message, which no melody needs");
        if (first >= 0x80) status_ = first;
        if (first < 0x80) --place_;
        require(status_ != 0, "data without a status");
        channelMessage(status_ >> 4, status_ & 0x0F);
        return true;
    }

    bool meta() {
        const int type = data();
        const std::uint32_t length = variable();
        const std::size_t end = place_ + length;
        if (type == 0x51) melody_.tempo[tick_] = number(3);
        if (type == 0x58) melody_.bar = melody_.division * 4 * byte(), melody_.bar >>= byte() % 32;
        require(place_ <= end, "bad tempo or time signature");
        while (place_ < end) byte();
        status_ = 0;
        return type != 0x2F;
    }

    void channelMessage(int kind, int channel) {
        const int first = data();
        if (kind == 0xC) programs_[channel] = first;
        if (kind == 0xC || kind == 0xD) return;
        const int second = data();
        if (kind == 0xB && first == 64) pedals_.erase(channel);
        if (kind == 0xB && first == 64 && second >= 64) pedals_.insert(channel);
        if (kind != 0x8 && kind != 0x9) return;
        std::deque<std::uint32_t>& starts = sounding_[{channel, first}];
        if (kind == 0x9 && second > 0) {
            starts.push_back(tick_);
            melody_.firstNote = std::min(melody_.firstNote, tick_);
            melody_.channels.insert(channel);
            melody_.instruments.insert(programs_[channel] + (channel == drums ? 128 : 0));
            return;
        }
        require(!starts.empty(), "an off without its note");
        if (channel != drums)
            melody_.pitchClasses.at(static_cast<std::size_t>(first % 12)) += tick_ - starts.front();
        starts.pop_front();
        melody_.lastOff = std::max(melody_.lastOff, tick_);
    }

    static constexpr int drums = 9;  ///< the channel
    std::string bytes_;
    std::size_t place_ = 0, limit_;
    std::uint32_t tick_ = 0;
    int status_ = 0;
    std::map<int, int> programs_;
    std::set<int> pedals_;  ///< channels whose pedal is held
    /// When the notes of this track began, by channel and pitch.
    std::map<std::pair<int, int>, std::deque<std::uint32_t>> sounding_;
    MidiMelody melody_;
};
