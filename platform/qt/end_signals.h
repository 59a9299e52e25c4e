// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <functional>
#include <memory>

/// Calls back, on the main thread, when the process is asked to end from outside its windows: by
/// Ctrl-C, SIGTERM or SIGHUP, or on Windows by the user's logging off. One of these may live at a
/// time.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> asked);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    std::unique_ptr<QObject> listener_;
};
