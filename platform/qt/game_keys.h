// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "platform/events.h"

class QKeyEvent;

/// Space or Enter, with nothing held but Shift.
bool isPress(const QKeyEvent&);

/// The key as the game knows it; nothing for a key that means nothing to it, that is pressed
/// together with Control, Alt or the like, or that presses once more while it is held down.
std::optional<Key> gameKey(const QKeyEvent&);
