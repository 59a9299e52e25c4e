// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tests/script.h"

#include <algorithm>

namespace script {

Play::Play(std::uint64_t seed, std::string settings) : backend(seed), robot(g, seed) {
    backend.settings = std::move(settings);
    backend.time.user = [this](double end) {
        until = end;
        return wait();
    };
    g.watcher = this;
    g.watch = [](Game&, Moment seen, void* self) { static_cast<Play*>(self)->see(seen); };
}

Play& Play::then(When when, What what) {
    steps_.push_back({std::move(when), std::move(what)});
    return *this;
}

bool Play::wait() {
    const std::size_t queued = g.queue.size();
    if (look) look();
    if (g.queue.size() > queued) return true;
    if (next_ < steps_.size() && steps_[next_].when()) {
        ++next_;
        steps_[next_ - 1].what();
    }
    if (g.queue.size() > queued) return true;
    if (scripted_ && next_ == steps_.size()) throw EndProgram{};
    return robotPlays && robot.act(until);
}

void Play::see(Moment current) {
    started = true;
    moment = current;
    ++seen_[static_cast<std::size_t>(current)];
    if (watch) watch(current);
    if (current == Moment::scored && seen(current) >= mostHands) throw EndProgram{};
}

int Play::seen(Moment which) const {
    return seen_[static_cast<std::size_t>(which)];
}

void Play::run() {
    try {
        runProgram(g);
    } catch (const ScriptRanOut& stuck) {
        ADD_FAILURE() << stuck.what();
    }
    EXPECT_EQ(next_, steps_.size()) << "the script was not played to its end";
}

void Play::runHands(int hands) {
    mostHands = hands;
    scripted_ = false;
    run();
    EXPECT_EQ(seen(Moment::scored), hands);
}

void Play::menu(const MenuEntry& entry) {
    g.queue.push_back({entry.source, Verb::Click, entry.index});
}

void Play::close(const Form& form) {
    g.queue.push_back({form.source, Verb::QueryUnload});
}

std::vector<int> wholePack(std::vector<int> pack) {
    for (int id = 1; id <= 40; ++id)
        if (std::find(pack.begin(), pack.end(), id) == pack.end()) pack.push_back(id);
    return pack;
}

void stackPacks(Game& g, std::vector<std::vector<int>> packs) {
    g.chance.prepared.clear();
    for (auto pack = packs.rbegin(); pack != packs.rend(); ++pack) {
        const auto whole = wholePack(*pack);
        for (auto id = whole.rbegin(); id != whole.rend(); ++id)
            g.chance.prepared.push_back((static_cast<float>(*id) + 0.5f) / 41);
    }
}

void chooseDealer(Game& g, int player) {
    g.chance.prepared.push_back(player == human ? 0.25f : 0.75f);
}

void forceHand(Game& g, int humanPoints, int computerPoints) {
    // One player takes the whole pack, which is four points; scope make up the rest.
    const bool toHuman = computerPoints < 4;
    g.giocatore = toHuman ? human : computer;
    g.presiUmano = 0;
    if (toHuman) {
        const auto lies = [&g](int id) {
            for (int row = 1; row <= 3; ++row)
                for (int column = 1; column <= 4; ++column)
                    if (g.tavolo(row, column) == id) return true;
            return false;
        };
        for (int id = 1; id <= 40; ++id)
            if (!lies(id)) g.pilaPrese(++g.presiUmano) = id;
    }
    g.scope(human) = humanPoints - (toHuman ? 4 : 0);
    g.scope(computer) = computerPoints - (toHuman ? 0 : 4);
}

bool showsCard(const Game& g, Picture picture, float left, float top) {
    const Painted* seen = g.frmscopa.surface.at(left + cardWidth / 2, top + cardHeight / 2);
    if (!seen || seen->picture != picture) return false;
    const auto same = [](float a, float b) { return std::abs(a - b) < 0.01f; };
    return same(seen->box.left, left) && same(seen->box.top, top) &&
           same(seen->box.right, left + cardWidth) && same(seen->box.bottom, top + cardHeight);
}

}  // namespace script
