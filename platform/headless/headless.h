// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/backend.h"
#include "platform/surface.h"

struct Runtime;

/// Thrown when the game waits for its player and the script has nothing more to do.
struct ScriptRanOut : std::runtime_error {
    ScriptRanOut() : std::runtime_error("the game waits and the script has run out") {}
};

/// A player made of code, and the time he plays in: nothing ever sleeps, the clock is moved on.
struct VirtualTime {
    double now = 0;
    /// Called in every wait with the moment until which the game would sleep; may queue events,
    /// through the real hit test, and says whether it did.
    std::function<bool(double until)> user;

    /// Throws ScriptRanOut when the user lets too many waits for him pass in a row, or acts again
    /// and again and no time passes.
    void pass(double until);

private:
    int idle_ = 0, actsAtOnce_ = 0;
};

/// A backend without a window.
class Headless : public Backend {
public:
    Headless() = default;
    explicit Headless(std::uint64_t seed) : seed_(seed) {}

    VirtualTime time;
    std::string settings;  ///< what the settings file holds
    int settingsWritten = 0;
    int cardSounds = 0;         ///< how often a sound of a card was started
    std::string melody;         ///< the file that is open as music, empty for none
    double melodySeconds = 90;  ///< how long a melody lasts
    bool soundWorks = true;
    bool listens = false;                ///< a reader of the screen is there
    std::vector<std::string> announced;  ///< what it has been told

    void wait(double until) override { time.pass(until); }
    void present() override {}
    double clock() override { return time.now; }
    std::uint64_t seed() override { return seed_; }
    std::string programFolder() override { return "/velarda"; }
    std::string readSettings() override { return settings; }
    void writeSettings(const std::string& text) override;
    void show(Form&) override {}
    void hide(Form&) override {}
    void painted(Form&, const Painted&) override {}
    void cleared(Form&) override {}
    Colour pixel(Picture, PixelSize, int, int) override { return cardPaper; }
    std::unique_ptr<Player> player(DeviceType) override;
    bool listening() override { return listens; }
    void announce(const std::string& sentence) override { announced.push_back(sentence); }

private:
    /// What every picture looks like here; not the table colour.
    static constexpr Colour cardPaper = 0xE8F4FA;

    std::uint64_t seed_ = 1;
};
