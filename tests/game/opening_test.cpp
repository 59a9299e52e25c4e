// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// How long the title shows, and the mascots that play on the opening screen.

#include "whole_program.h"

namespace {

TEST(Title, ShowsForTenSecondsByTheRateThatStoodAtItsBeginning) {
    const std::pair<const char*, double> cases[] = {{"0,1", 10}, {"0,2", 5}, {"0,3", 10 / 3.0}};
    for (const auto& [settings, seconds] : cases) {
        WholeProgram program(1, settings);
        program.then("the title", &WholeProgram::titleShows,
                     [&] { program.menu(program.g.velocità_gioco(3)); });
        program.then("the opening screen", &WholeProgram::choosing);
        program.run();
        EXPECT_NEAR(program.now(), seconds, 1e-6) << "settings " << settings;
        EXPECT_EQ(program.g.velocita, 30) << "the new rate counts from the next wait on";
    }
}

/// The frame of a mascot that is seen at a point, 0 for none.
int frameAt(const Game& g, Source mascot, float x, float y) {
    const Control* const front = controlAt(g.frmscopa, x, y);
    return front && front->source == mascot ? front->index : 0;
}

TEST(OpeningScreen, BothMascotsPlayUntilGo) {
    WholeProgram program;
    program.robotPlays = false;
    Game& g = program.g;
    std::map<double, int> gorilla, mask;  // the frames by the moment from which they are seen
    program.look = [&] {
        if (!program.choosing()) return;
        gorilla[program.now()] = frameAt(g, Source::Gorilla, 330, 360);
        mask[program.now()] = frameAt(g, Source::Mask2, 450, 370);
    };
    program.then(
        "eight seconds of the opening screen", [](auto& p) { return p.now() > 13; },
        [&] { program.press({&g.GO}); });
    program.then("the first hand", &WholeProgram::picking);
    program.run();
    ASSERT_FALSE(gorilla.empty());
    const auto seen = [](const std::map<double, int>& frames, double seconds) {
        const auto later = frames.upper_bound(5 + seconds);
        return later == frames.begin() ? 0 : std::prev(later)->second;
    };
    for (int tick = 1; tick <= 35; ++tick)
        EXPECT_EQ(seen(gorilla, tick * 0.08 + 0.01), (tick - 1) % 10 + 1) << "tick " << tick;
    const std::map<double, int> masks{{0.2, 1},  {2.5, 1},  {2.53, 2}, {2.65, 3}, {2.77, 4},
                                      {2.89, 5}, {5.27, 5}, {5.29, 1}, {7.67, 1}, {7.69, 2}};
    for (const auto& [time, frame] : masks) EXPECT_EQ(seen(mask, time), frame) << "at " << time;
    EXPECT_FALSE(g.Timer1.enabled);
    EXPECT_FALSE(g.Timer2.enabled);
    for (const int counter : {g.fotoGorilla, g.giriGorilla, g.fotoMaschera, g.giriMaschera})
        EXPECT_EQ(counter, 0) << "a sweep begins with the first frame";
}

}  // namespace
