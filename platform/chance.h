// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Runtime;

/// Seeds the generator from the clock.
void rtcRandomize(Runtime&);

/// The next random number, from 0 up to but not including 1.
float rtcRandomNext(Runtime&);

/// A random integer from 0 to below n, the integer part of rtcRandomNext times n. The product is
/// taken in double precision: in single precision a draw next to 1 could be rounded up to n.
int randomBelow(Runtime&, int n);
