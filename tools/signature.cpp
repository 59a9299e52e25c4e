// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tools/signature.h"

#include <initializer_list>

#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "state/cards.h"
#include "state/state.h"
#include "tools/robot.h"

namespace {

constexpr int runs = 30, handsOfRun = 10;

/// The FNV-1a hash of numbers, each as two bytes.
class Hash {
public:
    void add(std::initializer_list<int> numbers) {
        for (const int number : numbers)
            for (const int byte : {number & 0xFF, number >> 8 & 0xFF})
                value_ = (value_ ^ static_cast<unsigned>(byte)) * 0x100000001b3u;
    }
    std::uint64_t value() const { return value_; }

private:
    std::uint64_t value_ = 0xcbf29ce484222325u;
};

void addDecision(Hash& hash, const Game& g) {
    hash.add({g.giocatore, g.cartaGiocata, g.postoMano});
    for (int i = 1; i <= g.numeroPresa; ++i) hash.add({g.presa(i)});
}

void addTable(Hash& hash, const Game& g) {
    for (const auto [row, column] : tableOrder) hash.add({g.tavolo(row, column)});
}

void addCount(Hash& hash, const Game& g) {
    hash.add({g.presiUmano, g.denariUmano, g.primieraVinta, int{g.settebelloUmano}, g.scope(human),
              g.scope(computer), g.totaleUmano, g.totaleComputer, g.mazziere});
}

void playRun(int run, Hash& hash) {
    const std::uint64_t seed = static_cast<std::uint64_t>(run) + 1;
    Headless backend(seed);
    Game g(backend, eventTable());
    Robot robot(g, seed);
    robot.tipoPartita = run % 3;
    backend.time.user = [&](double until) { return robot.act(until); };
    g.watch = [&, scored = 0](Moment moment) mutable {
        if (moment == Moment::decided) addDecision(hash, g);
        if (moment == Moment::carriedOut) addTable(hash, g);
        if (moment != Moment::scored) return;
        addCount(hash, g);
        if (++scored == handsOfRun) throw EndProgram{};
    };
    runProgram(g);
}

}  // namespace

std::uint64_t signatureOfPlay() {
    Hash hash;
    for (int run = 0; run < runs; ++run) playRun(run, hash);
    return hash.value();
}
