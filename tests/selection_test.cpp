// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/human.h"
#include "tests/support.h"

namespace test {
namespace {

using Places = std::vector<int>;

/// The first card of the hand is played and the places are pressed one after the other.
struct Selection {
    const char* table;
    const char* card;
    Places presses;
    bool ends;     ///< the move is accepted after the last press
    Places taken;  ///< if it is
};

void check(const Selection& s) {
    SCOPED_TRACE(std::string(s.card) + " on " + s.table + testing::PrintToString(s.presses));
    Desk desk;
    desk.layTable(s.table);
    desk.giveHuman(s.card);
    EXPECT_EQ(desk.humanMayEnd(1, s.presses), s.ends);
    EXPECT_EQ(desk.g.fase, s.ends ? "" : "selezione");
    if (!s.ends) return;
    Places ids;
    for (const int p : s.taken) ids.push_back(desk.at(p));
    EXPECT_EQ(names(desk.presa()), names(ids));
    EXPECT_EQ(desk.markedPlaces(), s.taken);
    for (int i = 1; i <= desk.g.numeroPresa; ++i) {
        EXPECT_EQ(desk.g.presaX(i), static_cast<int>(desk.g.carta(desk.g.presa(i)).Left));
        EXPECT_EQ(desk.g.presaY(i), static_cast<int>(desk.g.carta(desk.g.presa(i)).Top));
        EXPECT_TRUE(framed(desk.g, desk.g.presa(i)));
    }
}

TEST(Selecting, EndsOnEveryLegalSetAndOnNoOther) {
    const Selection cases[] = {
        {"3 4 2 5", "7", {1, 2}, true, {1, 2}},
        {"3 4 2 5", "7", {4, 3}, true, {3, 4}},
        {"3 4 2 5", "7", {1}, false, {}},
        {"3 4 2 5", "7", {1, 3}, false, {}},
        {"3 4 2 5", "7", {3, 1, 2}, false, {}},
        {"3 4 2 5", "7", {3, 1, 2, 3}, true, {1, 2}},
        {"3 4 2 5", "7", {1, 1, 1, 2}, true, {1, 2}},
        {"1 2 4 3", "7", {4, 3}, true, {3, 4}},
        {"5 5", "10", {2, 1}, true, {1, 2}},
        {"8 . 2 . . 10 . 5 5 . . 3", "8", {1}, true, {1}},
        {"1 . 2 . . 10 . 9 5 . . 3", "9", {12, 8}, false, {}},
        {"1 . 2 . . 9 . 10 5 . . 3", "8", {12, 9}, true, {9, 12}},
        {"8 8 8 8 6 6 3 7", "10", {7, 8}, true, {7, 8}},
    };
    for (const Selection& s : cases) check(s);
}

TEST(Selecting, AnEqualCardIsTakenAlone) {
    const Selection cases[] = {
        {"5 2 3", "5", {2, 3}, false, {}},
        {"5 2 3", "5", {1}, true, {1}},
        {"5 2 3", "5", {2, 3, 2, 3, 1}, true, {1}},
        {"5 5", "5", {1}, true, {1}},
        {"5 5", "5", {2}, true, {2}},
        {"7 10 3", "10", {1, 3}, false, {}},
        {"7 10 3", "10", {2}, true, {2}},
        {"7 10 3", "10", {1, 2}, false, {}},
        {"4 6 2 2 2 2 3 3 3 8", "8", {1, 3, 4}, false, {}},
        {"4 6 2 2 2 2 3 3 3 8", "8", {10}, true, {10}},
    };
    for (const Selection& s : cases) check(s);
}

TEST(Selecting, AnAceOnATableWithAnAceTakesAnAce) {
    const Selection cases[] = {
        {"A 5 A", "A", {}, false, {}},
        {"A 5 A", "A", {2}, false, {}},
        {"A 5 A", "A", {3}, true, {3}},
        {"A 5 A", "A", {2, 2, 1}, true, {1}},
    };
    for (const Selection& s : cases) check(s);
}

TEST(Selecting, NothingToTakeLaysTheCard) {
    const Selection cases[] = {
        {"4 5", "7", {}, true, {}},    {"", "7", {}, true, {}},
        {"", "A", {}, true, {}},       {"2 2 1", "7", {}, true, {}},
        {"10 3 4", "9", {}, true, {}}, {"4 6 2 2 2 2 3 3 3", "10", {}, true, {}},
    };
    for (const Selection& s : cases) {
        check(s);
        Desk desk;
        desk.layTable(s.table);
        desk.giveHuman(s.card);
        desk.humanPlays(1);
        EXPECT_FALSE(desk.g.presaOk);
        EXPECT_EQ(desk.g.sommaPresa, 0);
        EXPECT_NEAR(desk.backend.time.now, 1, 1e-9) << "one pause, no sweep";
    }
}

TEST(Selecting, AnAceSweepsAndNeedsNoPress) {
    const Selection cases[] = {
        {"5", "A", {}, true, {1}},
        {"10 . 7 10", "A", {}, true, {1, 3, 4}},
        {"2 3 4 5 6 7 8 9 10 2 3 4", "A", {}, true, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
    };
    for (const Selection& s : cases) check(s);
}

TEST(Selecting, AMarkComesAndGoesWithItsFrame) {
    Desk desk;
    desk.layTable("3 4 2 5");
    desk.giveHuman("7");
    EXPECT_FALSE(desk.humanMayEnd(1, {3}));
    EXPECT_EQ(desk.markedPlaces(), Places{3});
    EXPECT_TRUE(framed(desk.g, desk.at(3)));
    Desk again;
    again.layTable("3 4 2 5");
    again.giveHuman("7");
    EXPECT_FALSE(again.humanMayEnd(1, {3, 3}));
    EXPECT_EQ(again.markedPlaces(), Places{});
    EXPECT_FALSE(framed(again.g, again.at(3)));
}

TEST(Selecting, RefusesPressesOutsideTheGrid) {
    Desk desk;
    desk.layTable("3 4 2 5");
    desk.giveHuman("7 2 3");
    PaintPicture(desk.g.frmscopa, picture::back, 100, 487, 62, 108);
    PaintPicture(desk.g.frmscopa, picture::back, 162, 487, 62, 108);
    PaintPicture(desk.g.frmscopa, picture::back, 680, 246, 62, 108);
    const std::vector<Press> refused{{20, 20},   desk.slot(1), desk.slot(2), {131, 540},
                                     {193, 540}, {711, 300},   {610, 300},   desk.place(7),
                                     {332, 186}, {600, 598}};
    std::vector<Pump> pumps{{desk.slot(1)}};
    for (const Press& press : refused) pumps.push_back({press});
    desk.script(pumps);
    desk.beginMove(human);
    frmscopa::gioco1(desk.g);
    const int played = desk.g.cartaGiocata;
    EXPECT_THROW(frmscopa::verifica(desk.g), ScriptRanOut);
    EXPECT_EQ(desk.g.cartaGiocata, played);
    EXPECT_EQ(desk.markedPlaces(), Places{});
    EXPECT_TRUE(humanShows(desk.g, 2));
    EXPECT_EQ(desk.backend.cardSounds, 1);
}

TEST(Selecting, ThePlaceFollowsFromThePosition) {
    struct Probe {
        float x, y;
        int place;  ///< 0 for none
    };
    const Probe probes[] = {{267, 132, 1}, {334.75f, 245.75f, 1},  {335, 132, 2},
                            {267, 246, 5}, {538.75f, 473.75f, 12}, {539, 400, 0},
                            {400, 474, 0}, {266.75f, 300, 0},      {300, 131.75f, 0},
                            {471, 360, 12}};
    for (const Probe& probe : probes) {
        Desk desk;
        desk.layTable("2 2 2 2 3 3 3 3 4 4 4 4");
        desk.coverSurface();
        desk.beginMove(human);
        desk.g.fase = "selezione";
        frmscopa::Form_MouseDown(desk.g, 1, 0, probe.x, probe.y);
        EXPECT_EQ(desk.markedPlaces(), probe.place ? Places{probe.place} : Places{})
            << probe.x << ' ' << probe.y;
    }
}

/// A legal set is marked, and more is pressed in the very round of events in which it is judged.
struct LatePress {
    Places late;    ///< places pressed in that round
    bool accepted;  ///< without any press more
    Places after;   ///< pressed then
    Places taken;
};

void check(const LatePress& c) {
    SCOPED_TRACE(testing::PrintToString(c.late));
    Desk desk;
    desk.layTable("3 4 2 5 3");
    desk.giveHuman("7");
    desk.beginMove(human);
    bool judged = false;
    std::size_t next = 0, waits = 0;
    desk.script({{desk.slot(1)}, {desk.place(1)}, {desk.place(2)}});
    desk.backend.time.user = [&, before = desk.backend.time.user](double until) {
        if (!judged && until == atOnce && desk.markedPlaces() == Places{1, 2}) {
            judged = true;
            for (const int p : c.late) desk.press(desk.place(p));
            return true;
        }
        if (!judged) return before(until);
        if (until != never || next == c.after.size()) return false;
        ++waits;
        for (int p = 1; p <= 5; ++p) {
            const bool marked = desk.g.carta(desk.at(p)).Tag == "SEL";
            EXPECT_EQ(framed(desk.g, desk.at(p)), marked) << "frames and marks agree, place " << p;
        }
        desk.press(desk.place(c.after[next++]));
        return true;
    };
    frmscopa::gioco1(desk.g);
    frmscopa::verifica(desk.g);
    EXPECT_TRUE(judged);
    EXPECT_EQ(waits == 0, c.accepted);
    EXPECT_EQ(desk.markedPlaces(), c.taken);
    Places ids;
    for (const int p : c.taken) ids.push_back(desk.at(p));
    EXPECT_EQ(names(desk.presa()), names(ids)) << "what is marked is what is taken";
}

TEST(Selecting, APressDuringTheJudgementIsReadAgain) {
    check(LatePress{{3}, false, {3}, {1, 2}});
    check(LatePress{{1}, false, {1}, {1, 2}});
    check(LatePress{{1, 5}, true, {}, {2, 5}});
    check(LatePress{{1, 3}, false, {2, 4}, {3, 4}});
    check(LatePress{{1, 1}, true, {}, {1, 2}});
    check(LatePress{{1, 2, 3, 4}, true, {}, {3, 4}});
}

TEST(Selecting, TheSweepShowsTheMaskInFull) {
    Desk desk;
    // The timer stands at 120 ms at first and is left at 2400 ms by the sweep. Two pauses of 2 and
    // 1 follow the last frame.
    for (const double firstTick : {0.120, 2.400}) {
        desk.clear();
        desk.layTable("5 9");
        desk.giveHuman("A");
        const double start = desk.backend.time.now;
        desk.humanPlays(1);
        EXPECT_NEAR(desk.backend.time.now - start, firstTick + 2.400 + 3 * 0.120 + 3, 1e-6);
        for (int i = 1; i <= 5; ++i) EXPECT_FALSE(desk.g.Mask2(i).Visible);
        EXPECT_FALSE(desk.g.Timer2.enabled);
    }
}

}  // namespace
}  // namespace test
