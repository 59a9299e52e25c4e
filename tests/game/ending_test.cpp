// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The program ends at once, whatever it waits for and however it is ended.

#include "whole_program.h"

namespace {

const std::vector<std::pair<std::string, Event>> ways{
    {"the close command", {Source::frmscopa, Verb::QueryUnload}},
    {"the menu", {Source::esci}},
    {"the close command of the sheet", {Source::frmscore, Verb::QueryUnload}},
    {"QUIT", {Source::Command2}}};

/// A hand with a sweep of either player and a scopa.
constexpr std::uint64_t seed = 6;

/// Ends the program in one of its waits; false when it comes to the second title before.
bool endsIn(int wait) {
    const auto& way = ways[static_cast<std::size_t>(wait) % ways.size()];
    SCOPED_TRACE(way.first + " in wait " + std::to_string(wait));
    WholeProgram program(seed);
    int waits = 0;
    double ended = -1;
    program.look = [&] { EXPECT_EQ(ended, -1) << "the program goes on"; };
    program.watch = [&](Moment) { EXPECT_EQ(ended, -1) << "the move is finished"; };
    const auto isOver = [](auto& p) { return p.titleShows() && p.started(); };
    program.then(
        "the end", [&](auto& now) { return ++waits == wait || isOver(now); },
        [&] {
            if (waits != wait) return;
            program.g.queue.push_back(way.second);
            program.menu(program.g.velocità_gioco(3));  // comes too late
            ended = program.now();
        });
    program.run();
    if (ended == -1) return false;
    EXPECT_EQ(program.now(), ended) << "it ends at once";
    EXPECT_EQ(program.g.MMC1.state, MMControl::State::closed) << "the music";
    EXPECT_EQ(program.g.MMCw.state, MMControl::State::closed) << "the sound of a card";
    EXPECT_EQ(program.backend.settingsWritten, 0) << "nothing is saved";
    return true;
}

TEST(Ending, WorksInEveryWaitOfAHand) {
    int wait = 1;
    while (endsIn(wait) && !HasFailure()) ++wait;
    EXPECT_GT(wait, 500) << "waits in a hand";
}

}  // namespace
