// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <span>

#include "platform/events.h"

struct Game;

/// Every event of the program and the procedure that answers it.
std::span<const Handler> eventTable();

/// Runs the program from the load of the table form to its end, whatever ends it. Leaves the sound
/// devices closed.
void runProgram(Game&);
