// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <future>
#include <mutex>
#include <optional>

#include "platform/player.h"
#include "platform/sound/sound_device.h"
#include "platform/sound/sound_wish.h"

/// What the worker's thread does, round after round, and where the others leave their wishes for
/// it. Both sides keep it alive.
class SoundLoop {
public:
    explicit SoundLoop(const SoundPatience& patience) : patience_(patience) {}

    /// The thread, up to `quit`.
    void run();

    // From any thread, as the worker's own.
    void wish(DeviceType, SoundWish);
    void withdraw(DeviceType, std::uint64_t number);
    void quit();

private:
    struct Work {
        std::array<SoundWish, 2> wishes;
        bool lost = false, loaded = false;

        SoundWish& of(DeviceType type) { return wishes[static_cast<std::size_t>(type)]; }
    };
    /// Of the melody: wanted but not ready, heard, heard on after its end has been reported.
    enum class Stage { silent, wanted, heard, ended };

    void stir(bool Work::*flag);
    void report(const SoundWish&, bool atEnd);
    std::optional<Work> nextWork();
    bool loading() const { return loading_.valid(); }

    void tendLoss(Work&);
    void dropLoading();
    void tendMelody(const SoundWish&);
    void obey(const SoundWish&);
    void goOn();
    void advance(const SoundWish&);
    void startLoading(const std::filesystem::path& path);
    void passEnd(const SoundWish&);
    void setMelody(Stage);
    void failMelody(const SoundWish&);
    void tendWave(const SoundWish&);
    bool beginWave(const SoundWish&);
    void tendSilence();

    static constexpr SoundClock::time_point never = SoundClock::time_point::max();

    std::mutex mutex_;  ///< guards these four; not held while the device is at work
    std::condition_variable changed_;
    Work work_;
    bool stirred_ = false, ending_ = false;

    // The rest is the thread's own.
    const SoundPatience patience_;
    SoundDevice device_{[this] { stir(&Work::lost); }};
    std::future<Melody> loading_;
    Melody melody_;
    Stage stage_ = Stage::silent;
    std::uint64_t melodyNumber_ = 0, waveNumber_ = 0;  ///< of the wishes seen last
    SoundClock::time_point passed_{};                  ///< when the melody's last end was reported
    SoundClock::time_point melodyEnd_ = never, giveUp_ = never, waveEnd_ = never, close_ = never;
};
