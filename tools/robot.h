// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>

#include "platform/events.h"

struct Game;

/// A human player made of code, for the simulator and the tests. It plays through the real event
/// queue and mouse handler only: it presses at the centre of a hand slot, then at table cards, and
/// chooses uniformly among what is legal. Its chance is its own and fixed by its seed.
class Robot {
public:
    Robot(Game& g, std::uint64_t seed) : g_(g), state_(seed) {}

    /// If set, it plays by these keys instead, and makes the same choices.
    std::function<void(Key)> key;

    /// Does what the game waits for, if it waits for the player: chooses the match, plays, goes on
    /// after the score sheet. True when it has queued something. Fits VirtualTime::user.
    bool act(double until);

    int tipoPartita = 0;  ///< the kind of match to choose on the opening screen

    /// Uniform from 0 to below n.
    int draw(int n);

    // Presses, for scripts that lead the game themselves.
    void pressAt(float x, float y, int button = 1);
    void pressHand(int slot);  ///< slot 1 to 3
    void pressTable(int row, int column);
    bool holds(int slot) const;  ///< a card is to be seen in the slot

private:
    void keyInto(int entry) const;
    int chooseSelection();
    void playHandCard();
    void select();

    int played_ = 0;  ///< the slots played since the last deal, a bit each
    Game& g_;
    std::uint64_t state_;
};
