// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <future>
#include <memory>
#include <thread>

#include "platform/player.h"
#include "platform/sound/sound_wish.h"

class SoundLoop;

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
    SoundPatience patience_;
    std::shared_ptr<SoundLoop> loop_;
    std::future<void> finished_;
    std::thread thread_;
};
