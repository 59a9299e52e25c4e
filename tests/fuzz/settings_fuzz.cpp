// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Any bytes as the settings file: they are read, written, read again, and a hand is played.

#include <cassert>
#include <clocale>
#include <cmath>
#include <set>

#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "preferences/settings.h"
#include "tools/recorder.h"
#include "tools/robot.h"

/// Seven digits of a scale go into the file.
static bool same(const SettingsFile& a, const SettingsFile& b) {
    return a.brano == b.brano && a.velocita == b.velocita &&
           std::abs(a.scala - b.scala) <= 1e-6f * a.scala;
}

/// One hand, in which every move is checked; after it what the settings say is chosen again.
static std::string playHand(const std::string& settings) {
    Headless backend;
    backend.settings = settings;
    Game g(backend, eventTable());
    Robot robot(g, 1);
    Recorder recorder(false);
    backend.time.user = [&](double until) { return robot.act(until); };
    g.watcher = &recorder;
    g.watch = [](Game& game, Moment moment, void* self) {
        static_cast<Recorder*>(self)->see(game, moment);
        if (moment != Moment::scored) return;
        deliver(game, {Source::velocità_gioco, Verb::Click, game.velocita / 10});
        deliver(game, {Source::canzoni, Verb::Click, game.brano});
        throw EndProgram{};
    };
    runProgram(g);
    assert(recorder.scored == 1 && backend.settingsWritten == 2);
    return backend.settings;
}

/// The desktop program, too, takes on how numbers are written in the user's country.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    return std::setlocale(LC_ALL, "") ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    const std::string text(data, size);
    const SettingsFile read = parseSettings(text);
    const std::string written = formatSettings(read);
    assert(same(parseSettings(written), read));
    static std::set<std::string> played;
    if (!played.insert(written).second) return 0;
    const std::string kept = playHand(text);
    assert(same(parseSettings(kept), read));
    return 0;
}
