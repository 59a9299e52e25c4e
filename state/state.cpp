// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "state/state.h"

Game::Game(Backend& b, std::span<const Handler> table) : Runtime(b, table) {
    designTable(*this, b);
    designScore(*this, b);
    timers = {&Timer1, &Timer2};
}
