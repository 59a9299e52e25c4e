// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/wipe.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/headless/headless.h"
#include "state/state.h"

TEST(Wipe, FillsTheHalvesFromBothSides) {
    constexpr Colour before = 0x111111, after = 0x222222;
    Headless backend;
    Game g(backend, {});
    backend.wipeSeconds = 4;
    backend.frameSeconds = 1 / 64.0;
    BackColor(g.frmscopa, before);
    int looks = 0;
    backend.time.user = [&](double until) {
        if (std::abs(until - 2) > 1 / 128.0) return false;  // It is at its half.
        ++looks;
        for (const float x : {10.0f, 390.0f, 410.0f, 790.0f})
            for (const float y : {20.0f, 280.0f, 320.0f, 580.0f})
                EXPECT_EQ(Point(g.frmscopa, x, y), (x < 400) == (y < 300) ? after : before)
                    << "at " << x << ", " << y;
        return false;
    };
    modScopa::sipario(g, g.frmscopa, after);
    EXPECT_GT(looks, 0) << "the half is shown";
    EXPECT_NEAR(backend.time.now, 4, 1 / 64.0) << "it takes its time";
    EXPECT_EQ(g.frmscopa.surface.backColor, after);
}
