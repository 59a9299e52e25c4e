// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What stands on the score sheet after each hand, and where.

#include "script.h"

using namespace script;

namespace {

using Row = std::vector<std::string>;

std::string number(int n) {
    return ' ' + std::to_string(n);
}

/// The ten figures of the hand that has just been counted.
Row figures(const Game& g) {
    const char* const yesNo[] = {"NO", "YES"};
    return {number(g.presiUmano),       number(g.denariUmano),       yesNo[g.primieraVinta == 1],
            yesNo[g.settebelloUmano],   number(g.scope(1)),          number(40 - g.presiUmano),
            number(10 - g.denariUmano), yesNo[g.primieraVinta == 2], yesNo[!g.settebelloUmano],
            number(g.scope(2))};
}

/// The whole sheet after a hand, with these rows; twenty have room.
void expectSheet(const Game& g, const std::vector<Row>& rows) {
    constexpr float blockLeft[] = {20, 432};
    EXPECT_EQ(g.LBLdat(3).Caption + g.LBLdat(12).Caption, "CarteScope");
    float top = 91;
    int next = 13;
    for (const Row& row : rows) {
        for (std::size_t k = 0; k < 10; ++k, ++next) {
            ASSERT_TRUE(g.LBLdat.loaded(next));
            const Label& label = g.LBLdat(next);
            EXPECT_EQ(label.Caption, row[k]) << next;
            expectPlace(label, blockLeft[k / 5] + 70 * static_cast<float>(k % 5), top);
            EXPECT_TRUE(label.Visible && label.FontSize == 8);
        }
        top += 20;
    }
    EXPECT_FALSE(g.LBLdat.loaded(next));
    const int totals[] = {g.totaleUmano, g.totaleComputer};
    for (int i = 0; i <= 1; ++i) {
        const Label& total = g.lblTot(i);
        EXPECT_EQ(total.Caption, number(totals[i]));
        EXPECT_EQ(total.ForeColor, totals[i] > totals[1 - i] ? 0x0000FF : 0x000080);
        expectPlace(total, blockLeft[i], top - 4);
        EXPECT_LE(pixelsOf(total, g.frmscore.grid).bottom, g.Command1.Top);
    }
}

TEST(ScoreSheet, GetsARowForEachHandAndHasRoomForAll) {
    Play p;
    p.robot.tipoPartita = 2;
    std::vector<Row> rows;
    p.watch = [&](Moment moment) {
        // One is ahead, then the other; then the match is drawn again and again.
        const int hand = p.seen(Moment::leftovers) - 1;
        if (moment == Moment::leftovers)
            forceHand(p.g, 4 + hand + (hand == 0 || hand == 2), 4 + hand + 2 * (hand == 1));
        if (moment != Moment::scored) return;
        if (rows.size() == 20) rows.erase(rows.begin());
        rows.push_back(figures(p.g));
        expectSheet(p.g, rows);
    };
    p.runHands(27);
}

TEST(ScoreSheet, HasOneRowInSingleGamesAndIsFreshAfterAMatch) {
    Play p;
    p.backend.wipeSeconds = 1;
    p.backend.frameSeconds = 1 / 64.0;
    p.watch = [&](Moment moment) {
        // A drawn hand first, which is played again.
        if (moment == Moment::leftovers && p.seen(moment) < 3)
            forceHand(p.g, 3 + p.seen(moment), 4);
        if (moment == Moment::scored) expectSheet(p.g, {figures(p.g)});
    };
    int wiped = 0;
    p.look = [&] {
        if (Point(p.g.frmscore, 5, 5) != 0xFF0000) return;
        for (const Control* control : p.g.frmscore.controls) EXPECT_FALSE(control->Visible);
        ++wiped;
    };
    p.then(&Play::scoreShownAgain);
    p.then(&Play::choosing, [&] {
        EXPECT_GT(wiped, 30) << "the wipe is to be seen";
        EXPECT_FALSE(p.g.frmscore.Visible || p.g.LBLtit.Visible);
        EXPECT_EQ(Point(p.g.frmscore, 5, 5), 0x0080FF);
    });
    p.runHands(3);
}

}  // namespace
