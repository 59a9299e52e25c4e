// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/short_sleep.h"

#include <windows.h>

#include <cmath>

namespace {

constexpr double ticksPerSecond = 1e7;
/// What the headers of compilers older than Windows 10 lack.
constexpr DWORD highResolution = 2;

}  // namespace

/// An ordinary sleep ends with a tick of the system, a frame late. Where there is no better one the
/// frame is rather a little short.
void sleepShortly(double seconds) {
    static HANDLE const timer =
        CreateWaitableTimerExW(nullptr, nullptr, highResolution, TIMER_ALL_ACCESS);
    LARGE_INTEGER due;
    due.QuadPart = -std::llround(seconds * ticksPerSecond);
    if (timer && SetWaitableTimer(timer, &due, 0, nullptr, nullptr, FALSE))
        WaitForSingleObject(timer, INFINITE);
}
