// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace test {

/// A whole sound font with one instrument, in so many of the 128 places: an even tone that begins
/// and ends with its note. What is heard of a melody is then the same on every machine.
std::string soundBank(int programs = 1, bool drums = false);

}  // namespace test
