// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Any bytes as a sound file that the game plays: whatever becomes of it, the next sound is heard.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

#include "../sound/sound_bank.h"
#include "platform/events.h"
#include "platform/headless/headless.h"
#include "platform/media_device.h"
#include "platform/sound/sdl_player.h"
#include "platform/sound/shared_library.h"

namespace fs = std::filesystem;

/// Removed at the end.
struct TemporaryFolder {
    TemporaryFolder() {
        std::string name = fs::temp_directory_path() / "velarda-fuzz-XXXXXX";
        if (!mkdtemp(name.data())) std::abort();
        path = name;
    }
    ~TemporaryFolder() { fs::remove_all(path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    fs::path path;
};

static const fs::path& folder() {
    static const TemporaryFolder made;
    return made.path;
}

static void write(const fs::path& file, std::string_view content) {
    std::ofstream(file, std::ios::binary) << content;
}

/// A machine with a sound device that is in a hurry and says nothing.
struct Machine : Headless {
    std::unique_ptr<Player> player(DeviceType type) override {
        return std::make_unique<SdlPlayer>(type, [this](std::function<void()> task) {
            const std::lock_guard lock(mutex);
            tasks.push_back(std::move(task));
        });
    }
    void work() {
        std::vector<std::function<void()>> now;
        {
            const std::lock_guard lock(mutex);
            now.swap(tasks);
        }
        for (const auto& task : now) task();
    }
    /// A wave is kept while its name stays, so each kind of content has a name of its own.
    void start(MMControl& device, const char* name, std::string_view content) {
        device.FileName = (folder() / name).string();
        write(device.FileName, content);
        for (const char* command : {"Close", "Open", "Play"}) Command(runtime, device, command);
        runtime.queue.clear();
    }
    /// Until the device has come to an end or has been heard for a while.
    void hear(const MMControl& device) {
        static const auto melody =
            SharedLibrary{"SDL2_mixer-2.0"}.find<int (*)()>("Mix_PlayingMusic");
        for (int heard = 0; device.state == MMControl::State::playing && heard < 80;) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            work();
            heard += &device == &card || melody() != 0;
        }
    }
    std::mutex mutex;
    std::vector<std::function<void()>> tasks;
    Runtime runtime{*this, {}};
    MMControl music{.deviceType = DeviceType::Sequencer}, card{.deviceType = DeviceType::WaveAudio};
};

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    write(folder() / "bank.sf2", test::soundBank());
    setenv("SDL_SOUNDFONTS", (folder() / "bank.sf2").c_str(), 1);
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
    setenv("SDL_DISKAUDIODELAY", "1", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    static constexpr std::string_view good(
        "RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0D\xAC\0\0\x88X\1\0\2\0\x10\0data\2\0\0\0\1", 46);
    static Machine machine;
    const std::string_view file(data, size);
    MMControl& device = file.starts_with("RIFF") ? machine.card : machine.music;
    machine.start(device, "tried", file);
    machine.hear(device);
    Command(machine.runtime, device, "Close");
    do {  // until a time limit: the machine may be too slow to begin
        machine.start(machine.card, "good", good);
        machine.hear(machine.card);
    } while (Position(machine.card) == 0);
    return 0;
}
