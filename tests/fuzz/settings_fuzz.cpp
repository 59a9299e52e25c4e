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
#include "state/state.h"
#include "tools/recorder.h"
#include "tools/robot.h"

/// Seven digits of a scale go into the file.
static bool same(const SettingsFile& a, const SettingsFile& b) {
    return a.brano == b.brano && a.velocita == b.velocita &&
           std::abs(a.scala - b.scala) <= 1e-6f * a.scala;
}

/// One hand, in which every move is checked.
static void playHand(const std::string& settings) {
    Headless backend;
    backend.settings = settings;
    Game g(backend, eventTable());
    Robot robot(g, 1);
    Recorder recorder(false);
    backend.time.user = [&](double until) { return robot.act(until); };
    g.watch = [&](Moment moment) {
        recorder.see(g, moment);
        if (moment == Moment::scored) throw EndProgram{};
    };
    runProgram(g);
    assert(recorder.scored == 1);
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
    if (played.insert(written).second) playHand(text);
    return 0;
}
