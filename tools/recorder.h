// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/array.h"

struct Game;
enum class Moment;

/// Thrown when a card is lost or doubled or a count does not add up.
struct InvariantBroken : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Watches a game from outside: writes each hand as lines of JSON if asked to, and checks after
/// every move that no card is lost and that everything adds up. See docs/SIMULATOR.md.
class Recorder {
public:
    explicit Recorder(bool transcript) : transcript_(transcript) {}

    /// For Game::watch.
    void see(Game&, Moment);

    int hands = 0;   ///< begun
    int scored = 0;  ///< brought to the score sheet
    long moves = 0, scope = 0;
    int match = 0;     ///< number of the match in play
    std::string text;  ///< lines that have not been written out yet

private:
    void begin(Game&);
    void beginMove(const Game&);
    void decide(const Game&);
    void finishMove(const Game&);
    void takeLeftovers(const Game&);
    void score(const Game&);

    void writeMove(const Game&);
    void writeScore(const Game&);

    bool transcript_;
    int move_ = 0;                 ///< number within the hand, from 1
    Array<bool, 3> played_;        ///< the human's slots
    Array<int, 3> hand_;           ///< the player's three cards before the move
    Array<int, 12> table_, took_;  ///< before the move; both from 1
    int tookCount_ = 0, slot_ = 0, card_ = 0, scopeBefore_ = 0;
    bool sweep_ = false;
    std::uint64_t pile_[3] = {};  ///< by player, bit id for each card taken
    int totalsBefore_[3] = {};
    int dealer_ = 0;
};
