// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/surface.h"

struct Runtime;

/// One thing on a form's surface, as a reader of the screen finds it. A press on it is the press of
/// the mouse in the middle of its place, whether the game allows it now or not.
struct Told {
    enum class Role : std::uint8_t { card, picture, label };
    Role role{};
    // Who it is, while its name and its place change.
    Source source{};
    int index = 0;
    std::string name;  ///< UTF-8
    PixelBox place;    ///< in pixels of the form's grid
    bool marked = false;

    bool operator==(const Told&) const = default;
};

/// Lists what is seen of a form now, from top to bottom. Paints nothing and runs no events.
using Teller = std::vector<Told> (*)(const Runtime&);
