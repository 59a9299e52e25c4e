// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The way of Linux and of systems like it.

#include "platform/qt/short_sleep.h"

#include <chrono>
#include <thread>

void sleepShortly(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}
