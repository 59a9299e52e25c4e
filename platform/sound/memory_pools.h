// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// How the C library keeps memory. Nothing happens where it is neither the GNU one nor that of
// Windows.

/// One pool of memory for all threads: with one for each, what the loading of a melody leaves free
/// serves nobody else. To be called before there are threads.
void shareMemory();

/// Gives what is free back to the system.
void returnMemory();
