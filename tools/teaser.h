// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "state/cards.h"
#include "tools/robot.h"

/// Does to the game what must change nothing: clicks and keys that are refused, wrong selections
/// taken back, panels, menus. Its chance is its own, so the game that it disturbs goes on as if
/// nothing had been.
class Teaser {
public:
    Teaser(Game& g, std::uint64_t seed) : g_(g), hand_(g, seed) {}

    /// Perhaps queues something, before the real player acts; true when it has.
    bool tease(double until);

private:
    bool teaseWaitingPlayer();
    void useMenu();
    void pressKey(Key first, Key last);
    void clickSomewhereRefused();
    bool markWrongly();
    void takeBack();

    Game& g_;
    Robot hand_;                ///< presses for it
    std::vector<Place> wrong_;  ///< marked wrongly, to be taken back next
    int left_ = 0;              ///< pranks before the player may act
};
