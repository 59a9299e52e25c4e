// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>

using SoundClock = std::chrono::steady_clock;

/// What is to be heard of one kind of device from now on.
struct SoundWish {
    std::uint64_t number = 0;  ///< differs from wish to wish; 0 is silence
    std::filesystem::path path;
    bool goesOn = false;  ///< asked for because the end of the last has been reported
    SoundClock::time_point asked;
    /// Called once for each playing, on the worker's thread, which it must not keep: true when the
    /// file has played to its end, false when it cannot be played. Nothing is reported of a wish
    /// that has been followed by another.
    std::function<void(bool atEnd)> report;
};

/// How long things may last.
struct SoundPatience {
    SoundClock::duration silence = std::chrono::seconds(4);  ///< before the device is closed
    SoundClock::duration end = std::chrono::seconds(5);      ///< for a melody to be wished on
    SoundClock::duration stale = std::chrono::seconds(1);    ///< for a wave to begin, or it is past
    SoundClock::duration exit = std::chrono::milliseconds(400);  ///< for the thread to finish
};
