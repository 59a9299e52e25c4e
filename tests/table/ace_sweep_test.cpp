// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The frames of the mascots, tick by tick.

#include "table/ace_sweep.h"

#include <gtest/gtest.h>

#include "platform/headless/headless.h"
#include "state/state.h"

namespace {

/// The number of the frame in front, when all are at one place.
template <int Last>
int inFront(const Game& g, Array<Image, Last>& frames) {
    for (int i = 1; i <= Last; ++i) frames(i).Visible = true;
    const Control* const front = controlAt(g.frmscopa, 5, 5);
    return front ? front->index : 0;
}

TEST(Gorilla, StepsThroughTenFramesAndCountsItsRounds) {
    Headless backend;
    Game g(backend, {});
    for (int tick = 1; tick <= 35; ++tick) {
        frmscopa::Timer1_Timer(g);
        EXPECT_EQ(inFront(g, g.Gorilla), (tick - 1) % 10 + 1) << "tick " << tick;
        EXPECT_EQ(g.giriGorilla, (tick - 1) / 10) << "tick " << tick;
    }
    EXPECT_EQ(g.Timer1.interval, 80);
}

TEST(Mask, StepsThroughFiveFramesAndStandsLongInTheFirstAndTheLast) {
    Headless backend;
    Game g(backend, {});
    EXPECT_EQ(g.Timer2.interval, 120) << "up to the first tick";
    for (int tick = 1; tick <= 12; ++tick) {
        frmscopa::Timer2_Timer(g);
        const int frame = (tick - 1) % 5 + 1;
        EXPECT_EQ(inFront(g, g.Mask2), frame) << "tick " << tick;
        EXPECT_EQ(g.Timer2.interval, frame % 4 == 1 ? 2400 : 120) << "after tick " << tick;
        EXPECT_EQ(g.giriMaschera, tick / 5) << "tick " << tick;
    }
}

}  // namespace
