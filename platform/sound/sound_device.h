// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "platform/sound/mixer_library.h"
#include "platform/sound/sound_wish.h"

/// A melody ready to be played; without music when its file cannot be.
struct Melody {
    std::filesystem::path path;
    std::unique_ptr<Mix_Music, void (*)(Mix_Music*)> music{nullptr, nullptr};
    SoundClock::duration length{};  ///< of one playing, when there is music
};

/// Reads a melody and the sound bank that it is played with, which may take seconds. The device
/// must be open and stay so. For a thread that uses the sound libraries for nothing else.
Melody loadMelody(const std::filesystem::path&);

/// The machine's sound device: one melody and one wave at a time. Every call may take long; all of
/// them come from one thread at a time. There may be one of these.
class SoundDevice {
public:
    /// `lost` is called, on any thread, when the device has been taken away from the machine.
    explicit SoundDevice(std::function<void()> lost) : lost_(std::move(lost)) {}
    ~SoundDevice() { close(); }
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;

    /// False when there is no device to be had; true at once while it is open.
    bool open();
    /// Leaves no thread of the sound libraries running. No melody may be left.
    void close();
    bool isOpen() const { return mixer_ != nullptr; }

    /// Starts a wave over what is heard of the last; how long it takes, nothing when it cannot be
    /// played.
    std::optional<SoundClock::duration> playWave(const std::filesystem::path&);
    void stopWave();
    /// Starts a melody that then repeats without a gap.
    bool playMelody(const Melody&);
    void stopMelody();

private:
    static int SDLCALL watch(void* device, SDL_Event*);
    static bool openMixer(const MixerLibrary&);
    void readWave(const std::filesystem::path&);
    void dropWave();

    const MixerLibrary* mixer_ = nullptr;  ///< while the device is open
    std::function<void()> lost_;
    Mix_Chunk* wave_ = nullptr;
    std::filesystem::path wavePath_;
};
