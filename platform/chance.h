// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

struct Runtime;

/// The random generator of one game. It runs the same on every machine.
struct Chance {
    std::uint64_t state = 0;
    std::uint64_t seedings =
        0;  ///< mixed into each seed: a clock that stands still repeats nothing
    /// Draws laid ready, last one first; they are given out before any others.
    std::vector<float> prepared;
};

/// Seeds the generator from the clock.
void rtcRandomize(Runtime&);

/// The next random number, from 0 up to but not including 1.
float rtcRandomNext(Runtime&);

/// A random integer from 0 to below n, the integer part of rtcRandomNext times n. The product is
/// taken in double precision: in single precision a draw next to 1 could be rounded up to n.
int randomBelow(Runtime&, int n);

/// The integer nearest to a value; halves go to the even one.
int rounded(float value);
