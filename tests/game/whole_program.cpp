// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "whole_program.h"

#include <utility>

namespace {

constexpr int mostHands = 60;

}  // namespace

WholeProgram::WholeProgram(std::uint64_t seed, std::string settings)
    : backend(seed), robot(g, seed) {
    backend.settings = std::move(settings);
    g.watch = [this](Moment seen) { see(seen); };
}

bool WholeProgram::act() {
    const std::size_t queued = g.queue.size();
    look();
    if (g.queue.size() > queued) return true;
    if (next_ < steps_.size() && steps_[next_].when(*this)) steps_[next_++].what();
    if (g.queue.size() > queued) return true;
    if (next_ == steps_.size()) throw EndProgram{};
    return robot.act(until);
}

void WholeProgram::see(Moment current) {
    moment = current;
    ++seen_[current];
    if (current == Moment::turn) turnOf = g.giocatore;
    watch(current);
    if (seen(Moment::scored) > mostHands) throw EndProgram{};
}

void WholeProgram::run() {
    backend.time.user = [this](double end) {
        until = end;
        return act();
    };
    try {
        runProgram(g);
    } catch (const ScriptRanOut&) {
        ADD_FAILURE() << "nothing goes on";
    }
    if (next_ == steps_.size()) return;
    ADD_FAILURE() << "awaited in vain: " << steps_[next_].awaited << " (step " << next_ + 1
                  << ", after " << seen(Moment::dealt) << " deals and " << now() << " seconds)";
}

void WholeProgram::runHands(int hands) {
    then("the sheet of hand " + std::to_string(hands),
         [hands](auto& program) { return program.seen(Moment::scored) == hands; });
    run();
}

int seenAt(const Form& form, float x, float y) {
    const Painted* const painted = form.surface.at(x, y);
    return painted && painted->picture != picture::none ? -painted->picture : Point(form, x, y);
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
