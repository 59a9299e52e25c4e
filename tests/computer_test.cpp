// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The computer's turn: what it takes, and what it throws away else.

#include "game/cards.h"
#include "tests/support.h"

namespace test {
namespace {

/// A turn of the computer in which only one card may be played.
struct Turn {
    const char* hand;
    const char* table;
    int slot;           ///< 0 to 2
    const char* presa;  ///< "." for a candidate that is left out
};

const Turn turns[] = {
    // The first card of the hand that captures; the first of equal cards, and that one alone.
    {"9 5 4", "5", 1, "5d"},
    {"6 2 7", "3 7 4 9", 2, "7d"},
    {"5", ". 2 . 5 5", 0, "5d"},
    // Else the sum whose last card lies earliest, then the last but one. Tens are in no sum.
    {"5 3 9", "3 2", 0, "3d 2d"},
    {"7", "3 4 2 5", 0, "3d 4d . ."},
    {"7", ". 10 3 . 4", 0, "3d 4d"},
    {"10s", "3 8 8 8 8 6 7", 0, "3d . . . . . 7d"},
    // Eight candidates are searched. With more the card is laid, though a later one could take.
    {"10", "8 8 8 8 6 6 3 7", 0, ". . . . . . 3d 7d"},
    {"10 4 8", "4 6 2 2 2 2 3 3 3", 0, ""},
    {"A 9 4", "4 5 2 2 2 2 3 3 3", 1, ""},
    // An ace is held back while there are other cards, even from an ace.
    {"A 4 6", "A 4", 1, "4d"},
    {". A A", "7 A", 1, "1d"},
    // The last ace sweeps, a single card too; on a bare table it is laid.
    {". . A", "10", 2, "10d"},
    {"A", "2 3 4 5 6 7 8 9 10 2 3 4", 0, "2d 3d 4d 5d 6d 7d 8d 9d 10d 2c 3c 4c"},
    {"A 4 .", "", 1, ""},
    {"A", "", 0, ""},
};

TEST(Computer, PlaysTheFirstCardThatCaptures) {
    for (const auto& [hand, table, slot, presa] : turns) {
        SCOPED_TRACE(std::string("hand ") + hand + ", table " + table);
        Desk desk;
        desk.layTable(table);
        desk.giveComputer(hand);
        const Image& held = desk.g.dorso(slot);
        const std::string id = held.Tag;
        desk.computerPlays();
        EXPECT_EQ(desk.g.postoMano, slot);
        EXPECT_EQ(std::to_string(desk.g.cartaGiocata), id);
        EXPECT_EQ(names(desk.presa()), presa);
        Cards taken = desk.presa();
        std::erase(taken, 0);
        EXPECT_EQ(names(desk.marked()), names(taken));
        EXPECT_EQ(held.Tag, "0");
        EXPECT_EQ(desk.seenAt({held.Left + 31, 59}), tableColour) << "gone from the hand";
        EXPECT_NE(desk.seenAt({609, 300}), tableColour) << "and shown";
        EXPECT_EQ(desk.backend.cardSounds, 1);
    }
}

struct Discard {
    const char* hand;
    const char* table;
    std::vector<int> slots;  ///< that may be thrown, all with the same chance
};

// Of sevens alone never the settebello is thrown, of aces alone any, and else no ace.
const Discard discards[] = {
    {"4 9 2", "10", {0, 1, 2}}, {"3 . 6", "10", {0, 2}},    {". 7d .", "10", {1}},
    {"7d 7c 7b", "10", {1, 2}}, {"7c . 7d", "", {0}},       {"7d 7c 4", "10", {0, 1, 2}},
    {"7d A 7c", "10", {0, 2}},  {"A 7d .", "10", {1}},      {"A 9 2", "10", {1, 2}},
    {"A A 2", "10", {2}},       {"A A A", "10", {0, 1, 2}}, {"A A .", "5 9", {0, 1}},
    {"A . A", "", {0, 2}},
};

/// The slots are drawn in turn from the first one on; the first that may be thrown is.
void check(const Discard& c, int first, const std::vector<float>& draws) {
    SCOPED_TRACE(std::string("hand ") + c.hand + ", table " + c.table);
    Desk desk;
    desk.layTable(c.table);
    desk.giveComputer(c.hand);
    const std::vector<int> order{first, (first + 1) % 3, (first + 2) % 3};
    for (auto slot = order.rbegin(); slot != order.rend(); ++slot)
        desk.g.chance.prepared.push_back(draws[static_cast<std::size_t>(*slot)]);
    desk.computerPlays();
    const auto permitted = [&](int slot) { return contains(c.slots, slot); };
    EXPECT_EQ(desk.g.postoMano, *std::find_if(order.begin(), order.end(), permitted)) << first;
    EXPECT_EQ(desk.presa().size(), isAce(desk.g.cartaGiocata) ? cards(c.table).size() : 0);
}

TEST(Computer, ThrowsEveryPermittedCardAndNoOther) {
    for (const Discard& c : discards) {
        for (int first = 0; first <= 2; ++first) {
            check(c, first, {0, 0.334f, 0.667f});
            check(c, first, {0.333f, 0.666f, 0.9999999f});
        }
    }
}

TEST(Computer, EntersTheRoundedPlaceOfACard) {
    Desk desk;
    desk.layTable("7c");
    desk.giveComputer("7d");
    Move(desk.g.carta(17), 266.6f, 131.5f);
    desk.computerPlays();
    EXPECT_EQ(desk.g.presaX(1), 267);
    EXPECT_EQ(desk.g.presaY(1), 132);
}

// Between two pauses of 2 there are 61 ticks of 80 ms, whatever the rate, and meanwhile the ace is
// still in the hand.
TEST(Computer, SweepsWithItsMascotInFull) {
    Desk desk;
    desk.layTable("5 9");
    desk.backend.time.user = [&](double) {
        const bool running = desk.g.Timer1.enabled;
        EXPECT_EQ(desk.g.Gorilla(1).Visible, running);
        EXPECT_TRUE(!running || desk.seenAt({332, 59}) != tableColour);
        return false;
    };
    for (const int rate : {10, 20, 30}) {
        desk.g.velocita = rate;
        desk.giveComputer("A . .");
        const double start = desk.backend.time.now;
        desk.computerPlays();
        EXPECT_NEAR(desk.backend.time.now - start, 2 * 20.0 / rate + 61 * 0.080, 1e-6);
        EXPECT_EQ(names(desk.marked()), "5d 9d");
    }
}

}  // namespace
}  // namespace test
