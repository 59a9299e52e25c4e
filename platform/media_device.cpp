// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/media_device.h"

#include <algorithm>
#include <cctype>

#include "platform/backend.h"
#include "platform/events.h"

namespace {

using State = MMControl::State;

bool same(std::string_view command, std::string_view lowerCase) {
    return std::ranges::equal(command, lowerCase, [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) == b;
    });
}

void queue(Runtime& runtime, const MMControl& device, Verb verb) {
    runtime.queue.push_back({device.source, verb});
}

void open(Runtime& runtime, MMControl& device) {
    if (device.state != State::closed) return;
    if (!device.player) device.player = runtime.backend.player(device.deviceType);
    if (!device.player->open(device.FileName)) return;
    device.player->ended = [&runtime, &device] {
        device.state = State::open;
        queue(runtime, device, Verb::Done);
    };
    device.state = State::open;
    queue(runtime, device, Verb::Done);
}

void play(MMControl& device) {
    if (device.state == State::closed) return;
    if (device.state == State::playing && !device.From) return;
    device.state = State::playing;
    device.player->play(device.From.value_or(0));
    device.From.reset();
}

void close(MMControl& device) {
    device.From.reset();
    if (device.state == State::closed) return;
    device.state = State::closed;
    device.player->close();
}

void stop(Runtime& runtime, MMControl& device) {
    if (device.state != State::playing) return;
    device.state = State::open;
    device.player->close();
    device.player->open(device.FileName);
    queue(runtime, device, Verb::StopCompleted);
}

}  // namespace

void Command(Runtime& runtime, MMControl& device, std::string_view command) {
    if (same(command, "open")) open(runtime, device);
    if (same(command, "play")) play(device);
    if (same(command, "stop")) stop(runtime, device);
    if (same(command, "close")) close(device);
}

std::int32_t Position(const MMControl& device) {
    return device.state == State::closed ? 0 : device.player->position();
}

std::int32_t Length(const MMControl& device) {
    return device.state == State::closed ? 0 : device.player->length();
}
