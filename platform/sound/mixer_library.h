// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>
#include <SDL_mixer.h>

/// The functions of SDL2 and SDL2_mixer that the sound needs. The program is not linked with those
/// libraries: they and the fifty others that they bring are loaded when a sound is first wanted,
/// and where they are missing the game is silent.
struct MixerLibrary {
    /// Loads the libraries at the first call, which may take long; null when they cannot be had.
    /// From any thread.
    static const MixerLibrary* find();

    decltype(&SDL_SetHint) setHint = nullptr;
    decltype(&SDL_LogSetOutputFunction) setLog = nullptr;
    decltype(&SDL_Init) init = nullptr;
    decltype(&SDL_Quit) quit = nullptr;
    decltype(&SDL_AddEventWatch) addEventWatch = nullptr;
    decltype(&SDL_DelEventWatch) removeEventWatch = nullptr;
    decltype(&SDL_TLSCleanup) leaveThread = nullptr;
    decltype(&SDL_RWFromConstMem) memory = nullptr;

    decltype(&Mix_OpenAudioDevice) openDevice = nullptr;
    decltype(&Mix_CloseAudio) closeDevice = nullptr;
    decltype(&Mix_AllocateChannels) allocateChannels = nullptr;
    decltype(&Mix_GetSoundFonts) soundFonts = nullptr;
    decltype(&Mix_SetSoundFonts) setSoundFonts = nullptr;
    decltype(&Mix_LoadWAV_RW) loadWave = nullptr;
    decltype(&Mix_FreeChunk) freeWave = nullptr;
    decltype(&Mix_PlayChannelTimed) playWave = nullptr;
    decltype(&Mix_HaltChannel) haltWave = nullptr;
    decltype(&Mix_LoadMUSType_RW) loadMelody = nullptr;
    decltype(&Mix_FreeMusic) freeMelody = nullptr;
    decltype(&Mix_PlayMusic) playMelody = nullptr;
    decltype(&Mix_HaltMusic) haltMelody = nullptr;
    decltype(&Mix_VolumeMusic) melodyVolume = nullptr;
};
