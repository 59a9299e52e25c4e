// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tools/signature.h"

#include <gtest/gtest.h>

/// Whoever changes the play on purpose makes sure that other tests say so too, and puts the new
/// number here.
TEST(ThreeHundredHands, HaveTheKnownSignature) {
    EXPECT_EQ(signatureOfPlay(), 5974004500799276125u) << "play has changed";
}
