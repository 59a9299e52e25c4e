// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/computer.h"

#include <map>

#include "tests/support.h"

namespace test {
namespace {

using Places = std::vector<int>;

Places takenPlaces(const Desk& desk) {
    Places found;
    for (int i = 1; i <= desk.g.numeroPresa; ++i)
        for (int p = 1; p <= 12; ++p)
            if (desk.g.presa(i) != 0 && desk.at(p) == desk.g.presa(i)) found.push_back(p);
    return found;
}

struct Turn {
    const char* hand;
    const char* table;
    int slot;      ///< 0 to 2: the one card that may be played
    Places taken;  ///< places of the table
};

void check(const Turn& turn) {
    SCOPED_TRACE(std::string("hand ") + turn.hand + ", table " + turn.table);
    Desk desk;
    desk.layTable(turn.table);
    desk.giveComputer(turn.hand);
    const int expected = std::stoi(desk.g.dorso(turn.slot).Tag);
    desk.computerPlays();
    EXPECT_EQ(desk.g.postoMano, turn.slot);
    EXPECT_EQ(name(desk.g.cartaGiocata), name(expected));
    EXPECT_EQ(takenPlaces(desk), turn.taken);
    EXPECT_EQ(desk.markedPlaces(), turn.taken);
    EXPECT_EQ(desk.g.dorso(turn.slot).Tag, "0");
}

TEST(Computer, PlaysTheFirstCardThatCaptures) {
    const Turn turns[] = {
        {"5 3 9", "3 2", 0, {1, 2}},  {"9 5 4", "5", 1, {1}},     {"3 . 6", "6", 2, {1}},
        {". 8 8", "5 3", 1, {1, 2}},  {"2 10 7", "10 7", 1, {1}}, {"6 4 7", "3 7 4 9", 1, {3}},
        {"10 7 .", "10 3 7", 0, {1}},
    };
    for (const Turn& turn : turns) check(turn);
}

TEST(Computer, AnAceTakesAnAceOnlyFromAHandOfAces) {
    const Turn turns[] = {
        {"A 4 6", "A 4", 1, {2}},   {"A 4 .", "A 9", 1, {}}, {"A A 5", "A 9", 2, {}},
        {"A 10 .", "A 10", 1, {2}}, {"A A .", "A", 0, {1}},  {". A A", "7 A", 1, {2}},
        {"A . .", "3 A A", 0, {2}},
    };
    for (const Turn& turn : turns) check(turn);
}

TEST(Computer, LaysACardThatHasTooManyCandidates) {
    const Turn turns[] = {
        {"10 4 8", "4 6 2 2 2 2 3 3 3", 0, {}},
        {"A 9 4", "4 5 2 2 2 2 3 3 3", 1, {}},
        {"2 10 8", "4 6 9 8 3 3 3 4 7 6 5", 1, {}},
    };
    for (const Turn& turn : turns) check(turn);
}

TEST(Computer, LaysAnAceOnABareTableOnlyAsTheLastResort) {
    const Turn turns[] = {
        {"A . .", "", 0, {}},
        {"A 4 .", "", 1, {}},
        {". 10 A", "", 1, {}},
        {"7d . A", "", 0, {}},
    };
    for (const Turn& turn : turns) check(turn);
}

TEST(Computer, ADiscardLeavesNothingOfTheSearch) {
    for (const char* table : {"", "9 8", "2 2 A"}) {
        Desk desk;
        desk.layTable(table);
        desk.giveComputer("7 . .");
        desk.beginMove(computer);
        desk.g.numeroPresa = desk.g.sommaPresa = 5;
        frmscopa::gioco2(desk.g);
        EXPECT_EQ(desk.g.numeroPresa, 0) << table;
        EXPECT_EQ(desk.g.sommaPresa, 0) << table;
        EXPECT_EQ(desk.g.valoreGiocato, 7) << table;
    }
}

struct Discard {
    const char* hand;
    const char* table;
    std::vector<int> slots;  ///< the cards that may be thrown, all with the same chance
};

void check(const Discard& c) {
    SCOPED_TRACE(std::string("hand ") + c.hand + ", table " + c.table);
    constexpr int turns = 300;
    std::map<int, int> seen;
    for (std::uint64_t i = 1; i <= turns; ++i) {
        Desk desk(i);
        desk.layTable(c.table);
        desk.giveComputer(c.hand);
        desk.computerPlays();
        ++seen[desk.g.postoMano];
    }
    const int share = turns / static_cast<int>(c.slots.size());
    int permitted = 0;
    for (const int slot : c.slots) {
        permitted += seen[slot];
        EXPECT_NEAR(seen[slot], share, 45) << "slot " << slot;
    }
    EXPECT_EQ(permitted, turns) << "a card that is kept has been thrown";
}

TEST(Computer, ThrowsEveryPermittedCardAndNoOther) {
    const Discard cases[] = {
        {"4 9 2", "10", {0, 1, 2}}, {"3 . 6", "10", {0, 2}},      {"A 9 2", "10", {1, 2}},
        {"A A 2", "10", {2}},       {"7d 7c 7b", "10", {1, 2}},   {"7c 7d 7s", "10", {0, 2}},
        {"7d 7c .", "10", {1}},     {"7c . 7d", "", {0}},         {". 7d .", "10", {1}},
        {"7d 4 .", "10", {0, 1}},   {"7d 7c 4", "10", {0, 1, 2}}, {"A 7d .", "10", {1}},
        {"7d A 7c", "10", {0, 2}},  {"A . A", "", {0, 2}},
    };
    for (const Discard& c : cases) check(c);
}

TEST(Computer, AnyAceOfAHandOfAcesMaySweep) {
    check(Discard{"A A A", "10", {0, 1, 2}});
    check(Discard{"A A .", "5 9", {0, 1}});
}

/// Draws laid ready; the last one of the list comes first.
int slotDrawn(const char* hand, std::vector<float> draws) {
    Desk desk;
    desk.layTable("10");
    desk.giveComputer(hand);
    desk.g.chance.prepared = std::move(draws);
    desk.computerPlays();
    EXPECT_TRUE(desk.g.chance.prepared.empty());
    return desk.g.postoMano;
}

TEST(Computer, DrawsASlotByThirds) {
    EXPECT_EQ(slotDrawn("4 9 2", {0}), 0);
    EXPECT_EQ(slotDrawn("4 9 2", {0.33f}), 0);
    EXPECT_EQ(slotDrawn("4 9 2", {0.34f}), 1);
    EXPECT_EQ(slotDrawn("4 9 2", {0.66f}), 1);
    EXPECT_EQ(slotDrawn("4 9 2", {0.67f}), 2);
    EXPECT_EQ(slotDrawn("4 9 2", {0.9999999f}), 2);
}

TEST(Computer, DrawsAgainForEmptySlotsAndKeptCards) {
    EXPECT_EQ(slotDrawn("3 . 6", {0.9f, 0.5f, 0.5f}), 2);
    EXPECT_EQ(slotDrawn("A 9 2", {0.5f, 0, 0.1f, 0.2f}), 1);
    EXPECT_EQ(slotDrawn("7c 7d 7s", {0, 0.4f, 0.6f}), 0);
}

void checkSweep(const char* table, int rate) {
    SCOPED_TRACE(table);
    Desk desk;
    desk.g.velocita = rate;
    desk.layTable(table);
    desk.giveComputer(". A A");
    Places all;
    for (int p = 1; p <= 12; ++p)
        if (desk.at(p) != 0) all.push_back(p);
    desk.computerPlays();
    // Two pauses of 2 and between them 61 ticks of 80 ms, whatever the rate.
    EXPECT_NEAR(desk.backend.time.now, 2 * 20.0 / rate + 61 * 0.080, 1e-6);
    EXPECT_EQ(takenPlaces(desk), all);
    EXPECT_EQ(desk.g.numeroPresa, static_cast<int>(all.size()));
    EXPECT_EQ(desk.markedPlaces(), all);
    for (const int p : all) EXPECT_TRUE(framed(desk.g, desk.at(p))) << p;
    EXPECT_TRUE(desk.g.presaOk);
    EXPECT_EQ((desk.g.cartaGiocata - 1) % 10 + 1, 1);
    EXPECT_FALSE(desk.g.Timer1.enabled);
    EXPECT_EQ(desk.g.giriGorilla, 0);
    EXPECT_EQ(desk.g.fotoGorilla, 0);
    for (int i = 1; i <= 10; ++i) EXPECT_FALSE(desk.g.Gorilla(i).Visible);
}

TEST(Computer, AThrownAceSweepsTheTable) {
    checkSweep("5 9", 10);
    checkSweep("10", 20);
    checkSweep("2 3 4 5 6 7 8 9 10 2 3 4", 30);
    checkSweep(". 10 . . 8 . . . . . . 2", 30);
}

TEST(Computer, TheSweepRunsBeforeTheAceIsShown) {
    Desk desk;
    desk.layTable("5 9");
    desk.giveComputer("A . .");
    int ticks = 0;
    desk.backend.time.user = [&](double) {
        if (!desk.g.Timer1.enabled) return false;
        ++ticks;
        EXPECT_TRUE(computerShows(desk.g, 0));
        EXPECT_EQ(desk.markedPlaces(), Places{});
        EXPECT_TRUE(desk.g.Gorilla(1).Visible);
        return false;
    };
    desk.computerPlays();
    EXPECT_EQ(ticks, 61);
    EXPECT_FALSE(computerShows(desk.g, 0));
}

TEST(Computer, ShowsTheCardAtThePlayedPlace) {
    Desk desk;
    desk.layTable("2");
    desk.giveComputer("9 . 2");
    const int held = std::stoi(desk.g.dorso(0).Tag);
    desk.computerPlays();
    EXPECT_EQ(desk.g.valoreGiocato, 2);
    EXPECT_EQ(desk.g.carta(desk.g.cartaGiocata).Left, 578);
    EXPECT_EQ(desk.g.carta(desk.g.cartaGiocata).Top, 246);
    for (const float x : {578.5f, 639.5f})
        for (const float y : {246.5f, 353.5f}) EXPECT_NE(Point(desk.g.frmscopa, x, y), tableColour);
    EXPECT_TRUE(computerShows(desk.g, 0));
    EXPECT_FALSE(computerShows(desk.g, 2));
    EXPECT_EQ(desk.g.dorso(0).Tag, std::to_string(held));
    EXPECT_EQ(desk.g.dorso(1).Tag, "0");
    EXPECT_EQ(desk.g.dorso(2).Tag, "0");
    EXPECT_EQ(desk.backend.cardSounds, 1);
    EXPECT_NEAR(desk.backend.time.now, 4, 1e-9) << "two pauses of 2 at the low rate";
}

TEST(Computer, CountsItsHandAfreshAndWithoutPlayedCards) {
    Desk desk;
    desk.layTable("10 A");
    desk.giveComputer("A . 4");
    desk.g.carteMano = desk.g.assiMano = 9;
    desk.computerPlays();
    EXPECT_EQ(desk.g.carteMano, 2);
    EXPECT_EQ(desk.g.assiMano, 1);
}

TEST(Computer, TidiesMarksAndFramesOfTheTable) {
    Desk desk;
    desk.layTable("9 . 10");
    for (const int p : {1, 3}) {
        Image& holder = desk.g.carta(desk.at(p));
        holder.Tag = "SEL";
        Line(desk.g.frmscopa, holder.Left + 3, holder.Top + 3, holder.Left + 59, holder.Top + 105,
             frameRed, LineStyle::B);
        ASSERT_TRUE(framed(desk.g, desk.at(p)));
    }
    desk.giveComputer("4 . .");
    desk.computerPlays();
    EXPECT_EQ(desk.markedPlaces(), Places{});
    EXPECT_FALSE(framed(desk.g, desk.at(1)));
    EXPECT_FALSE(framed(desk.g, desk.at(3)));
    EXPECT_EQ(desk.g.numeroPresa, 0);
}

}  // namespace
}  // namespace test
