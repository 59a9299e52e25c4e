// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>

#include "platform/headless/headless.h"
#include "platform/qt/desktop.h"

/// The desktop backend in virtual time, played by a script: real windows, no waiting.
class ScriptedDesktop : public Desktop {
public:
    explicit ScriptedDesktop(std::uint64_t seed = 1) : seed_(seed) {
        frameSeconds = 0;
        wipeSeconds = 0;
    }

    VirtualTime time;
    std::string settings;

    void wait(double until) override {
        QCoreApplication::processEvents();
        time.pass(until);
    }
    double clock() override { return time.now; }
    std::uint64_t seed() override { return seed_; }
    std::string readSettings() override { return settings; }
    void writeSettings(const std::string& text) override { settings = text; }
    /// Windows keep the size that the test gives them.
    void show(Form& form) override { window(form).show(); }

private:
    std::uint64_t seed_;
};
