// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// From hand to hand and from match to match, by clicks on the score sheet.

#include "tests/script.h"

namespace {

using script::Play;

/// Two hands of a match by their points, and what the left button offers after each.
struct MatchCase {
    int type, human1, computer1, human2, computer2;
    const char *after1, *after2;
};
const char *const onward = "CONTINUE", *const over = "NEW GAME";

TEST(Match, EndsByItsKind) {
    const MatchCase cases[] = {
        {0, 5, 5, 4, 3, onward, over},     {0, 4, 4, 5, 5, onward, onward},
        {1, 6, 6, 4, 4, onward, onward},   {1, 6, 5, 4, 4, onward, onward},
        {1, 7, 6, 4, 4, onward, over},     {1, 7, 7, 4, 4, onward, onward},
        {1, 10, 10, 4, 4, onward, onward}, {1, 8, 7, 4, 4, onward, over},
        {1, 5, 10, 1, 4, onward, over},    {1, 10, 1, 0, 9, onward, onward},
        {2, 16, 16, 4, 4, onward, onward}, {2, 17, 16, 4, 4, onward, over},
        {2, 17, 17, 4, 4, onward, onward}, {2, 19, 19, 4, 4, onward, onward},
        {2, 20, 19, 4, 4, onward, over},   {2, 12, 5, 4, 6, onward, onward},
    };
    for (const MatchCase& m : cases) {
        Play p;
        p.robot.tipoPartita = m.type;
        p.watch = [&](Moment moment) {
            if (moment != Moment::leftovers) return;
            const bool first = p.seen(moment) == 1;
            script::forceHand(p.g, first ? m.human1 : m.human2, first ? m.computer1 : m.computer2);
        };
        std::string after1;
        p.then([&] { return p.scoreShown(); }, [&] { after1 = p.g.Command1.Caption; });
        p.then([&] { return p.scoreShown() && p.seen(Moment::scored) == 2; });
        p.run();
        SCOPED_TRACE(testing::Message() << m.type << ": " << m.human1 << ' ' << m.computer1 << ", "
                                        << m.human2 << ' ' << m.computer2);
        EXPECT_EQ(after1, m.after1);
        EXPECT_EQ(p.g.Command1.Caption, m.after2);
        const bool addsUp = m.type != 0;
        EXPECT_EQ(p.g.totaleUmano, m.human2 + (addsUp ? m.human1 : 0));
        EXPECT_EQ(p.g.totaleComputer, m.computer2 + (addsUp ? m.computer1 : 0));
        EXPECT_EQ(p.g.progressoPartita, addsUp ? 20 : 0);
    }
}

TEST(Match, NewGameStartsAfreshAndKeepsTheKind) {
    Play p;
    p.watch = [&](Moment moment) {
        if (moment == Moment::leftovers) script::forceHand(p.g, 12, 4);
    };
    p.then([&] { return p.choosing(); },
           [&] {
               p.option(1);
               p.go();
           });
    p.then([&] { return p.scoreShown(); }, [&] { p.button(p.g.Command1); });
    double clicked = -1, chosen = -1;
    p.then([&] { return p.titleShows(); },
           [&] {
               clicked = p.now();
               EXPECT_EQ(p.g.totaleUmano + p.g.totaleComputer, 0);
           });
    p.then([&] { return p.choosing(); },
           [&] {
               chosen = p.now();
               EXPECT_EQ(p.g.totaleUmano + p.g.totaleComputer + p.g.progressoPartita, 0);
               EXPECT_EQ(p.g.Command1.Caption, "NEW GAME");
               EXPECT_FALSE(p.g.LBLdat.loaded(13));
               EXPECT_TRUE(p.g.Option1(1).Value);
               p.go();
           });
    p.then([&] { return p.scoreShown() && p.seen(Moment::scored) == 2; });
    p.run();
    EXPECT_NEAR(chosen - clicked, 5, 1e-6) << "the title comes again";
    EXPECT_EQ(p.g.tipoPartita, 1);
    EXPECT_EQ(p.g.totaleUmano, 12);
    EXPECT_EQ(p.g.progressoPartita, 10);
}

TEST(Match, TheDealChangesSidesForEver) {
    for (const int first : {human, computer}) {
        Play p;
        script::chooseDealer(p.g, first);
        std::vector<int> dealers;
        p.watch = [&](Moment moment) {
            if (moment == Moment::dealt) dealers.push_back(p.g.mazziere);
            // A draw now and then: single games of one, two and three hands.
            const bool drawn = dealers.size() % 3 == 1;
            if (moment == Moment::leftovers) script::forceHand(p.g, drawn ? 4 : 5, 4);
        };
        p.runHands(7);
        for (std::size_t i = 0; i < dealers.size(); ++i)
            EXPECT_EQ(dealers[i], i % 2 == 0 ? first : 3 - first) << "hand " << i + 1;
    }
}

TEST(Match, ContinueDealsAtOnceAndKeepsTheSheet) {
    Play p;
    p.robot.tipoPartita = 2;
    double clicked = -1;
    int progress = -1;
    p.then([&] { return p.scoreShown(); }, [&] { clicked = p.now(); });
    p.watch = [&](Moment moment) {
        if (moment != Moment::dealt || p.seen(moment) != 2) return;
        EXPECT_EQ(p.now(), clicked);
        progress = p.g.progressoPartita;
    };
    p.then([&] { return p.seen(Moment::dealt) == 2; });
    p.run();
    EXPECT_EQ(progress, 10);
    EXPECT_TRUE(p.g.LBLdat.loaded(22));
}

TEST(DoublePress, StartsOneHand) {
    for (const bool matchOver : {false, true}) {
        Play p;
        p.watch = [&](Moment moment) {
            if (moment == Moment::leftovers) script::forceHand(p.g, matchOver ? 5 : 4, 4);
        };
        const auto twice = [&p](Control& control, Form& form) {
            clickOn(p.g, form, control);
            clickOn(p.g, form, control);
        };
        p.then([&] { return p.choosing(); }, [&] { twice(p.g.GO, p.g.frmscopa); });
        p.then([&] { return p.picking(); }, [&] { clickOn(p.g, p.g.frmscopa, p.g.GO); });
        p.then([&] { return p.scoreShown(); }, [&] { twice(p.g.Command1, p.g.frmscore); });
        if (matchOver) p.then([&] { return p.choosing(); }, [&] { twice(p.g.GO, p.g.frmscopa); });
        p.then([&] { return p.picking(); }, [&] { p.button(p.g.Command1); });
        p.then([&] { return p.scoreShown() && p.seen(Moment::scored) >= 2; });
        p.run();
        EXPECT_EQ(p.seen(Moment::dealt), 2);
        EXPECT_EQ(p.seen(Moment::turn), 72);
        EXPECT_EQ(p.seen(Moment::scored), 2);
    }
}

}  // namespace
