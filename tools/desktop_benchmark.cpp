// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// velarda-desktop-bench: what the windows cost, drawn into memory. docs/PERFORMANCE.md holds the
// figures.

#include <benchmark/benchmark.h>

#include <QApplication>

#include "game/event_table.h"
#include "platform/qt/surface_view.h"
#include "state/state.h"
#include "tools/robot.h"
#include "tools/scripted_desktop.h"

namespace {

/// A game in a window of the given size.
struct Table {
    ScriptedDesktop desktop;
    Game game{desktop, eventTable()};

    explicit Table(QSize size) {
        desktop.settings = " 0 \r\n 3 \r\n 100 \r\n";
        desktop.attach(game);
        desktop.window(game.frmscopa).resize(size);
    }
};

/// From nothing to the title on the table, the pictures drawn anew each time.
void FirstPicture(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        Table table(QSize(1920, 1080));
        table.desktop.time.user = [](double) -> bool { throw EndProgram{}; };
        runProgram(table.game);
    }
}
BENCHMARK(FirstPicture)->Unit(benchmark::kMillisecond);

/// All that stands on a 4K table after the given number of moves, painted and shown again.
void RepaintAll(benchmark::State& state) {
    Table table(QSize(3840, 2160));
    Game& g = table.game;
    Robot robot(g, 1);
    table.desktop.time.user = [&](double until) { return robot.act(until); };
    g.watch = [left = state.range(0)](Moment moment) mutable {
        if (moment == Moment::carriedOut && --left == 0) throw EndProgram{};
    };
    runProgram(g);
    FormWindow& window = table.desktop.window(g.frmscopa);
    const std::vector<Painted> list = g.frmscopa.surface.tidied();
    for ([[maybe_unused]] auto _ : state) {
        for (const Painted& entry : list) window.view().painted(entry);
        window.present();
    }
    state.counters["entries"] = static_cast<double>(list.size());
}
BENCHMARK(RepaintAll)->ArgName("moves")->Arg(12)->Arg(35)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
