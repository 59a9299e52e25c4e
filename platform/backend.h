// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/controls.h"
#include "platform/player.h"

struct Form;
struct Painted;
struct PixelSize;

/// What a window system and a machine give the game. There is one for tests and the simulator
/// (platform/headless) and one for the desktop (platform/qt); everything else is shared.
/// A backend collects what the user does as entries of the runtime's queue and calls no procedure
/// of the game.
class Backend {
public:
    virtual ~Backend() = default;

    /// Sleeps until an event has been queued since the call or the clock reads `until`, whichever
    /// comes first; returns at once, with what has arrived meanwhile queued, when that is past.
    virtual void wait(double until) = 0;
    /// Shows what has been painted and set since the last time.
    virtual void present() = 0;
    /// Seconds since an arbitrary moment. Never goes back.
    virtual double clock() = 0;
    /// Something that differs from run to run.
    virtual std::uint64_t seed() = 0;
    /// The folder of the program, without a closing separator.
    virtual std::string programFolder() = 0;
    /// What the settings file holds; empty when there is none or it cannot be read.
    virtual std::string readSettings() = 0;
    /// Replaces what the settings file holds, whole or not at all.
    virtual void writeSettings(const std::string&) = 0;

    virtual void show(Form&) = 0;
    virtual void hide(Form&) = 0;
    /// One more entry has been painted on the form's surface.
    virtual void painted(Form&, const Painted&) = 0;
    /// The form's surface has been cleared to its back colour.
    virtual void cleared(Form&) = 0;
    /// The colour of a picture, drawn at a size, in one of its pixels.
    virtual Colour pixel(Picture, PixelSize, int x, int y) = 0;
    virtual std::unique_ptr<Player> player(DeviceType) = 0;
    /// True while a reader of the screen is there. Where it is not, nothing is made for it.
    virtual bool listening() = 0;
    /// Says a sentence aloud, after those that came before it and after what has been painted by
    /// now is seen.
    virtual void announce(const std::string& sentence) = 0;

    double frameSeconds = 0;  ///< how long a step of a slide is to be seen
    double wipeSeconds = 0;   ///< how long a wipe takes
};
