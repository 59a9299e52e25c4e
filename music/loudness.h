// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <span>

namespace music {

/// How loud a recording is to the ear, in LUFS (EBU R 128): high notes count for more than low
/// ones, and silence does not count. Expects samples of 16 bits, left and right in turns.
double loudness(std::span<const int> samples, double rate);

}  // namespace music
