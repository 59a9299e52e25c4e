// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "recording.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "platform/sound/mixer_library.h"
#include "platform/sound/shared_library.h"
#include "sound_bank.h"

namespace fs = std::filesystem;

namespace test {
namespace {

std::atomic<int> samplesAsked = 0, samplesAtOnce = 0;

void SDLCALL count(void*, Uint8*, int bytes) {
    samplesAtOnce = bytes / 4;
    samplesAsked += samplesAtOnce;
}

void countWhatIsAsked() {
    const SharedLibrary mixer{"SDL2_mixer-2.0"};
    mixer.find<decltype(&Mix_SetPostMix)>("Mix_SetPostMix")(count, nullptr);
}

}  // namespace

void put(const fs::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
    ASSERT_EQ(fs::file_size(file), content.size()) << file << " could not be written";
}

std::string clickingWave(int milliseconds) {
    const std::string head("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0D\xAC\0\0\x88X\1\0\2\0\x10\0",
                           36);
    std::string loud;
    for (int i = 0; i < rate / 200; ++i) loud += "\x20\x4E";
    const std::string soft(static_cast<std::size_t>(2 * rate / 1000 * (milliseconds - 10)), '\1');
    return head + std::string("data\xFF\xFF\0\0", 8) + loud + soft + loud;
}

std::string midiFile(const std::string& events) {
    const std::string tempo("\0\xFF\x51\x03\x03\xD0\x90", 7), end("\xFF\x2F\0", 3);
    const auto size = static_cast<char>(tempo.size() + events.size() + end.size());
    return std::string("MThd\0\0\0\6\0\0\0\1\1\xF4MTrk\0\0\0", 21) + size + tempo + events + end;
}

Studio::Studio() : former_(fs::current_path()) {
    std::string name = (fs::temp_directory_path() / "velarda sound äöü XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no folder could be made: " + name);
    folder_ = name;
    fs::current_path(folder_);
    put("bank.sf2", soundBank());
    // NOLINTBEGIN(concurrency-mt-unsafe): no other thread reads them
    setenv("SDL_SOUNDFONTS", "bank.sf2", 1);
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", "heard", 1);
    // NOLINTEND(concurrency-mt-unsafe)
    if (MixerLibrary::find()) countWhatIsAsked();
}

Studio::~Studio() {
    fs::current_path(former_);
    fs::remove_all(folder_);
}

int Studio::asked() {
    return samplesAsked;
}

int Studio::askedAtOnce() {
    return samplesAtOnce;
}

std::vector<int> onsets(const Listening& listening) {
    std::ifstream file("heard", std::ios::binary);
    std::vector<int> found;
    std::int16_t sides[2];
    int last = -rate;
    for (int i = 0; file.read(reinterpret_cast<char*>(sides), sizeof sides); ++i) {
        if (std::abs(sides[0]) < listening.loud) continue;
        if (i - last > rate * listening.rest / 1000) found.push_back(i);
        last = i;
    }
    return found;
}

testing::AssertionResult waitFor(const std::string& what, const std::function<bool()>& isSo,
                                 const std::function<void()>& meanwhile) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!isSo()) {
        if (std::chrono::steady_clock::now() > limit)
            return testing::AssertionFailure() << "waited ten seconds in vain for " << what;
        meanwhile();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return testing::AssertionSuccess();
}

}  // namespace test
