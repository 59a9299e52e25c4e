// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "script.h"

namespace script {

Play::Play(std::uint64_t seed, std::string settings) : backend(seed), robot(g, seed) {
    backend.settings = std::move(settings);
    g.watch = [this](Moment seen) { see(seen); };
}

bool Play::wait() {
    const std::size_t queued = g.queue.size();
    look();
    if (g.queue.size() > queued) return true;
    if (next_ < steps_.size() && steps_[next_].first(*this)) steps_[next_++].second();
    if (g.queue.size() > queued) return true;
    if (next_ == steps_.size()) throw EndProgram{};
    return robotPlays && robot.act(until);
}

void Play::see(Moment current) {
    moment = current;
    ++seen_[current];
    watch(current);
    if (seen(Moment::scored) > 60) throw EndProgram{};  // the script is stuck
}

void Play::run() {
    backend.time.user = [this](double end) {
        until = end;
        return wait();
    };
    runProgram(g);
    EXPECT_EQ(next_, steps_.size()) << "the script was not played to its end";
}

void Play::runHands(int hands) {
    then([hands](auto& p) { return p.seen(Moment::scored) == hands; });
    run();
}

void forceHand(Game& g, int humanPoints, int computerPoints) {
    // One player has the whole pack, which is four points; scope make up the rest.
    const bool toHuman = computerPoints < 4;
    g.giocatore = computer;  // takes the leftovers, which nobody writes down then
    g.presiUmano = 0;
    for (int id = 1; toHuman && id <= 40; ++id) g.pilaPrese(id) = g.presiUmano = id;
    g.scope(human) = humanPoints - (toHuman ? 4 : 0);
    g.scope(computer) = computerPoints - (toHuman ? 0 : 4);
}

void expectPlace(const Control& control, float left, float top) {
    EXPECT_NEAR(control.Left, left, 0.01);
    EXPECT_NEAR(control.Top, top, 0.01);
}

}  // namespace script
