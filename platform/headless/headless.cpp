// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/headless/headless.h"

#include <cmath>

#include "platform/events.h"

namespace {

/// Enough for the longest animation, during which the user may be asked at every tick.
constexpr int mostIdleWaits = 10000;
/// Whatever the user does, a game that goes on takes time.
constexpr int mostActsAtOnce = 10000;

/// A player that keeps the virtual time and makes no sound.
class SilentPlayer : public Player {
public:
    SilentPlayer(Headless& backend, DeviceType type) : backend_(backend), type_(type) {}

    bool open(const std::string& path) override {
        if (!backend_.soundWorks) return false;
        if (type_ == DeviceType::Sequencer) backend_.melody = path;
        start_ = never;
        return true;
    }
    void play(std::int32_t from) override {
        start_ = backend_.clock() - from / 1000.0;
        if (type_ == DeviceType::WaveAudio) ++backend_.cardSounds;
    }
    void close() override {
        if (type_ == DeviceType::Sequencer) backend_.melody.clear();
        start_ = never;
    }
    std::int32_t position() const override {
        if (start_ == never) return 0;
        const double played = (backend_.clock() - start_) * 1000;
        return played < length() ? static_cast<std::int32_t>(played) : length();
    }
    std::int32_t length() const override {
        return static_cast<std::int32_t>(backend_.melodySeconds * 1000);
    }

private:
    Headless& backend_;
    DeviceType type_;
    double start_ = never;
};

}  // namespace

void VirtualTime::pass(double until) {
    if (user && user(until)) {
        idle_ = 0;
        if (++actsAtOnce_ > mostActsAtOnce) throw ScriptRanOut{};
        return;
    }
    if (std::isinf(until)) throw ScriptRanOut{};
    if (until <= now) return;
    now = until;
    actsAtOnce_ = 0;
    if (++idle_ > mostIdleWaits) throw ScriptRanOut{};
}

void Headless::writeSettings(const std::string& text) {
    settings = text;
    ++settingsWritten;
}

std::unique_ptr<Player> Headless::player(DeviceType type) {
    return std::make_unique<SilentPlayer>(*this, type);
}
