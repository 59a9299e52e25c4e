// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <chrono>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <thread>

#include "platform/player.h"

using SoundClock = std::chrono::steady_clock;

/// What is to be heard of one kind of device from now on.
struct SoundWish {
    std::uint64_t number = 0;  ///< differs from wish to wish; 0 is silence
    QString path;
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

/// The thread that does all that takes long about sound. It sleeps while nothing changes, and
/// closes the device after a few seconds of silence.
///
/// A melody repeats without a gap. Its end is reported as it passes; a wish that it goes on only
/// agrees to what is heard already, and without one it falls silent after a few seconds.
class SoundWorker {
public:
    /// The one of the process, started when nobody has it yet.
    static std::shared_ptr<SoundWorker> shared();

    explicit SoundWorker(const SoundPatience& = {});
    /// Ends in well under a second whatever the thread is doing; it may finish that on its own.
    ~SoundWorker();
    SoundWorker(const SoundWorker&) = delete;
    SoundWorker& operator=(const SoundWorker&) = delete;

    /// Takes the place of the last wish for such a device, carried out or not.
    void wish(DeviceType, SoundWish);
    /// Silences the device unless another wish has followed that one.
    void withdraw(DeviceType, std::uint64_t number);

private:
    class Desk;
    SoundPatience patience_;
    std::shared_ptr<Desk> desk_;
    std::future<void> finished_;
    std::thread thread_;
};
