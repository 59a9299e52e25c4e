// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What a hand begins with and how it is dealt: the shuffle, the wipes, what lies where.

#include "tests/layout.h"

using namespace script;

namespace {

TEST(Shuffle, RefusesJustTheSumForty) {
    struct {
        std::vector<int> first;
        bool stands;
    } const cases[] = {{{2, 3, 4, 31}, false},  {{40, 1, 2, 3}, true},   {{10, 20, 30, 40}, true},
                       {{1, 11, 21, 31}, true}, {{9, 10, 11, 12}, true}, {{1, 2, 3, 34}, false},
                       {{1, 2, 3, 33}, true},   {{7, 8, 12, 13}, false}};
    for (const auto& [first, stands] : cases) {
        Play p;
        stackPacks(p.g, {first, {5, 6, 7, 8}});
        chooseDealer(p.g, human);
        p.then([&] { return p.started; });
        p.run();
        const auto expected = wholePack(stands ? first : std::vector{5, 6, 7, 8});
        for (int i = 1; i <= 40; ++i)
            EXPECT_EQ(p.g.mazzo(i), expected[static_cast<std::size_t>(i - 1)]) << i;
    }
}

TEST(Shuffle, DrawsAgainForUsedCardsAndForNone) {
    Play p;
    stackPacks(p.g, {{40, 9, 27}});
    // After the first card come the empty place 0 and the first card once more.
    p.g.chance.prepared.insert(p.g.chance.prepared.end() - 1, {40.5f / 41, 0.0f});
    chooseDealer(p.g, computer);
    p.then([&] { return p.started; });
    p.run();
    const auto expected = wholePack({40, 9, 27});
    for (int i = 1; i <= 40; ++i)
        EXPECT_EQ(p.g.mazzo(i), expected[static_cast<std::size_t>(i - 1)]) << i;
}

/// When each of six points took a colour.
class Front {
public:
    explicit Front(Colour colour) : colour_(colour) {}
    void look(const Game& g, double now) {
        for (auto& [x, y, since] : points_)
            if (since < 0 && Point(g.frmscopa, x, y) == colour_) since = now;
    }
    void expectFrom(double start) const {
        for (const auto& [x, y, since] : points_)
            EXPECT_NEAR(since - start, (y < 300 ? x : 800 - x) / 800, 0.03) << x << ' ' << y;
    }

private:
    struct At {
        float x, y;
        double since = -1;
    };
    Colour colour_;
    At points_[6] = {{100, 20}, {400, 280}, {780, 20}, {100, 580}, {400, 320}, {780, 580}};
};

TEST(Wipe, FillsTheHalvesFromBothSides) {
    Play p;
    p.backend.wipeSeconds = 1;
    p.backend.frameSeconds = 1 / 64.0;
    Front opening(0xFF5000), hand(green);
    double chosen = 0;
    p.look = [&] {
        opening.look(p.g, p.now());
        hand.look(p.g, p.now());
    };
    p.then([&] { return p.choosing(); }, [&] { chosen = p.now(); });
    p.then([&] { return p.picking(); });
    p.run();
    opening.expectFrom(5);
    hand.expectFrom(chosen);
    EXPECT_EQ(p.g.frmscopa.surface.backColor, green);
}

/// What a deal has laid out, whoever deals.
void expectDealt(const Game& g, int deal) {
    SCOPED_TRACE(testing::Message() << "deal " << deal << ", dealer " << g.mazziere);
    const int top = 4 + 3 * deal;
    EXPECT_EQ(g.cimaMazzo, top);
    for (int s = 0; s <= 2; ++s) {
        const int humans = g.mazzo(top - 2 + s), computers = g.mazzo(top + 16 + s);
        EXPECT_TRUE(showsCard(g, picture::face(humans), slotLeft(s), humanTop));
        EXPECT_TRUE(showsCard(g, picture::back, slotLeft(s), 5));
        expectPlace(g.carta(humans), slotLeft(s), humanTop);
        expectPlace(g.dorso(s), slotLeft(s), 5);
        EXPECT_EQ(g.dorso(s).Tag, std::to_string(computers));
    }
    const float deckTop = pileTop[g.mazziere];
    EXPECT_EQ(showsCard(g, picture::back, 680, deckTop), deal < 6);
    EXPECT_EQ(bare(g, 680, deckTop), deal == 6);
    EXPECT_TRUE(bare(g, 680, pileTop[3 - g.mazziere]));
}

TEST(Deal, LaysTheTable) {
    Play p;
    p.then([&] { return p.started; });
    p.run();
    const Game& g = p.g;
    for (int row = 1; row <= 3; ++row)
        for (int column = 1; column <= 4; ++column) {
            const int id = g.tavolo(row, column);
            EXPECT_EQ(id, row == 2 ? g.mazzo(column) : 0);
            if (id == 0) {
                EXPECT_TRUE(bare(g, tableLeft(column), tableTop(row)));
                continue;
            }
            EXPECT_TRUE(showsCard(g, picture::face(id), tableLeft(column), tableTop(row)));
            expectPlace(g.carta(id), tableLeft(column), tableTop(row));
        }
    EXPECT_EQ(g.pilaY(human), 487);
    EXPECT_EQ(g.pilaY(computer), 5);
    for (int i = 0; i <= 40; ++i) EXPECT_EQ(g.pilaPrese(i), 0);
    for (int i = 0; i <= 1; ++i) EXPECT_TRUE(g.Verde(i).Visible && g.Rosso(i).Visible);
    // Four on the table, three in each hand and the deck: nothing of what was there before.
    EXPECT_EQ(std::count_if(g.frmscopa.surface.list.begin(), g.frmscopa.surface.list.end(),
                            [](const Painted& one) { return one.picture != picture::none; }),
              11);
    EXPECT_TRUE(bare(g, 0, 0) && bare(g, 738, 490) && bare(g, 100, 300));
}

TEST(Deal, ComesSixTimes) {
    for (const int dealer : {human, computer}) {
        Play p;
        chooseDealer(p.g, dealer);
        int deals = 0;
        p.watch = [&](Moment moment) {
            if (moment == Moment::turn && p.g.mosseGiocate == 0) expectDealt(p.g, ++deals);
        };
        p.runHands(1);
        EXPECT_EQ(deals, 6);
        EXPECT_EQ(p.g.cimaMazzo, 22);
    }
}

TEST(Deal, TheDealerAnswersAndTheLampsSayWhoseTurn) {
    for (const int dealer : {human, computer}) {
        Play p;
        chooseDealer(p.g, dealer);
        int turns = 0;
        const auto lampAt = [&](float top) {
            const Control* lamp = controlAt(p.g.frmscopa, 636, top + 16);
            return lamp ? lamp->source : Source::frmscopa;
        };
        p.watch = [&](Moment moment) {
            if (moment != Moment::turn) return;
            EXPECT_EQ(p.g.giocatore, turns++ % 2 == 0 ? 3 - dealer : dealer);
            const bool humans = p.g.giocatore == human;
            EXPECT_EQ(lampAt(568 - cardHeight / 2), humans ? Source::Verde : Source::Rosso);
            EXPECT_EQ(lampAt(cardHeight / 2), humans ? Source::Rosso : Source::Verde);
        };
        p.runHands(1);
        EXPECT_EQ(turns, 36);
        for (Image* lamp : {&p.g.Verde(0), &p.g.Rosso(0)})
            expectPlace(*lamp, 620, 568 - cardHeight / 2);
        for (Image* lamp : {&p.g.Verde(1), &p.g.Rosso(1)}) expectPlace(*lamp, 620, cardHeight / 2);
    }
}

}  // namespace
