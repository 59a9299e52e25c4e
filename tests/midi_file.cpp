// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "midi_file.h"

#include <deque>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace midi {
namespace {

using Sounding = std::map<std::pair<int, int>, std::deque<std::uint32_t>>;

[[noreturn]] void fail(std::size_t place, const std::string& what) {
    throw std::runtime_error(what + " at byte " + std::to_string(place));
}

void require(bool sound, std::size_t place, const char* what) {
    if (!sound) fail(place, what);
}

class Reader {
public:
    explicit Reader(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

    File file() {
        require(tag() == "MThd" && number(4) == 6, place_, "no header");
        const std::uint32_t format = number(2);
        const std::uint32_t tracks = number(2);
        file_.division = static_cast<int>(number(2));
        require(format <= 1 && file_.division > 0 && file_.division < 0x8000, place_, "bad header");
        for (std::uint32_t i = 0; i < tracks; ++i) track();
        require(place_ == bytes_.size(), place_, "bytes after the last track");
        return std::move(file_);
    }

private:
    std::uint8_t byte() {
        require(place_ < bytes_.size(), place_, "the file breaks off");
        return bytes_[place_++];
    }

    std::uint32_t number(int size) {
        std::uint32_t value = 0;
        for (int i = 0; i < size; ++i) value = value << 8 | byte();
        return value;
    }

    std::string tag() {
        std::string text;
        for (int i = 0; i < 4; ++i) text += static_cast<char>(byte());
        return text;
    }

    std::uint32_t variable() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const std::uint8_t b = byte();
            value = value << 7 | (b & 0x7Fu);
            if (b < 0x80) return value;
        }
        fail(place_, "an endless length");
    }

    int data() {
        const std::uint8_t b = byte();
        require(b < 0x80, place_, "a status byte among data");
        return b;
    }

    void track() {
        require(tag() == "MTrk", place_, "no track");
        const std::uint32_t length = number(4);
        const std::size_t end = place_ + length;
        require(end <= bytes_.size(), place_, "the track is longer than the file");
        const std::size_t notesBefore = file_.notes.size();
        Sounding sounding;
        tick_ = 0;
        status_ = 0;
        while (event(sounding)) require(place_ < end, place_, "no end of track");
        require(place_ == end, place_, "the track length does not fit");
        for (const auto& [key, starts] : sounding)
            file_.unfinished += static_cast<int>(starts.size());
        if (file_.notes.size() > notesBefore) file_.voiceEnds.push_back(tick_);
    }

    // Reads one event; false when it was the end of the track.
    bool event(Sounding& sounding) {
        tick_ += variable();
        const std::uint8_t first = byte();
        if (first == 0xFF) return meta();
        if (first == 0xF0 || first == 0xF7) {
            for (std::uint32_t left = variable(); left > 0; --left) byte();
            status_ = 0;  // a system message ends the running status
            return true;
        }
        require(first < 0xF0, place_, "a status that no file may hold");
        if (first >= 0x80)
            status_ = first;
        else
            --place_;
        require(status_ >= 0x80, place_, "data without a status");
        channelMessage(sounding);
        return true;
    }

    bool meta() {
        const int type = data();
        const std::uint32_t length = variable();
        const std::size_t start = place_;
        for (std::uint32_t i = 0; i < length; ++i) byte();
        status_ = 0;
        if (type == 0x51) {
            require(length == 3, start, "bad tempo");
            file_.tempo[tick_] = static_cast<std::uint32_t>(
                bytes_[start] << 16 | bytes_[start + 1] << 8 | bytes_[start + 2]);
        } else if (type == 0x58) {
            require(length == 4 && bytes_[start + 1] < 8, start, "bad time signature");
            const auto whole = static_cast<std::uint32_t>(file_.division) * 4;
            file_.bar = (whole * bytes_[start]) >> bytes_[start + 1];
        }
        return type != 0x2F;
    }

    void channelMessage(Sounding& sounding) {
        const int kind = status_ >> 4;
        const int channel = status_ & 0x0F;
        const int first = data();
        if (kind == 0xC) file_.programs[channel] = first;
        if (kind == 0xC || kind == 0xD) return;
        const int second = data();
        if (kind == 0x9 && second > 0)
            sounding[{channel, first}].push_back(tick_);
        else if (kind == 0x9 || kind == 0x8)
            noteOff(sounding[{channel, first}], channel, first);
        else if (kind == 0xB && first == 64)
            pedal(channel, second >= 64);
    }

    void noteOff(std::deque<std::uint32_t>& starts, int channel, int pitch) {
        if (starts.empty()) {
            ++file_.strayOffs;
            return;
        }
        file_.notes.push_back({starts.front(), tick_, channel, pitch});
        starts.pop_front();
    }

    void pedal(int channel, bool down) {
        if (down)
            file_.pedalDown.insert(channel);
        else
            file_.pedalDown.erase(channel);
    }

    std::vector<std::uint8_t> bytes_;
    std::size_t place_ = 0;
    std::uint32_t tick_ = 0;
    int status_ = 0;
    File file_;
};

}  // namespace

double File::seconds(std::uint32_t tick) const {
    double total = 0;
    double each = 500'000;  // without a tempo a quarter note lasts half a second
    std::uint32_t since = 0;
    for (const auto& [start, microseconds] : tempo) {
        if (start >= tick) break;
        total += each * (start - since);
        since = start;
        each = microseconds;
    }
    return (total + each * (tick - since)) / division / 1e6;
}

File read(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot open " + path.string());
    return Reader({std::istreambuf_iterator<char>(in), {}}).file();
}

}  // namespace midi
