// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/ace_sweep.h"

#include <gtest/gtest.h>

#include "platform/headless/headless.h"
#include "state/state.h"

namespace {

struct Mascots : testing::Test {
    /// All frames are at one place.
    template <int Last>
    void expectFrame(Array<Image, Last>& frames, int frame) {
        for (int i = 1; i <= Last; ++i) frames(i).Visible = true;
        EXPECT_EQ(controlAt(g.frmscopa, 5, 5), &frames(frame)) << "not frame " << frame;
    }
    Headless backend;
    Game g{backend, {}};
};

TEST_F(Mascots, StepThroughTheirFramesOfWhichTheFirstAndTheLastMaskStandLong) {
    for (int tick = 0; tick < 25; ++tick) {
        frmscopa::Timer1_Timer(g);
        expectFrame(g.Gorilla, tick % 10 + 1);
        frmscopa::Timer2_Timer(g);
        expectFrame(g.Mask2, tick % 5 + 1);
        EXPECT_EQ(g.Timer2.interval, tick % 5 % 4 == 0 ? 2400 : 120) << "after tick " << tick;
    }
}

}  // namespace
