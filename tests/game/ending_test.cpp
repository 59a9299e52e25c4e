// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The program ends at once, whatever it waits for and however it is ended.

#include "whole_program.h"

namespace {

/// The pause before or after a player's choice of a card.
bool inMove(const WholeProgram& p, int player, bool chosen) {
    return p.moment == Moment::turn && p.g.giocatore == player && p.g.fase.empty() &&
           (p.g.cartaGiocata != 0) == chosen;
}

constexpr double aFrame = 1 / 60.0;  ///< of a slide

bool maskShows(const WholeProgram& p, bool plays) {
    return p.started() && p.g.Mask2(5).Visible && !p.choosing() && p.g.Timer2.enabled == plays;
}

const std::map<std::string, When> waits{
    {"title", &WholeProgram::titleShows},
    {"opening screen", &WholeProgram::choosing},
    {"choice of a card", &WholeProgram::picking},
    {"choice of what it takes", &WholeProgram::selecting},
    {"after the human's choice", [](auto& p) { return inMove(p, human, true); }},
    {"before the computer's choice", [](auto& p) { return inMove(p, computer, false); }},
    {"after the computer's choice", [](auto& p) { return inMove(p, computer, true); }},
    {"human's sweep", [](auto& p) { return maskShows(p, true); }},
    {"last frame of the human's sweep", [](auto& p) { return maskShows(p, false); }},
    {"computer's sweep", [](auto& p) { return p.started() && p.g.Timer1.enabled; }},
    {"fan", [](auto& p) { return p.moment == Moment::decided && p.left() > 2 * aFrame; }},
    {"slide", [](auto& p) { return p.moment == Moment::decided && p.left() < 1.1 * aFrame; }},
    {"banner", [](auto& p) { return p.g.Picture2.Visible; }},
    {"end of a round",
     [](auto& p) { return p.moment == Moment::carriedOut && p.g.mosseGiocate == 6; }},
    {"before the sheet",
     [](auto& p) { return p.moment == Moment::leftovers && !p.g.raccoltaFinale; }},
    {"score sheet", &WholeProgram::scoreShown}};

const std::map<std::string, Event> ways{
    {"close command", {Source::frmscopa, Verb::QueryUnload}},
    {"menu", {Source::esci, Verb::Click}},
    {"close command of the sheet", {Source::frmscore, Verb::QueryUnload}},
    {"QUIT", {Source::Command2, Verb::Click}}};

TEST(Ending, WorksInEveryWait) {
    for (const auto& [wait, when] : waits)
        for (const auto& [way, event] : ways) {
            SCOPED_TRACE(way + " in the wait: " + wait);
            WholeProgram program;
            program.backend.frameSeconds = aFrame;
            double ended = -1;
            program.look = [&] { EXPECT_EQ(ended, -1) << "the program goes on"; };
            program.watch = [&](Moment) { EXPECT_EQ(ended, -1) << "the move is finished"; };
            program.then(wait, when, [&, event = event] {
                program.g.queue.push_back(event);
                program.menu(program.g.velocità_gioco(3));  // comes too late
                ended = program.now();
            });
            program.run();
            EXPECT_EQ(program.now(), ended) << "it ends at once";
            EXPECT_EQ(program.g.MMC1.state, MMControl::State::closed) << "the music";
            EXPECT_EQ(program.g.MMCw.state, MMControl::State::closed) << "the sound of a card";
            EXPECT_EQ(program.backend.settingsWritten, 0) << "nothing is saved";
        }
}

}  // namespace
