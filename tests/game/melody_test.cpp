// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The music from the start of the program on.

#include "whole_program.h"

namespace {

using State = MMControl::State;

TEST(Melody, RunsInALoopFromHandToHandAndChangesAtOnce) {
    WholeProgram program(1, "3,2,100");
    program.backend.melodySeconds = 20;
    MMControl& music = program.g.MMC1;
    int ended = 0;
    program.look = [&] {
        if (music.state != State::playing || Position(music) != Length(music)) return;
        ++ended;
        music.player->ended();
    };
    program.then("the opening screen", &WholeProgram::choosing,
                 [&] { EXPECT_EQ(music.state, State::open) << "not heard yet"; });
    program.then(
        "the melody's third end", [&](auto&) { return ended == 3; },
        [&] { program.backend.melodySeconds = 1e6; });
    program.then("the second hand", &WholeProgram::secondHand, [&] {
        EXPECT_GT(Position(music), 10000) << "the second hand does not start it over again";
        EXPECT_EQ(program.backend.melody, "/velarda/music/Go4yrgun.mid");
        music.player->ended();
    });
    program.then("the wait after it broke off", &WholeProgram::secondHand, [&] {
        EXPECT_EQ(music.state, State::open) << "what breaks off does not start again";
        program.menu(program.g.canzoni(9));
    });
    program.then("the wait after another choice", &WholeProgram::secondHand, [&] {
        EXPECT_EQ(music.state, State::playing);
        EXPECT_EQ(Position(music), 0) << "from its beginning";
        EXPECT_EQ(program.backend.melody, "/velarda/music/Easycity.MID");
        program.menu(program.g.canzoni(0));
    });
    program.then("the wait after the choice of none", &WholeProgram::secondHand,
                 [&] { EXPECT_EQ(program.backend.melody, ""); });
    program.run();
}

TEST(Melody, ThatFindsNoDeviceIsTriedAgainByTheNextHandAndTheNextChoice) {
    WholeProgram program(1, "3,2,100");
    MMControl& music = program.g.MMC1;
    bool deviceIsThere = false;
    int failures = 0;
    program.look = [&] {
        if (music.state != State::playing || deviceIsThere) return;
        music.player->ended();
        if (++failures > 2) throw EndProgram{};  // it would go on for ever
    };
    program.then("the first hand", &WholeProgram::picking, [&] {
        EXPECT_EQ(music.state, State::open) << "there is no device";
        deviceIsThere = true;
    });
    program.then("the second hand", &WholeProgram::secondHand, [&] {
        EXPECT_EQ(music.state, State::playing) << "it tries again";
        deviceIsThere = false;
    });
    program.then("the wait after the device was pulled out", &WholeProgram::secondHand, [&] {
        EXPECT_EQ(music.state, State::open);
        deviceIsThere = true;
        program.menu(program.g.canzoni(3));
    });
    program.then("the wait after another choice", &WholeProgram::secondHand,
                 [&] { EXPECT_EQ(music.state, State::playing) << "it tries again"; });
    program.run();
    EXPECT_EQ(failures, 2) << "one of each time without a device";
}

}  // namespace
