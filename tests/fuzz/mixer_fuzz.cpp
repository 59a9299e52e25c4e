// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Any bytes as a sound file that the game plays: whatever becomes of it, the next sound is heard.

#include <QCoreApplication>
#include <QLibrary>
#include <QTemporaryDir>
#include <QThread>
#include <fstream>

#include "platform/events.h"
#include "platform/headless/headless.h"
#include "platform/media.h"
#include "platform/qt/sdl_player.h"

/// A machine with a sound device that is in a hurry and says nothing.
struct Machine : Headless {
    std::unique_ptr<Player> player(DeviceType type) override {
        return std::make_unique<SdlPlayer>(type);
    }
    /// A wave is kept while its name stays, so each kind of content has a name of its own.
    void start(MMControl& device, const char* name, const QByteArray& content) {
        device.FileName = folder.filePath(QLatin1String(name)).toStdString();
        std::ofstream(device.FileName, std::ios::binary) << content.toStdString();
        for (const char* command : {"Close", "Open", "Play"}) Command(runtime, device, command);
        runtime.queue.clear();
    }
    /// Until the device has come to an end or has been heard for a while.
    void hear(const MMControl& device) {
        static const auto melody = reinterpret_cast<int (*)()>(
            QLibrary(QStringLiteral("SDL2_mixer-2.0"), 0).resolve("Mix_PlayingMusic"));
        for (int heard = 0; device.state == MMControl::State::playing && heard < 80;) {
            QThread::msleep(1);
            QCoreApplication::processEvents();
            heard += &device == &card || melody() != 0;
        }
    }
    QTemporaryDir folder;
    Runtime runtime{*this, {}};
    MMControl music{.deviceType = DeviceType::Sequencer}, card{.deviceType = DeviceType::WaveAudio};
};

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static const QCoreApplication application(*argc, *argv);
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", "/dev/null");
    qputenv("SDL_DISKAUDIODELAY", "1");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    static const QByteArray good(
        "RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0D\xAC\0\0\x88X\1\0\2\0\x10\0data\2\0\0\0\1", 46);
    static Machine machine;
    const QByteArray file(data, static_cast<qsizetype>(size));
    MMControl& device = file.startsWith("RIFF") ? machine.card : machine.music;
    machine.start(device, "tried", file);
    machine.hear(device);
    Command(machine.runtime, device, "Close");
    do {  // until a time limit: the machine may be too slow to begin
        machine.start(machine.card, "good", good);
        machine.hear(machine.card);
    } while (Position(machine.card) == 0);
    return 0;
}
