// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "game/event_table.h"
#include "platform/qt/desktop.h"
#include "platform/qt/end_signals.h"
#include "platform/sound/memory_pools.h"
#include "state/state.h"

namespace {

/// While the window system is being opened its complaints are not the user's: one line says what
/// is wrong.
void reportNoDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    std::fputs("velarda: there is no display to open a window on\n", stderr);
    std::_Exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1) {
        std::fputs("velarda: takes no arguments\n", stderr);
        return 2;
    }
    shareMemory();
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QGuiApplication::setDesktopFileName(QStringLiteral("net.velarda.Velarda"));
    qInstallMessageHandler(reportNoDisplay);
    QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    QApplication::setApplicationName(QStringLiteral("velarda"));
    QApplication::setQuitOnLastWindowClosed(false);

    Desktop desktop;
    Game game(desktop, eventTable());
    desktop.attach(game);
    const EndSignals endSignals([&] { desktop.askToClose(game.frmscopa); });
    runProgram(game);
    return 0;
}
