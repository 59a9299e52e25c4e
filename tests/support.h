// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// What the tests of the rules share: card notation, a table to lay out by hand, a scripted player,
// and what must hold at every moment of a hand.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "game/state.h"
#include "platform/headless/headless.h"

namespace test {

/// A card from its notation: the value, 1 to 10 or A, then the suit, d, c, b or s; "7d", "Ac".
int card(std::string_view notation);
/// Several cards with blanks between them.
std::vector<int> cards(std::string_view notation);
/// The notation of a card, "-" for none, and of several.
std::string name(int id);
std::string names(const std::vector<int>& ids);

/// A press at a place of the table surface.
struct Press {
    float x, y;
    int button = 1;
};
/// What arrives within one round of events.
using Pump = std::vector<Press>;

/// A game whose cards are 62 by 108 units, so that every edge of the layout is a whole number, and
/// whose table and hands are laid by hand. The rate is low: ritardo(1) lasts one second.
class Desk {
public:
    explicit Desk(std::uint64_t seed = 1);

    Headless backend;
    Game g{backend};

    // The cards stand in the order of their places with blanks between them. "7d" is that card,
    // "7" a seven of the first suit that is still free, "." leaves the place empty.
    void layTable(std::string_view text);
    void giveHuman(std::string_view text);
    void giveComputer(std::string_view text);
    /// A card that lies nowhere yet, in the same notation.
    int take(std::string_view text);

    /// Covers the whole surface with a colour that is no table, so that only places count.
    void coverSurface();

    /// Takes all cards off the desk and all frames and marks with them.
    void clear();

    /// The card at a place, 1 to 12 in table order.
    int at(int place) const;
    /// The places whose cards carry a mark, in table order.
    std::vector<int> markedPlaces() const;
    /// The first numeroPresa entries of presa.
    std::vector<int> presa() const;

    Press slot(int k, int button = 1) const;        ///< middle of the human's slot, 1 to 3
    Press place(int number, int button = 1) const;  ///< middle of a table place, 1 to 12
    void press(const Press&);

    /// What the player does: one entry whenever the game waits for him. The game then waits in
    /// vain, which ends it with ScriptRanOut.
    void script(std::vector<Pump> pumps);

    /// Clears the move and makes it this player's, as at the start of each move.
    void beginMove(int player);
    /// Runs the human's move up to its decision: the card of a slot, then the presses at places.
    void humanPlays(int slotNumber, const std::vector<int>& places = {});
    /// The same; false if the game still waits for the player when all has been pressed.
    bool humanMayEnd(int slotNumber, const std::vector<int>& places);
    void computerPlays();

private:
    std::vector<int> resolve(std::string_view text, int places);
    int freeCard(int value);
    int anyFreeCard();
    void show(int id, float left, float top);

    Array<bool, 40> used_;
};

/// The cards of the twelve places and of the computer's three slots, 0 where there is none.
std::vector<int> tableOf(const Game&);
std::vector<int> handOf(const Game&);
/// Such places in the notation that layTable and the others read.
std::string text(const std::vector<int>& places);
/// What the decided move takes, without zero entries, and which of these cards are marked.
std::vector<int> takenBy(const Game&);
std::vector<int> markedOf(const Game&, const std::vector<int>& ids);

template <class Items, class Item>
bool contains(const Items& items, const Item& item) {
    return std::find(items.begin(), items.end(), item) != items.end();
}

/// The red frame of a marked card is to be seen at all four sides.
bool framed(const Game&, int id);
/// The middle of the human's slot (1 to 3) or of the computer's (0 to 2) is not bare table.
bool humanShows(const Game&, int slot);
bool computerShows(const Game&, int slot);

/// Says what is wrong with the cards, empty if nothing is: no card is in two places, marks lie on
/// table cards only, the surface is bare just where no card lies, and a completed pile is the
/// whole pack. The computer's pile is what is left over.
std::string brokenInvariant(const Game&);
void checkInvariants(const Game&);

}  // namespace test
