// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/capture.h"

#include <cmath>

#include "game/cards.h"
#include "tests/support.h"

namespace test {
namespace {

using Places = std::vector<int>;

Places cardsAt(const Desk& desk, const Places& places) {
    Places ids;
    for (const int p : places) ids.push_back(desk.at(p));
    return ids;
}

void tryCard(Desk& desk, int player, const char* played) {
    const int id = desk.take(played);
    desk.beginMove(player);
    desk.g.cartaGiocata = id;
    desk.g.valoreGiocato = (id - 1) % 10 + 1;
    frmscopa::combina(desk.g);
}

struct ComputerCase {
    const char* table;
    const char* played;
    bool plays;    ///< the card stays chosen
    Places presa;  ///< the places of the cards entered, 0 for a candidate left out
    bool presaOk;
    int postiVuoti;
    int carteMano = 3, assiMano = 0;
};

void checkComputer(const ComputerCase& c) {
    SCOPED_TRACE(std::string(c.played) + " on " + c.table);
    Desk desk;
    desk.layTable(c.table);
    desk.g.carteMano = c.carteMano;
    desk.g.assiMano = c.assiMano;
    tryCard(desk, computer, c.played);
    EXPECT_EQ(desk.g.cartaGiocata != 0, c.plays);
    EXPECT_EQ(names(desk.presa()), names(cardsAt(desk, c.presa)));
    EXPECT_EQ(desk.g.presaOk, c.presaOk);
    EXPECT_FALSE(desk.g.presaUguale);
    EXPECT_EQ(desk.g.postiVuoti, c.postiVuoti);
    Places taken;
    for (const int p : c.presa)
        if (p != 0) taken.push_back(p);
    EXPECT_EQ(desk.markedPlaces(), taken);
    for (int p = 1; p <= 12; ++p) {
        const bool marked = desk.g.carta(desk.at(p)).Tag == "SEL";
        EXPECT_EQ(desk.at(p) != 0 && framed(desk.g, desk.at(p)), marked) << p;
    }
    EXPECT_EQ(desk.backend.time.now, 0) << "the search starts no sweep for the computer";
}

TEST(Capture, ComputerTakesAnEqualCardAloneAndTheFirstOne) {
    const ComputerCase cases[] = {
        {"5 2 3", "5", true, {1}, true, 0},
        {"2 3 5", "5", true, {3}, true, 0},
        {". 2 . 5 5", "5", true, {4}, true, 2},
        {"7c 7d", "7s", true, {1}, true, 0},
        {"3c 3d 4d 7s", "7b", true, {4}, true, 0},
        {"10 3 7", "10", true, {1}, true, 0},
        {"3 7 . 10", "10", true, {4}, true, 1},
        {"4 6 2 2 2 2 3 3 3 8", "8", true, {10}, true, 0},
    };
    for (const auto& c : cases) checkComputer(c);
}

TEST(Capture, ComputerTakesTheLowestSum) {
    const ComputerCase cases[] = {
        {"3 4 2 5", "7", true, {1, 2, 0, 0}, false, 8},
        {"1 2 4 3", "7", true, {1, 2, 3, 0}, false, 8},
        {"3c 3d 4c 4d", "7b", true, {1, 0, 3, 0}, false, 8},
        {"5 5", "10", true, {1, 2}, false, 10},
        {". 10 3 . 4", "7", true, {3, 5}, false, 9},
        {"2 2 2 2", "8", true, {1, 2, 3, 4}, false, 8},
        {"8 1 9 2 10 3", "6", true, {2, 4, 6}, false, 6},
        {"3 8 8 8 8 6 7", "10", true, {1, 0, 0, 0, 0, 0, 7}, false, 5},
        {"3 10 8 8 8 8 . 6 . 7", "10s", true, {2}, true, 0},
        {"8 8 8 8 6 6 3 7", "10", true, {0, 0, 0, 0, 0, 0, 7, 8}, false, 4},
        {"4 5 2 2 2 2 3 3 10", "9", true, {1, 2, 0, 0, 0, 0, 0, 0}, false, 3},
        {"10 4 10 5 10 2 2 2 2 3 3 10", "9", true, {2, 4, 0, 0, 0, 0, 0, 0}, false, 0},
    };
    for (const auto& c : cases) checkComputer(c);
}

TEST(Capture, ComputerFindsNothingAndGivesTheCardUp) {
    const ComputerCase cases[] = {
        {"4 5", "7", false, {}, false, 10},       {"4", "7", false, {}, false, 11},
        {"2 2 1", "7", false, {}, false, 9},      {"3 3 3", "7", false, {}, false, 9},
        {"10 . 9 . 8", "7", false, {}, false, 9}, {"10 10 10 9", "8", false, {}, false, 8},
        {"", "7", false, {}, false, 12},          {"", "A", false, {}, false, 12, 1, 1},
    };
    for (const auto& c : cases) checkComputer(c);
}

TEST(Capture, MoreThanEightCandidatesPlaceTheCard) {
    const ComputerCase cases[] = {
        {"4 6 2 2 2 2 3 3 3", "10", true, {}, false, 3},
        {"3 4 2 2 2 2 1 1 1 . 3", "7", true, {}, false, 2},
        {"6 4 2 2 2 2 3 3 3 1 1 1", "10", true, {}, false, 0},
    };
    for (const auto& c : cases) checkComputer(c);
}

TEST(Capture, ComputerHoldsAnAceBackWhileItHasOtherCards) {
    const ComputerCase cases[] = {
        {"A 5", "A", false, {}, false, 0, 2, 1},  {". A 5", "A", false, {}, false, 1, 3, 2},
        {"5 A A", "A", true, {2}, true, 0, 2, 2}, {"A 9", "A", true, {1}, true, 0, 1, 1},
        {"5 9", "A", false, {}, false, 10, 2, 2},
    };
    for (const auto& c : cases) checkComputer(c);
}

struct HumanCase {
    const char* table;
    const char* played;
    bool presaOk, presaUguale;
    int postiVuoti;
    int numeroPresa;  ///< candidates listed
};

void checkHuman(const HumanCase& c) {
    SCOPED_TRACE(std::string(c.played) + " on " + c.table);
    Desk desk;
    desk.layTable(c.table);
    tryCard(desk, human, c.played);
    EXPECT_NE(desk.g.cartaGiocata, 0) << "the human's card is committed";
    EXPECT_EQ(desk.g.presaOk, c.presaOk);
    EXPECT_EQ(desk.g.presaUguale, c.presaUguale);
    EXPECT_EQ(desk.g.postiVuoti, c.postiVuoti);
    EXPECT_EQ(desk.g.numeroPresa, c.numeroPresa);
    EXPECT_EQ(desk.markedPlaces(), Places{});
    EXPECT_EQ(desk.backend.time.now, 0) << "no sweep";
}

TEST(Capture, HumanIsOnlyToldWhatIsCompulsory) {
    const HumanCase cases[] = {
        {"5 2 3", "5", true, true, 0, 0},
        {". . 5 5", "5", true, true, 2, 0},
        {"10 3 7", "10", true, true, 0, 0},
        {"4 6 2 2 2 2 3 3 3 8", "8", true, true, 0, 0},
        {"5 A A", "A", true, true, 0, 0},
        {"3 4 2 5", "7", true, false, 8, 4},
        {"5 5", "10", true, false, 10, 2},
        {"10 3 4", "7", true, false, 9, 2},
        {"8 8 8 8 6 6 3 7", "10", true, false, 4, 8},
        {"4 5", "7", false, false, 10, 2},
        {"4", "7", false, false, 11, 1},
        {"2 2 1", "7", false, false, 9, 3},
        {"3 3 3", "7", false, false, 9, 3},
        {"8 10", "7", false, false, 10, 0},
        {"4 6 2 2 2 2 3 3 3", "10", false, false, 3, 0},
        {"", "7", false, false, 12, 0},
        {"", "A", false, false, 12, 0},
    };
    for (const auto& c : cases) checkHuman(c);
}

TEST(Capture, HumansAceSweepsATableWithoutAces) {
    for (const char* table : {"5", "3 10 . 7 10", "2 3 4 5 6 7 8 9 10 2 3 4"}) {
        SCOPED_TRACE(table);
        Desk desk;
        desk.layTable(table);
        tryCard(desk, human, "A");
        int sum = 0;
        Places all;
        for (int p = 1; p <= 12; ++p) {
            if (desk.at(p) == 0) continue;
            all.push_back(p);
            sum += (desk.at(p) - 1) % 10 + 1;
            EXPECT_TRUE(framed(desk.g, desk.at(p)));
        }
        EXPECT_EQ(desk.markedPlaces(), all);
        EXPECT_EQ(desk.g.valoreGiocato, sum);
        EXPECT_TRUE(desk.g.presaOk);
        EXPECT_FALSE(desk.g.presaUguale);
        EXPECT_EQ(desk.g.numeroPresa, 0);
        EXPECT_GT(desk.backend.time.now, 2) << "the mask has been shown";
    }
}

TEST(Capture, FlagsOfAnEarlierMoveDoNotLast) {
    Desk desk;
    desk.layTable("5 4");
    tryCard(desk, human, "5");
    ASSERT_TRUE(desk.g.presaUguale);
    tryCard(desk, human, "7");
    EXPECT_FALSE(desk.g.presaOk);
    EXPECT_FALSE(desk.g.presaUguale);
    EXPECT_EQ(desk.g.postiVuoti, 10);
}

TEST(Capture, TakenCardsAreEnteredWithTheirPlaceRounded) {
    Desk desk;
    desk.layTable("3 4");
    Move(desk.g.carta(desk.at(1)), 266.6f, 131.5f);
    Move(desk.g.carta(desk.at(2)), 335.4f, 132.49f);
    tryCard(desk, computer, "7");
    EXPECT_EQ(desk.g.presaX(1), 267);
    EXPECT_EQ(desk.g.presaY(1), 132);
    EXPECT_EQ(desk.g.presaX(2), 335);
    EXPECT_EQ(desk.g.presaY(2), 132);
}

TEST(Capture, TheFrameLiesThreeUnitsInside) {
    Desk desk;
    desk.layTable(". . . . . 5");
    tryCard(desk, computer, "5");
    const Game& g = desk.g;
    const Press middle = desk.place(6);
    const float left = middle.x - 31, top = middle.y - 54;
    EXPECT_TRUE(framed(g, desk.at(6)));
    EXPECT_NE(Point(g.frmscopa, left + 2.5f, middle.y), frameRed);
    EXPECT_NE(Point(g.frmscopa, left + 62 - 1.5f, middle.y), frameRed);
    EXPECT_NE(Point(g.frmscopa, middle.x, top + 2.5f), frameRed);
    EXPECT_NE(Point(g.frmscopa, middle.x, top + 108 - 1.5f), frameRed);
    EXPECT_NE(Point(g.frmscopa, middle.x, middle.y), frameRed) << "the box is not filled";
}

TEST(Cards, TheNumberTellsSuitAndValue) {
    int id = 0;
    for (int suit = 1; suit <= 4; ++suit) {
        for (int value = 1; value <= 10; ++value) {
            ++id;
            EXPECT_EQ(cardValue(id), value) << id;
            EXPECT_EQ(suitIndex(id), suit) << id;
            EXPECT_EQ(isAce(id), value == 1) << id;
            EXPECT_EQ(equalValue(id, 10), value == 10) << id;
        }
    }
    EXPECT_TRUE(equalValue(card("3c"), card("3b")));
    EXPECT_EQ(settebello, card("7d"));
}

TEST(Masks, NameThePositionsOfTheirBits) {
    Desk desk;
    const auto& maschere = desk.g.maschere;
    EXPECT_EQ(maschere(1), "10000000");
    EXPECT_EQ(maschere(2), "02000000");
    EXPECT_EQ(maschere(3), "12000000");
    EXPECT_EQ(maschere(5), "10300000");
    EXPECT_EQ(maschere(6), "02300000");
    EXPECT_EQ(maschere(128), "00000008");
    EXPECT_EQ(maschere(255), "12345678");
    for (int k = 1; k <= 255; ++k) {
        int bits = 0;
        ASSERT_EQ(maschere(k).size(), 8u) << k;
        for (int p = 1; p <= 8; ++p) {
            const char c = maschere(k)[static_cast<std::size_t>(p - 1)];
            ASSERT_TRUE(c == '0' || c == '0' + p) << k;
            if (c != '0') bits += static_cast<int>(std::pow(2, p - 1));
        }
        EXPECT_EQ(bits, k);
    }
}

}  // namespace
}  // namespace test
