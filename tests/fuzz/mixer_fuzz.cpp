// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Any bytes as a sound file that is played, on a device that is in a hurry and says nothing:
// whatever becomes of it, the next sound is heard.

#include <sys/mman.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "../sound/sound_bank.h"
#include "platform/sound/shared_library.h"
#include "platform/sound/sound_worker.h"

/// A file that goes with the process.
static std::string inMemory(const char* name) {
    return "/proc/self/fd/" + std::to_string(memfd_create(name, 0));
}

static void write(const std::string& file, std::string_view content) {
    std::ofstream(file, std::ios::binary) << content;
}

/// Plays it to its end, or until it has been heard for a while; whether it has come to its end. A
/// wave is kept while its name stays, so each kind of content has a file of its own.
static bool play(DeviceType type, const std::string& file, std::string_view content) {
    static SoundWorker worker;
    static std::uint64_t number = 0;
    static const auto melody = SharedLibrary{"SDL2_mixer-2.0"}.find<int (*)()>("Mix_PlayingMusic");
    enum State { playing, ended, failed };
    const auto state = std::make_shared<std::atomic<State>>(playing);
    const auto report = [state](bool atEnd) { *state = atEnd ? ended : failed; };
    write(file, content);
    worker.wish(type, {++number, file, false, SoundClock::now(), report});
    for (int heard = 0; *state == playing && heard < 80;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        heard += type == DeviceType::WaveAudio || melody() != 0;
    }
    worker.withdraw(type, number);
    return *state == ended;
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const std::string bank = inMemory("bank");
    write(bank, test::soundBank());
    setenv("SDL_SOUNDFONTS", bank.c_str(), 1);
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
    setenv("SDL_DISKAUDIODELAY", "1", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    static constexpr std::string_view good(
        "RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0D\xAC\0\0\x88X\1\0\2\0\x10\0data\2\0\0\0\1", 46);
    static const std::string tried = inMemory("tried"), next = inMemory("next");
    const std::string_view content(data, size);
    const bool isWave = content.starts_with("RIFF");
    play(isWave ? DeviceType::WaveAudio : DeviceType::Sequencer, tried, content);
    while (!play(DeviceType::WaveAudio, next, good))
        continue;  // until a time limit: the machine may be too slow to begin
    return 0;
}
