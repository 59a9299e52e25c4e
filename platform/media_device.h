// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls.h"
#include "platform/player.h"

struct Runtime;

/// A device that plays one file: opened, started and closed by commands. No command reports a
/// failure; on a device that has nothing open a command does nothing.
struct MMControl {
    enum class State { closed, open, playing };

    Source source{};
    DeviceType deviceType{};
    std::string FileName;              ///< of the next "Open"
    std::optional<std::int32_t> From;  ///< where the next "Play" starts, which uses it up
    State state = State::closed;
    std::unique_ptr<Player> player;  ///< made at the first "Open"
};

/// Carries out "Open", "Play", "Stop" or "Close", in any case of letters, at once. "Play" without
/// From goes on with what is playing, and otherwise starts at the beginning. Queues Done when an
/// opening or a melody has ended, StopCompleted after "Stop".
void Command(Runtime&, MMControl&, std::string_view command);

/// Both 0 while nothing is open; equal when the melody has reached its end.
std::int32_t Position(const MMControl&);
std::int32_t Length(const MMControl&);
