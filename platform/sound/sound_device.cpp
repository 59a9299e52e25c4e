// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sound_device.h"

#include <string>
#include <utility>
#include <vector>

#include "platform/sound/melody_bytes.h"
#include "platform/sound/midi_file.h"
#include "platform/sound/sound_file.h"
#include "platform/sound/sound_font.h"
#include "platform/sound/wave_file.h"

namespace fs = std::filesystem;

namespace {

constexpr int rate = 44100, sides = 2, frame = 4;  ///< a frame: bytes of both sides
constexpr int bufferFrames = 512;                  ///< 12 ms: a card is heard as it touches down
constexpr int melodyLoudness = 96;                 ///< of 128: a gain of 0.6 in the synthesizer

SoundClock::duration seconds(double value) {
    return std::chrono::duration_cast<SoundClock::duration>(std::chrono::duration<double>(value));
}

SDL_RWops* opened(const MixerLibrary& mixer, Bytes file) {
    return mixer.memory(file.data(), static_cast<int>(file.size()));
}

}  // namespace

Melody loadMelody(const fs::path& path) {
    Melody melody{.path = path};
    const MixerLibrary* mixer = MixerLibrary::find();
    const std::vector<unsigned char> file = readSoundFile(path);
    const std::optional<double> length = melodySeconds(file);
    if (!mixer || !length) return melody;
    const fs::path font = findSoundFont(mixer->soundFonts(), soundFontFolders());
    if (!font.empty()) mixer->setSoundFonts(font.string().c_str());
    const std::vector<unsigned char> played = melodyBytes(file);
    melody.music = {mixer->loadMelody(opened(*mixer, played), MUS_MID, SDL_TRUE),
                    mixer->freeMelody};
    melody.length = seconds(*length);
    mixer->leaveThread();
    return melody;
}

/// Called wherever the libraries notice, as a rule in the thread that feeds the device.
int SDLCALL SoundDevice::watch(void* device, SDL_Event* event) {
    const bool ours = event->type == SDL_AUDIODEVICEREMOVED && event->adevice.which != 0;
    if (ours && !event->adevice.iscapture) static_cast<SoundDevice*>(device)->lost_();
    return 0;
}

bool SoundDevice::openMixer(const MixerLibrary& mixer) {
    // The libraries would take the signals that end the program for themselves.
    mixer.setHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    mixer.setHint(SDL_HINT_APP_NAME, "Velarda");
    if (mixer.init(SDL_INIT_AUDIO) != 0) return false;
    return mixer.openDevice(rate, AUDIO_S16SYS, sides, bufferFrames, nullptr, 0) == 0;
}

bool SoundDevice::open() {
    if (isOpen()) return true;
    const MixerLibrary* mixer = MixerLibrary::find();
    if (!mixer) return false;
    if (!openMixer(*mixer)) {
        mixer->quit();
        return false;
    }
    mixer_ = mixer;
    mixer_->addEventWatch(watch, this);
    mixer_->allocateChannels(1);
    mixer_->melodyVolume(melodyLoudness);
    return true;
}

void SoundDevice::close() {
    if (!isOpen()) return;
    mixer_->haltMelody();
    dropWave();
    mixer_->removeEventWatch(watch, this);
    mixer_->closeDevice();
    std::exchange(mixer_, nullptr)->quit();
}

void SoundDevice::dropWave() {
    if (wave_) mixer_->freeWave(std::exchange(wave_, nullptr));
    wavePath_.clear();
}

void SoundDevice::readWave(const fs::path& path) {
    dropWave();
    const std::vector<unsigned char> file = readSoundFile(path);
    if (!plausibleWave(file)) return;
    wave_ = mixer_->loadWave(opened(*mixer_, file), SDL_TRUE);
    if (wave_) wavePath_ = path;
}

std::optional<SoundClock::duration> SoundDevice::playWave(const fs::path& path) {
    if (path != wavePath_) readWave(path);
    if (!wave_ || mixer_->playWave(0, wave_, 0, -1) != 0) return std::nullopt;
    return seconds(double(wave_->alen) / (rate * frame));
}

void SoundDevice::stopWave() {
    if (isOpen()) mixer_->haltWave(0);
}

bool SoundDevice::playMelody(const Melody& melody) {
    constexpr int forEver = -1;
    return mixer_->playMelody(melody.music.get(), forEver) == 0;
}

void SoundDevice::stopMelody() {
    if (isOpen()) mixer_->haltMelody();
}
