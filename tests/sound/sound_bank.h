// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>

namespace test {

struct BankContent {
    int programs = 1;  ///< how many of the 128 it has
    bool drums = false;
    std::size_t silence = 0;  ///< samples, to make it larger
};

/// A whole sound font with one instrument: an even tone that begins and ends with its note. What
/// is heard of a melody is then the same on every machine, whatever is installed there.
std::string soundBank(const BankContent& = {});

}  // namespace test
