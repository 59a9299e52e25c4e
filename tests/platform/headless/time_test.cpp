// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/events.h"
#include "platform/headless/headless.h"

TEST(VirtualTime, DoesNotWaitInVain) {
    Headless backend;
    EXPECT_THROW(backend.wait(never), ScriptRanOut) << "there is nobody to wait for";
    const auto waitOnAndOn = [&] {
        for (int second = 1; second < 100000; ++second) backend.wait(second);
    };
    EXPECT_THROW(waitOnAndOn(), ScriptRanOut) << "nobody has done anything for very long";
    backend.time.user = [](double) { return true; };
    EXPECT_THROW(waitOnAndOn(), ScriptRanOut) << "what the user does has no effect";
}
