// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/chance.h"

#include <gtest/gtest.h>

#include "platform/events.h"
#include "platform/headless/headless.h"

/// One draw in sixteen million lies so near to 1 that four times as much plus 1 is 5 in single
/// precision; a card was once laid on a fifth column that way.
TEST(RandomBelow, StaysBelowItsBoundAtTheHighestDraw) {
    Headless backend;
    Runtime runtime(backend, {});
    for (const int bound : {2, 3, 4, 41}) {
        runtime.chance.prepared = {0x1.fffffep-1f};
        EXPECT_EQ(randomBelow(runtime, bound), bound - 1);
    }
}
