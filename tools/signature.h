// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

/// One number for all that happens in three hundred hands of fixed seeds between the robot and the
/// computer, a hundred of each kind of match: every card played and taken, the table after each
/// move, and what each hand is worth. It changes when anything about the play changes: the shuffle,
/// a rule, what the computer chooses, the points, the order in which random numbers are drawn, or
/// the robot's own choices. A change of mere looks or timing leaves it alone. A test pins it.
std::uint64_t signatureOfPlay();
