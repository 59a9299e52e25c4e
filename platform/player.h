// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <string>

enum class DeviceType { Sequencer, WaveAudio };

/// Plays one sound file at a time. Positions and lengths share a unit of the player's own and are
/// meant to be compared. Nothing here waits, and nothing reports a failure but `open`.
class Player {
public:
    virtual ~Player() = default;

    /// Makes the file ready; false when there is nothing to play. The file's case does not matter.
    virtual bool open(const std::string& path) = 0;
    /// Starts at `from`, over again if it is playing already.
    virtual void play(std::int32_t from) = 0;
    virtual void close() = 0;
    virtual std::int32_t position() const = 0;
    virtual std::int32_t length() const = 0;

    /// Called, on the game's thread, when the file has played to its end, or cannot be played:
    /// then its position is not its length.
    std::function<void()> ended;
};
