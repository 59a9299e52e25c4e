// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tests/support.h"

namespace test {

bool framed(const Game& g, int id) {
    const float left = g.carta(id).Left, top = g.carta(id).Top;
    const float right = left + g.larghezzaCarta, bottom = top + g.altezzaCarta;
    const float middleX = (left + right) / 2, middleY = (top + bottom) / 2;
    const auto red = [&g](float x, float y) { return Point(g.frmscopa, x, y) == frameRed; };
    return red(left + 3.5f, middleY) && red(right - 2.5f, middleY) && red(middleX, top + 3.5f) &&
           red(middleX, bottom - 2.5f);
}

namespace {

bool covered(const Game& g, float left, float top) {
    return Point(g.frmscopa, left + g.larghezzaCarta / 2, top + g.altezzaCarta / 2) != tableColour;
}

/// How far a place lies from the first of its row, or down from the first row.
float steps(int count, float cardSize) {
    return static_cast<float>(count) * (cardSize + 6);
}

float slotLeft(const Game& g, int slot) {
    return 400 - 1.5f * g.larghezzaCarta - 6 + steps(slot, g.larghezzaCarta);
}

/// Counts in how many places each card is.
class Census {
public:
    void add(int id, const std::string& where) {
        if (id < 1 || id > 40) {
            fault(where + " holds no card but " + std::to_string(id));
        } else if (!places_(id).empty()) {
            fault(name(id) + " is in " + where + " and in " + places_(id));
        } else {
            places_(id) = where;
        }
    }
    void fault(const std::string& text) { faults_ += text + "; "; }
    const std::string& faults() const { return faults_; }

private:
    Array<std::string, 40> places_;
    std::string faults_;
};

void countHands(const Game& g, Census& census) {
    for (int p = g.cimaMazzo + 1; p <= 22; ++p) {
        census.add(g.mazzo(p), "the deck");
        census.add(g.mazzo(p + 18), "the deck");
    }
    for (int s = 0; s <= 2; ++s) {
        const int held = std::stoi(g.dorso(s).Tag);
        if (held != 0) census.add(held, "the computer's hand");
        if ((held != 0) != computerShows(g, s)) census.fault("computer's slot looks wrong");
        if (humanShows(g, s + 1)) census.add(g.mazzo(g.cimaMazzo + s - 2), "the human's hand");
    }
}

void countTable(const Game& g, Census& census) {
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 4; ++column) {
            const int id = g.tavolo(row, column);
            const float left = g.tavoloX + steps(column - 1, g.larghezzaCarta);
            const float top = g.tavoloY + steps(row - 1, g.altezzaCarta);
            if (id != 0) census.add(id, "the table");
            if ((id != 0) != covered(g, left, top)) census.fault("table place looks wrong");
        }
    }
}

void checkMarks(const Game& g, Census& census) {
    const std::vector<int> table = tableOf(g);
    for (int id = 0; id <= 40; ++id) {
        const std::string& tag = g.carta(id).Tag;
        if (tag.empty()) continue;
        if (tag != "SEL" || id == 0 || !contains(table, id)) census.fault("mark on " + name(id));
    }
}

}  // namespace

bool humanShows(const Game& g, int slot) {
    return covered(g, slotLeft(g, slot - 1), 595 - g.altezzaCarta);
}

bool computerShows(const Game& g, int slot) {
    return covered(g, slotLeft(g, slot), 5);
}

std::string brokenInvariant(const Game& g) {
    Census census;
    // With the pile completed the hand is over, and the table's places are working space.
    const bool handOver = g.pilaPrese(40) != 0;
    for (int p = 1; p <= (handOver ? 40 : g.presiUmano); ++p)
        census.add(g.pilaPrese(p), "the pile");
    for (int p = g.presiUmano + 1; p <= 40 && !handOver; ++p)
        if (g.pilaPrese(p) != 0) census.fault("a card above the pile");
    if (!handOver) {
        countHands(g, census);
        countTable(g, census);
    }
    checkMarks(g, census);
    return census.faults();
}

void checkInvariants(const Game& g) {
    EXPECT_EQ(brokenInvariant(g), "");
}

}  // namespace test
