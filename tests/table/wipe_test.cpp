// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/wipe.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/headless/headless.h"
#include "state/state.h"

namespace {

TEST(Wipe, FillsTheHalvesFromBothSides) {
    constexpr Colour before = 0x111111, after = 0x222222;
    Headless backend;
    Game g(backend, {});
    backend.wipeSeconds = 4;
    backend.frameSeconds = 1 / 64.0;
    BackColor(g.frmscopa, before);
    const auto expectColour = [&](float x, float y, Colour colour) {
        EXPECT_EQ(Point(g.frmscopa, x, y), colour) << "at " << x << ", " << y;
    };
    int looks = 0;
    backend.time.user = [&](double until) {
        if (std::abs(until - 2) > 1 / 128.0) return false;  // It is at its half.
        ++looks;
        for (const float y : {20.0f, 280.0f}) {
            expectColour(10, y, after);
            expectColour(390, y, after);
            expectColour(410, y, before);
            expectColour(790, y, before);
            expectColour(10, 600 - y, before);
            expectColour(390, 600 - y, before);
            expectColour(410, 600 - y, after);
            expectColour(790, 600 - y, after);
        }
        return false;
    };
    modScopa::sipario(g, g.frmscopa, after);
    EXPECT_GT(looks, 0) << "the half is shown";
    EXPECT_NEAR(backend.time.now, 4, 1 / 64.0) << "it takes its time";
    EXPECT_EQ(g.frmscopa.surface.backColor, after) << "the back colour of the form";
}

}  // namespace
