// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// velarda-bench: where the time of a simulated hand goes. docs/PERFORMANCE.md holds the figures.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>

#include "game/capture.h"
#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "state/cards.h"
#include "state/state.h"
#include "table/painting.h"
#include "table/wipe.h"
#include "tools/recorder.h"
#include "tools/robot.h"

namespace {

// The allocator can reach nothing but a global.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
long allocations = 0;

}  // namespace

// Not inlined: the compiler would take the pair of malloc and delete for a mistake.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

/// Plays `hands` hands of matches of all kinds, watched or not.
void playHands(int hands, bool watched) {
    Recorder recorder(false);
    Headless backend(1);
    Game g(backend, eventTable());
    Robot robot(g, 1);
    int match = 0;
    backend.time.user = [&](double until) {
        if (g.GO.Visible) robot.tipoPartita = match++ % 3;
        return robot.act(until);
    };
    g.watch = [&, left = hands](Moment moment) mutable {
        if (watched) recorder.see(g, moment);
        if (moment == Moment::scored && --left == 0) throw EndProgram{};
    };
    runProgram(g);
}

void Hand(benchmark::State& state) {
    constexpr int hands = 500;
    const long before = allocations;
    for ([[maybe_unused]] auto _ : state) playHands(hands, state.range(0) != 0);
    const double played = static_cast<double>(state.iterations()) * hands;
    state.counters["hands"] = benchmark::Counter(played, benchmark::Counter::kIsRate);
    state.counters["allocations"] = static_cast<double>(allocations - before) / played;
}
BENCHMARK(Hand)->ArgName("checked")->Arg(0)->Arg(1);

/// A table whose eight candidates make no sum, so that all 255 masks are walked.
void CombinaAtItsWorst(benchmark::State& state) {
    Headless backend;
    Game g(backend, eventTable());
    frmscopa::Trova_Combinazioni(g);
    constexpr int evens[] = {2, 12, 22, 32, 4, 14, 24, 34};
    for (std::size_t i = 0; i < std::size(evens); ++i)
        g.tavolo(tableOrder[i].row, tableOrder[i].column) = evens[i];
    g.giocatore = human;
    g.cartaGiocata = g.valoreGiocato = 9;
    for ([[maybe_unused]] auto _ : state) {
        frmscopa::combina(g);
        benchmark::DoNotOptimize(g.presaOk);
    }
}
BENCHMARK(CombinaAtItsWorst);

void Wipe(benchmark::State& state) {
    Headless backend;
    Game g(backend, eventTable());
    for ([[maybe_unused]] auto _ : state) modScopa::sipario(g, g.frmscopa, tableColour);
}
BENCHMARK(Wipe);

/// The paint of a card that slides over a fan of the given number of cards.
void SlidePaint(benchmark::State& state) {
    Headless backend;
    Game g(backend, eventTable());
    g.larghezzaCarta = 62.2f;
    g.altezzaCarta = 108.3f;
    for ([[maybe_unused]] auto _ : state) {
        const auto top = 245 - static_cast<float>(state.range(0)) * 0.3f * g.altezzaCarta;
        for (float y = top; y < 245; y += 2) {
            paintAtCardSize(g, 7, {578, y + 1});
            erase(g, 578, y - 3, 578 + g.larghezzaCarta, y);
        }
        benchmark::DoNotOptimize(g.frmscopa.surface.at(600, 250));
        g.frmscopa.surface.clear();
    }
}
BENCHMARK(SlidePaint)->ArgName("cards")->Arg(1)->Arg(3)->Arg(12);

}  // namespace

BENCHMARK_MAIN();
