// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

/// Sleeps for less than the millisecond that a timer counts by, or at least not for much longer:
/// frames of a slide follow each other by it.
void sleepShortly(double seconds);
