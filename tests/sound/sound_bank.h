// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace test {

/// A whole sound font with one instrument: an even tone that begins and ends with its note. What
/// is heard of a melody is then the same on every machine, whatever is installed there.
std::string soundBank();

}  // namespace test
