// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/events.h"
#include "platform/headless/headless.h"

namespace {

TEST(VirtualTime, PassesInWaitsAlone) {
    Headless backend;
    const auto melody = backend.player(DeviceType::Sequencer);
    melody->open("any");
    melody->play(0);
    backend.wait(backend.melodySeconds / 2);
    EXPECT_EQ(melody->position(), melody->length() / 2) << "half of the melody has been heard";
    backend.wait(backend.melodySeconds);
    EXPECT_EQ(melody->position(), melody->length()) << "it has been heard to its end";
}

TEST(VirtualTime, DoesNotWaitInVain) {
    Headless backend;
    EXPECT_THROW(backend.wait(never), ScriptRanOut) << "there is nobody to wait for";
    const auto waitOnAndOn = [&] {
        for (int second = 1; second < 100000; ++second) backend.wait(second);
    };
    EXPECT_THROW(waitOnAndOn(), ScriptRanOut) << "nobody has done anything for very long";
}

}  // namespace
