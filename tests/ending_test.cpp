// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The program can be left from wherever it waits, and leaves its devices closed.

#include "tests/script.h"

namespace {

using script::Play;

constexpr double aStep = 1 / 60.0;  ///< of a slide

bool sweep(const Play& p, bool visible) {
    return visible && !p.choosing() && p.started;
}

struct Wait {
    const char* name;
    bool (*in)(const Play&);
    bool onSheet = false;
};

const Wait waits[] = {
    {"title", [](const Play& p) { return p.titleShows(); }},
    {"opening screen", [](const Play& p) { return p.choosing(); }},
    {"choice of a card", [](const Play& p) { return p.picking(); }},
    {"choice of what it takes", [](const Play& p) { return p.selecting(); }},
    {"after the human's choice",
     [](const Play& p) {
         return p.moment == Moment::turn && p.g.giocatore == human && p.g.fase.empty() &&
                p.g.cartaGiocata != 0;
     }},
    {"before the computer's choice",
     [](const Play& p) {
         return p.moment == Moment::turn && p.g.giocatore == computer && p.g.cartaGiocata == 0;
     }},
    {"after the computer's choice",
     [](const Play& p) {
         return p.moment == Moment::turn && p.g.giocatore == computer && p.g.cartaGiocata != 0;
     }},
    {"human's sweep", [](const Play& p) { return sweep(p, p.g.Timer2.enabled); }},
    {"last frame of the human's sweep",
     [](const Play& p) { return sweep(p, p.g.Mask2(5).Visible && !p.g.Timer2.enabled); }},
    {"computer's sweep", [](const Play& p) { return sweep(p, p.g.Timer1.enabled); }},
    {"fan",
     [](const Play& p) {
         return p.moment == Moment::decided && p.g.numeroPresa > 1 && p.left() > 2 * aStep;
     }},
    {"slide", [](const Play& p) { return p.moment == Moment::decided && p.left() < 1.1 * aStep; }},
    {"banner", [](const Play& p) { return p.g.Picture2.Visible; }},
    {"end of a round",
     [](const Play& p) { return p.moment == Moment::carriedOut && p.g.mosseGiocate == 6; }},
    {"before the sheet",
     [](const Play& p) {
         return p.moment == Moment::leftovers && !p.g.raccoltaFinale && p.g.presa(1) == 0;
     }},
    {"sheet, match open",
     [](const Play& p) { return p.scoreShown() && p.g.Command1.Caption == "CONTINUE"; }, true},
    {"sheet, match over",
     [](const Play& p) { return p.scoreShown() && p.g.Command1.Caption == "NEW GAME"; }, true},
};

struct Way {
    const char* name;
    void (*leave)(Play&);
    bool onSheet = false;
};

const Way ways[] = {
    {"close command", [](Play& p) { p.close(p.g.frmscopa); }},
    {"menu", [](Play& p) { p.menu(p.g.esci); }},
    {"close command of the sheet", [](Play& p) { p.close(p.g.frmscore); }, true},
    {"QUIT", [](Play& p) { p.button(p.g.Command2); }, true},
};

void leave(const Wait& from, const Way& way) {
    SCOPED_TRACE(testing::Message() << way.name << " in the wait: " << from.name);
    Play p;
    p.backend.frameSeconds = aStep;
    int moments = 0, later = 0;
    double left = -1;
    bool ended = false;
    p.watch = [&](Moment) { ended ? ++later : ++moments; };
    p.then([&] { return from.in(p); },
           [&] {
               way.leave(p);
               ended = true;
               left = p.now();
           });
    p.then([] { return true; }, [] { ADD_FAILURE() << "the program goes on"; });
    try {
        runProgram(p.g);
    } catch (const ScriptRanOut& stuck) {
        ADD_FAILURE() << stuck.what();
    }
    EXPECT_TRUE(ended) << "the wait never came";
    EXPECT_EQ(later, 0) << "the move under way is not finished";
    EXPECT_EQ(p.now(), left) << "it ends at once";
    EXPECT_EQ(p.g.MMC1.state, MMControl::State::closed);
    EXPECT_EQ(p.g.MMCw.state, MMControl::State::closed);
    EXPECT_EQ(p.backend.melody, "");
    EXPECT_EQ(p.backend.settingsWritten, 0) << "nothing is saved";
}

TEST(Ending, WorksInEveryWait) {
    for (const Wait& wait : waits)
        for (const Way& way : ways)
            if (!way.onSheet || wait.onSheet) leave(wait, way);
}

TEST(Ending, OtherCausesOfUnloadPass) {
    Play p;
    Load(p.g, p.g.frmscore);
    Load(p.g, p.g.frmscopa);
    EXPECT_NO_THROW(Unload(p.g, p.g.frmscore));
    EXPECT_EQ(p.g.MMC1.state, MMControl::State::open);
    EXPECT_NO_THROW(Unload(p.g, p.g.frmscopa));
    EXPECT_EQ(p.g.MMC1.state, MMControl::State::closed);
    EXPECT_EQ(p.g.MMCw.state, MMControl::State::closed);
}

TEST(Ending, ALaterEventOfTheSameRoundIsNotDelivered) {
    Play p;
    p.then([&] { return p.picking(); },
           [&] {
               p.close(p.g.frmscopa);
               p.menu(p.g.velocità_gioco(3));
           });
    p.run();
    EXPECT_EQ(p.backend.settingsWritten, 0);
}

}  // namespace
