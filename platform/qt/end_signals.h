// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QSocketNotifier>
#include <functional>

/// Calls back, on the main thread, when the process is asked to end (Ctrl-C, SIGTERM, SIGHUP).
/// One of these may live at a time.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> asked);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    QSocketNotifier notifier_;
    std::function<void()> asked_;
};
