// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The recorder finds what it watches for: each of these faults, made in the middle of a hand.

#include "tools/recorder.h"

#include <gtest/gtest.h>

#include <functional>

#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "state/cards.h"
#include "state/state.h"
#include "tools/robot.h"

namespace {

/// Plays hands and does something to the game at a moment before the recorder sees it.
void play(Moment at, const std::function<void(Game&)>& fault) {
    Headless backend(1);
    Game g(backend, eventTable());
    Robot robot(g, 1);
    Recorder recorder(false);
    backend.time.user = [&](double until) { return robot.act(until); };
    g.watch = [&](Moment moment) {
        if (moment == at) fault(g);
        recorder.see(g, moment);
        if (recorder.scored == 3) throw EndProgram{};
    };
    runProgram(g);
}

TEST(Recorder, FindsWhatIsWrong) {
    const struct {
        const char* what;
        Moment at;
        std::function<void(Game&)> make;
    } faults[] = {
        {"a card lost from the pile", Moment::scored, [](Game& g) { --g.presiUmano; }},
        {"a card twice on the table", Moment::carriedOut,
         [](Game& g) { g.tavolo(1, 1) = g.tavolo(3, 4) = g.cartaGiocata; }},
        {"a table swept by nobody", Moment::carriedOut, [](Game& g) { g.tavolo.fill(0); }},
        {"a settebello counted for both", Moment::scored,
         [](Game& g) { g.settebelloUmano = !g.settebelloUmano; }},
        {"a deal that stays", Moment::dealt, [](Game& g) { g.mazziere = human; }}};
    EXPECT_NO_THROW(play(Moment::turn, [](Game&) {})) << "nothing is wrong";
    for (const auto& [what, at, make] : faults)
        EXPECT_THROW(play(at, make), InvariantBroken) << what;
}

}  // namespace
