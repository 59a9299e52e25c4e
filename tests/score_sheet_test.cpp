// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What stands on the score sheet after each hand, and where.

#include "tests/script.h"

namespace {

using script::Play;

constexpr Colour darkRedText = 0x000080, redText = 0x0000FF;
constexpr float blockLeft[] = {20, 432};

using Row = std::vector<std::string>;

std::string number(int n) {
    return " " + std::to_string(n);
}

/// The ten figures of the hand that has just been counted.
Row figures(const Game& g) {
    const char* const yesNo[] = {"NO", "YES"};
    return {number(g.presiUmano),       number(g.denariUmano),       yesNo[g.primieraVinta == 1],
            yesNo[g.settebelloUmano],   number(g.scope(1)),          number(40 - g.presiUmano),
            number(10 - g.denariUmano), yesNo[g.primieraVinta == 2], yesNo[!g.settebelloUmano],
            number(g.scope(2))};
}

/// The captions of ten labels.
Row captions(const Game& g, int first) {
    Row row;
    for (int i = first; i < first + 10; ++i)
        row.push_back(g.LBLdat.loaded(i) ? g.LBLdat(i).Caption : "(none)");
    return row;
}

void expectAt(const Control& control, float left, float top, float width, float height) {
    EXPECT_NEAR(control.Left, left, 0.01);
    EXPECT_NEAR(control.Top, top, 0.01);
    EXPECT_NEAR(control.Width, width, 0.01);
    EXPECT_NEAR(control.Height, height, 0.01);
    EXPECT_TRUE(control.Visible);
}

/// Ten labels from `first` on, in two blocks of five.
void expectSmallLabels(const Game& g, int first, float top) {
    for (int k = 0; k < 10; ++k) {
        SCOPED_TRACE(first + k);
        ASSERT_TRUE(g.LBLdat.loaded(first + k));
        const Label& label = g.LBLdat(first + k);
        expectAt(label, blockLeft[k / 5] + 70 * static_cast<float>(k % 5), top, 67.8f, 15);
        EXPECT_EQ(label.ForeColor, darkRedText);
        EXPECT_EQ(label.BackColor, 0xC0FFC0);
        EXPECT_EQ(label.FontSize, 8);
        EXPECT_FALSE(label.bold);
        EXPECT_EQ(label.index, first + k);
    }
}

void expectTotals(const Game& g, float top) {
    for (int i = 0; i <= 1; ++i) {
        expectAt(g.lblTot(i), blockLeft[i], top, 348, g.lblTot(i).Height);
        EXPECT_EQ(g.lblTot(i).fixedHeight, 31);
        EXPECT_EQ(g.lblTot(i).FontSize, 12);
        EXPECT_TRUE(g.lblTot(i).bold);
        EXPECT_EQ(g.lblTot(i).BackColor, 0x80C0FF);
    }
    EXPECT_EQ(g.lblTot(0).Caption, number(g.totaleUmano));
    EXPECT_EQ(g.lblTot(1).Caption, number(g.totaleComputer));
}

void expectHeadings(const Game& g) {
    expectAt(g.LBLtit, 20, 5, 760, 40);
    EXPECT_EQ(g.LBLtit.Caption, "SCORE");
    EXPECT_FLOAT_EQ(g.LBLtit.FontSize, 19.2f);
    EXPECT_TRUE(g.LBLtit.bold);
    EXPECT_EQ(g.LBLtit.BackColor, 0xC0FFFF);
    EXPECT_EQ(g.LBLtit.ForeColor, darkRedText);
    for (int i = 1; i <= 2; ++i) {
        expectAt(g.LBLdat(i), blockLeft[i - 1], 45, 348, 30);
        EXPECT_EQ(g.LBLdat(i).ForeColor, darkRedText);
        EXPECT_EQ(g.LBLdat(i).BackColor, 0xFFFF80);
        EXPECT_EQ(g.LBLdat(i).FontSize, 12);
    }
    EXPECT_EQ(g.LBLdat(1).Caption, "Player");
    EXPECT_EQ(g.LBLdat(2).Caption, "Computer");
    expectSmallLabels(g, 3, 75);
    EXPECT_EQ(captions(g, 3), (Row{"Carte", "Denari", "Primiera", "Settebello", "Scope", "Carte",
                                   "Denari", "Primiera", "Settebello", "Scope"}));
    EXPECT_FALSE(g.LBLdat(0).Visible) << "the template stays hidden";
    EXPECT_EQ(g.LBLdat(0).Caption, "");
}

TEST(ScoreSheet, FirstHand) {
    Play p;
    p.then([&] { return p.scoreShown(); });
    p.run();
    const Game& g = p.g;
    expectHeadings(g);
    expectSmallLabels(g, 13, 91);
    EXPECT_EQ(captions(g, 13), figures(g));
    expectTotals(g, 107);
    expectAt(g.Command1, 125, 520, 150, 30);
    expectAt(g.Command2, 525, 520, 150, 30);
    EXPECT_EQ(g.Command2.Caption, "QUIT");
    EXPECT_EQ(g.frmscore.Caption, "Corvalia - Scopa");
    EXPECT_EQ(g.frmscore.surface.backColor, 0x0080FF);
    EXPECT_EQ(g.frmscore.WindowState, 2);
    const auto order = [&](const Control* one) {
        return std::find(g.frmscore.controls.begin(), g.frmscore.controls.end(), one);
    };
    EXPECT_LT(order(&g.Command1), order(&g.Command2)) << "the one that goes on has the focus";
}

TEST(ScoreSheet, GetsARowForEachHandOfAPointsMatch) {
    Play p;
    p.robot.tipoPartita = 2;
    std::vector<Row> rows;
    p.watch = [&](Moment moment) {
        if (moment != Moment::scored) return;
        rows.push_back(figures(p.g));
        const auto hands = static_cast<int>(rows.size());
        SCOPED_TRACE(hands);
        expectHeadings(p.g);
        for (int hand = 1; hand <= hands; ++hand) {
            expectSmallLabels(p.g, 3 + 10 * hand, 71 + 20 * static_cast<float>(hand));
            EXPECT_EQ(captions(p.g, 3 + 10 * hand), rows[static_cast<std::size_t>(hand - 1)]);
        }
        EXPECT_FALSE(p.g.LBLdat.loaded(13 + 10 * hands));
        expectTotals(p.g, 87 + 20 * static_cast<float>(hands));
    };
    p.then([&] { return p.scoreShown() && p.seen(Moment::scored) == 3; });
    p.run();
    EXPECT_EQ(rows.size(), 3u);
}

TEST(ScoreSheet, ASingleGameAfterADrawWritesOverItsRow) {
    Play p;
    p.watch = [&](Moment moment) {
        if (moment == Moment::leftovers)
            script::forceHand(p.g, 4, p.seen(Moment::leftovers) == 1 ? 4 : 0);
    };
    Row first;
    p.then([&] { return p.scoreShown(); }, [&] { first = captions(p.g, 13); });
    p.then([&] { return p.scoreShown() && p.seen(Moment::scored) == 2; });
    p.run();
    EXPECT_EQ(first, (Row{" 0", " 0", "NO", "NO", " 4", " 40", " 10", "YES", "YES", " 0"}));
    EXPECT_EQ(captions(p.g, 13),
              (Row{" 40", " 10", "YES", "YES", " 0", " 0", " 0", "NO", "NO", " 0"}));
    EXPECT_FALSE(p.g.LBLdat.loaded(23));
    expectSmallLabels(p.g, 13, 91);
    expectTotals(p.g, 107);
    EXPECT_EQ(p.g.lblTot(1).Caption, " 0");
}

TEST(ScoreSheet, TheLeadersTotalIsRed) {
    struct {
        int humans, computers;
        Colour human, computer;
    } const cases[] = {{5, 4, redText, darkRedText},
                       {4, 5, darkRedText, redText},
                       {4, 4, darkRedText, darkRedText},
                       {9, 3, redText, darkRedText}};
    Play p;
    int hand = 0;
    p.robot.tipoPartita = 2;
    p.watch = [&](Moment moment) {
        const auto& c = cases[hand];
        if (moment == Moment::leftovers) {
            p.g.totaleUmano = p.g.totaleComputer = 0;
            script::forceHand(p.g, c.humans, c.computers);
        }
        if (moment != Moment::scored) return;
        EXPECT_EQ(p.g.lblTot(0).ForeColor, c.human) << hand;
        EXPECT_EQ(p.g.lblTot(1).ForeColor, c.computer) << hand;
        ++hand;
    };
    p.runHands(4);
}

/// Gives the human just these cards at the end of a hand.
void forcePile(Game& g, const std::vector<int>& ids) {
    g.giocatore = computer;
    g.presiUmano = 0;
    for (const int id : ids) g.pilaPrese(++g.presiUmano) = id;
}

TEST(ScoreSheet, ShowsTheCardsOfThePrimiera) {
    struct {
        std::vector<int> pile;
        int shown[8];  // 0: nothing
    } const cases[] = {
        {{6, 20, 15, 19}, {6, 15, 0, 0, 7, 17, 27, 37}},
        {{10, 9, 8, 38, 40, 12, 30}, {8, 12, 30, 38, 7, 17, 27, 37}},
        {{}, {0, 0, 0, 0, 7, 17, 27, 37}},
        {{7, 17, 27, 37, 1, 2, 3, 4, 5, 6, 8, 9, 10}, {7, 17, 27, 37, 0, 16, 26, 36}},
        {{7, 16, 21, 35}, {7, 16, 21, 35, 6, 17, 27, 37}},
        {{9, 10, 13, 12}, {9, 13, 0, 0, 7, 17, 27, 37}},
    };
    Play p;
    p.robot.tipoPartita = 2;
    std::size_t hand = 0;
    p.watch = [&](Moment moment) {
        if (moment == Moment::leftovers) {
            p.g.totaleUmano = p.g.totaleComputer = 0;  // so that the sheet stays the same
            forcePile(p.g, cases[hand].pile);
        }
        if (moment != Moment::scored) return;
        for (int i = 1; i <= 8; ++i) {
            const Image& image = p.g.imgset(i);
            const int id = cases[hand].shown[i - 1];
            EXPECT_EQ(image.Visible, id != 0) << hand << ' ' << i;
            EXPECT_TRUE(id == 0 || image.picture == picture::face(id)) << hand << ' ' << i;
            const int left = i <= 4 ? 50 * i : 500 + 50 * (i - 4);
            EXPECT_EQ(image.Left, static_cast<float>(left));
            EXPECT_EQ(image.Top, 5);
            EXPECT_EQ(image.fixedWidth, 31);
            EXPECT_EQ(image.fixedHeight, 50);
        }
        ++hand;
    };
    p.runHands(6);
}

TEST(ScoreSheet, HasRoomForEveryMatch) {
    Play p;
    p.robot.tipoPartita = 1;
    std::vector<Row> rows;
    p.watch = [&](Moment moment) {
        // As many points for both, and another number in each hand.
        if (moment == Moment::leftovers)
            script::forceHand(p.g, 3 + p.seen(moment), 3 + p.seen(moment));
        if (moment != Moment::scored) return;
        ASSERT_EQ(p.g.Command1.Caption, "CONTINUE");
        rows.push_back(figures(p.g));
        for (const Control* control : p.g.frmscore.controls) {
            if (control->kind != Kind::label || !control->Visible) continue;
            EXPECT_LE(pixelsOf(*control, p.g.frmscore.grid).bottom, 520) << rows.size();
        }
        // The last hands stand in their order right above the totals.
        const std::size_t shown = std::min<std::size_t>(rows.size(), 20);
        const float last = p.g.lblTot(0).Top - 16;
        for (std::size_t i = 0; i < shown; ++i) {
            const int label = 13 + 10 * static_cast<int>(shown - 1 - i);
            EXPECT_EQ(captions(p.g, label), rows[rows.size() - 1 - i]) << rows.size() << ' ' << i;
            EXPECT_NEAR(p.g.LBLdat(label).Top, last - 20 * static_cast<float>(i), 0.01);
        }
    };
    p.runHands(27);
    EXPECT_EQ(rows.size(), 27u);
}

TEST(ScoreSheet, ALabelInUseIsNotLoadedAgain) {
    Play p;
    p.then([&] { return p.scoreShown(); });
    p.run();
    const std::size_t controls = p.g.frmscore.controls.size();
    const std::string caption = p.g.LBLdat(13).Caption;
    loadLabel(p.g.frmscore, p.g.LBLdat, 13);
    EXPECT_EQ(p.g.LBLdat(13).Caption, caption);
    EXPECT_TRUE(p.g.LBLdat(13).Visible);
    EXPECT_EQ(p.g.frmscore.controls.size(), controls);
    loadLabel(p.g.frmscore, p.g.LBLdat, 23);
    EXPECT_FALSE(p.g.LBLdat(23).Visible) << "a new one is as hidden as the template";
    EXPECT_EQ(p.g.LBLdat(23).BackColor, 0xC0FFC0);
    EXPECT_EQ(p.g.frmscore.controls.size(), controls + 1);
}

TEST(ScoreSheet, IsFreshAfterNewGame) {
    Play p;
    p.backend.wipeSeconds = 1;
    p.backend.frameSeconds = 1 / 64.0;
    p.watch = [&](Moment moment) {
        if (moment == Moment::leftovers) script::forceHand(p.g, 12, 4);
    };
    int wiped = 0;
    p.look = [&] {
        if (p.seen(Moment::scored) != 1 || Point(p.g.frmscore, 5, 5) != 0xFF0000) return;
        for (const Control* control : p.g.frmscore.controls) EXPECT_FALSE(control->Visible);
        ++wiped;
    };
    p.robot.tipoPartita = 1;
    p.then([&] { return p.scoreShown(); });
    p.then([&] { return p.choosing(); },
           [&] {
               const Game& g = p.g;
               EXPECT_GT(wiped, 30) << "the wipe is to be seen";
               EXPECT_FALSE(g.frmscore.Visible);
               EXPECT_EQ(g.frmscore.surface.backColor, 0x0080FF);
               EXPECT_EQ(Point(g.frmscore, 5, 5), 0x0080FF);
               EXPECT_FALSE(g.LBLdat.loaded(3));
               for (const Control* control : g.frmscore.controls) EXPECT_FALSE(control->Visible);
               EXPECT_EQ(g.lblTot(0).Caption + g.lblTot(1).Caption, "");
           });
    p.then([&] { return p.scoreShown() && p.seen(Moment::scored) == 2; });
    p.run();
    EXPECT_EQ(p.backend.ground[&p.g.frmscore], 0x0080FF) << "orange again, not the wipe's blue";
    expectHeadings(p.g);
    expectSmallLabels(p.g, 13, 91);
    EXPECT_FALSE(p.g.LBLdat.loaded(23));
    expectTotals(p.g, 107);
}

}  // namespace
