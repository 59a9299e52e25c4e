// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/mixer_library.h"

#include <optional>

#include "platform/sound/shared_library.h"

namespace {

/// Takes functions out of a library, and knows whether all of them were there.
class Taker {
public:
    explicit Taker(const SharedLibrary& library) : library_(library) {}

    bool complete() const { return complete_; }

    template <class Function>
    void take(Function& function, const char* name) {
        function = library_.find<Function>(name);
        if (!function) complete_ = false;
    }

private:
    const SharedLibrary& library_;
    bool complete_ = true;
};

void ignoreLog(void*, int, SDL_LogPriority, const char*) {}
void ignoreAlsa(const char*, int, const char*, int, const char*, ...) {}
void ignoreJack(const char*) {}

/// A machine without a sound card, or a damaged melody, is no reason to write to the terminal.
void silence(const SharedLibrary& mixer, const SharedLibrary& sdl, const MixerLibrary& functions) {
    functions.setLog(ignoreLog, nullptr);
    using FluidLog = void (*)(int, const char*, void*);
    using SetFluidLog = FluidLog (*)(int, FluidLog, void*);
    if (const auto set = mixer.find<SetFluidLog>("fluid_set_log_function"))
        for (int level = 0; level < 5; ++level) set(level, nullptr, nullptr);
    using SetAlsaHandler = int (*)(decltype(&ignoreAlsa));
    if (const auto set = sdl.find<SetAlsaHandler>("snd_lib_error_set_handler")) set(ignoreAlsa);
    using SetJackHandler = void (*)(decltype(&ignoreJack));
    for (const char* name : {"jack_set_error_function", "jack_set_info_function"})
        if (const auto set = mixer.find<SetJackHandler>(name)) set(ignoreJack);
}

void takeSdl(Taker& sdl, MixerLibrary& functions) {
    sdl.take(functions.setHint, "SDL_SetHint");
    sdl.take(functions.setLog, "SDL_LogSetOutputFunction");
    sdl.take(functions.init, "SDL_Init");
    sdl.take(functions.quit, "SDL_Quit");
    sdl.take(functions.addEventWatch, "SDL_AddEventWatch");
    sdl.take(functions.removeEventWatch, "SDL_DelEventWatch");
    sdl.take(functions.leaveThread, "SDL_TLSCleanup");
    sdl.take(functions.memory, "SDL_RWFromConstMem");
}

void takeMixer(Taker& mixer, MixerLibrary& functions) {
    mixer.take(functions.openDevice, "Mix_OpenAudioDevice");
    mixer.take(functions.closeDevice, "Mix_CloseAudio");
    mixer.take(functions.allocateChannels, "Mix_AllocateChannels");
    mixer.take(functions.soundFonts, "Mix_GetSoundFonts");
    mixer.take(functions.setSoundFonts, "Mix_SetSoundFonts");
    mixer.take(functions.loadWave, "Mix_LoadWAV_RW");
    mixer.take(functions.freeWave, "Mix_FreeChunk");
    mixer.take(functions.playWave, "Mix_PlayChannelTimed");
    mixer.take(functions.haltWave, "Mix_HaltChannel");
    mixer.take(functions.loadMelody, "Mix_LoadMUSType_RW");
    mixer.take(functions.freeMelody, "Mix_FreeMusic");
    mixer.take(functions.playMelody, "Mix_PlayMusic");
    mixer.take(functions.haltMelody, "Mix_HaltMusic");
    mixer.take(functions.melodyVolume, "Mix_VolumeMusic");
}

std::optional<MixerLibrary> load() {
    const SharedLibrary mixer{"SDL2_mixer-2.0", "SDL2_mixer"};
    if (!mixer.isLoaded()) return std::nullopt;
    const SharedLibrary sdl{"SDL2-2.0", "SDL2"};
    MixerLibrary functions;
    Taker ofMixer(mixer), ofSdl(sdl);
    takeSdl(ofSdl, functions);
    takeMixer(ofMixer, functions);
    if (!ofSdl.complete() || !ofMixer.complete()) return std::nullopt;
    silence(mixer, sdl, functions);
    return functions;
}

}  // namespace

const MixerLibrary* MixerLibrary::find() {
    static const std::optional<MixerLibrary> library = load();
    return library ? &*library : nullptr;
}
