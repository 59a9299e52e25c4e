// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The way of Linux and of systems like it.

#include "platform/qt/end_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <csignal>
#include <utility>

namespace {

constexpr int endings[] = {SIGINT, SIGTERM, SIGHUP};

// The signal handler can reach nothing but a global.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
int ends[2] = {-1, -1};

/// All that a handler may do safely: wake the event loop by a byte in a pipe.
void onSignal(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = write(ends[1], &byte, 1);
}

int openPipe() {
    if (pipe(ends) != 0) return -1;
    for (const int end : ends) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    return ends[0];
}

}  // namespace

EndSignals::EndSignals(std::function<void()> asked) {
    auto notifier = std::make_unique<QSocketNotifier>(openPipe(), QSocketNotifier::Read);
    const auto answer = [asked = std::move(asked)] {
        char bytes[16];
        while (read(ends[0], bytes, sizeof bytes) > 0) {
        }
        asked();
    };
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), answer);
    listener_ = std::move(notifier);
    for (const int signal : endings) std::signal(signal, onSignal);
}

EndSignals::~EndSignals() {
    for (const int signal : endings) std::signal(signal, SIG_DFL);
    listener_.reset();
    close(ends[0]);
    close(ends[1]);
}
