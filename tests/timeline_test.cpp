// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// A whole hand as it is seen: the shuffle, the wipes, what lies where and how long each stop lasts.

#include <cmath>

#include "tests/script.h"

namespace {

using script::cardHeight;
using script::cardWidth;
using script::Play;
using script::showsCard;

constexpr Colour green = 0x7000;
constexpr float firstPlaceLeft = 400 - 2 * cardWidth - 9;
constexpr float firstPlaceTop = 300 - 1.5f * cardHeight - 6;
constexpr float playedLeft = 578, playedTop = 300 - cardHeight / 2;
constexpr float pileTop[] = {0, 487, 5};  // 600 - 108.35 - 5 is 486.65

float placeLeft(int column) {
    return firstPlaceLeft + static_cast<float>(column - 1) * (cardWidth + 6);
}
float placeTop(int row) {
    return firstPlaceTop + static_cast<float>(row - 1) * (cardHeight + 6);
}
float slotLeft(int slot) {
    return 400 - 1.5f * cardWidth - 6 + static_cast<float>(slot) * (cardWidth + 6);
}
constexpr float humanTop = 595 - cardHeight;

bool bare(const Game& g, float left, float top) {
    return Point(g.frmscopa, left + cardWidth / 2, top + cardHeight / 2) == green;
}

void expectHolder(const Control& holder, float left, float top) {
    EXPECT_NEAR(holder.Left, left, 0.01);
    EXPECT_NEAR(holder.Top, top, 0.01);
}

TEST(Shuffle, RefusesJustTheSumForty) {
    struct {
        std::vector<int> first;
        bool stands;
    } const cases[] = {{{2, 3, 4, 31}, false},  {{40, 0, 0, 0}, true},   {{10, 20, 30, 40}, true},
                       {{1, 11, 21, 31}, true}, {{9, 10, 11, 12}, true}, {{1, 2, 3, 34}, false},
                       {{1, 2, 3, 33}, true},   {{7, 8, 12, 13}, false}};
    for (auto [first, stands] : cases) {
        if (first[1] == 0) first = {40, 1, 2, 3};
        Play p;
        script::stackPacks(p.g, {first, {5, 6, 7, 8}});
        script::chooseDealer(p.g, human);
        p.then([&] { return p.started; });
        p.run();
        const auto expected = script::wholePack(stands ? first : std::vector{5, 6, 7, 8});
        for (int i = 1; i <= 40; ++i)
            EXPECT_EQ(p.g.mazzo(i), expected[static_cast<std::size_t>(i - 1)]) << i;
    }
}

TEST(Shuffle, DrawsAgainForUsedCardsAndForNone) {
    Play p;
    script::stackPacks(p.g, {{40, 9, 27}});
    // After the first card come the empty place 0 and the first card once more.
    p.g.chance.prepared.insert(p.g.chance.prepared.end() - 1, {40.5f / 41, 0.0f});
    script::chooseDealer(p.g, computer);
    p.then([&] { return p.started; });
    p.run();
    const auto expected = script::wholePack({40, 9, 27});
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
        expectHolder(g.carta(humans), slotLeft(s), humanTop);
        expectHolder(g.dorso(s), slotLeft(s), 5);
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
                EXPECT_TRUE(bare(g, placeLeft(column), placeTop(row)));
                continue;
            }
            EXPECT_TRUE(showsCard(g, picture::face(id), placeLeft(column), placeTop(row)));
            expectHolder(g.carta(id), placeLeft(column), placeTop(row));
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
        script::chooseDealer(p.g, dealer);
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
        script::chooseDealer(p.g, dealer);
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
            expectHolder(*lamp, 620, 568 - cardHeight / 2);
        for (Image* lamp : {&p.g.Verde(1), &p.g.Rosso(1)}) expectHolder(*lamp, 620, cardHeight / 2);
    }
}

/// Follows every move of a hand: how long it takes and what it leaves on the surface.
class Eye {
public:
    Eye(Play& p, double rate) : p_(p), g_(p.g), rate_(rate) {
        p.watch = [this](Moment moment) { see(moment); };
        p.look = [this] { look(); };
    }
    int sweeps[3] = {}, captures = 0, laid = 0, scope = 0;

private:
    double pause(double low) const { return low * 10 / rate_; }
    double banner() const { return 1200 / (rate_ * rate_); }

    void look() {
        if (p_.picking()) chosen_ = p_.now();
        if (p_.moment == Moment::decided && p_.left() <= 0) ++slideSteps_;
        if (g_.Timer2.enabled && p_.started && sweepStart_ < 0) {
            sweepStart_ = p_.now();
            firstMask_ = g_.Timer2.interval / 1000.0;
        }
        if (g_.Timer1.enabled && p_.started && sweepStart_ < 0) sweepStart_ = p_.now();
    }

    void see(Moment moment) {
        if (moment == Moment::turn) turn();
        if (moment == Moment::decided) decided();
        if (moment == Moment::carriedOut) carriedOut();
        if (moment == Moment::leftovers) entries_ = g_.numeroPresa;
        last_ = moment == Moment::turn || moment == Moment::decided ? p_.now() : last_;
        if (moment == Moment::carriedOut) end_ = p_.now();
        if (moment != Moment::scored) return;
        EXPECT_NEAR(p_.now() - end_, pause(entries_ == 0 ? 3 : entries_ + 8), 1e-6);
    }

    void turn() {
        const bool later = g_.cimaMazzo > 7 && g_.mosseGiocate == 0;
        if (g_.cimaMazzo > 7) {
            EXPECT_NEAR(p_.now() - end_, later ? pause(1) : 0, 1e-6) << "the end of a round";
        }
        sweepStart_ = -1;
        scopeBefore_[1] = g_.scope(1);
        scopeBefore_[2] = g_.scope(2);
    }

    void decided() {
        const bool humans = g_.giocatore == human;
        double expected = humans ? pause(1) : pause(5);
        if (sweepStart_ >= 0) {
            ++sweeps[g_.giocatore];
            expected += humans ? firstMask_ + 2.4 + 3 * 0.12 + pause(2) : 61 * 0.08;
        }
        EXPECT_NEAR(p_.now() - (humans ? chosen_ : last_), expected, 1e-6) << g_.giocatore;
        EXPECT_TRUE(showsCard(g_, picture::face(g_.cartaGiocata), playedLeft, playedTop));
        const int slot = humans ? g_.postoMano - 1 : g_.postoMano;
        EXPECT_TRUE(bare(g_, slotLeft(slot), humans ? humanTop : 5));
        entries_ = g_.numeroPresa;
        slideSteps_ = 0;
        for (int i = 1; i <= entries_; ++i) taken_[i] = g_.presa(i);
    }

    void carriedOut() {
        const int player = g_.giocatore;
        const bool isScopa = g_.scope(player) > scopeBefore_[player];
        const double expected = entries_ == 0 ? 0 : pause(entries_ + 5) + (isScopa ? banner() : 0);
        EXPECT_NEAR(p_.now() - last_, expected, 1e-6) << entries_ << " entries";
        EXPECT_TRUE(bare(g_, playedLeft, playedTop));
        EXPECT_FALSE(g_.Picture2.Visible);
        if (entries_ == 0) return expectLaid();
        ++captures;
        expectFan();
        EXPECT_TRUE(showsCard(g_, picture::back, 100, pileTop[player]));
        if (isScopa) expectScopa(player);
        expectTable();
    }

    /// The holders stay where the fan has brought the cards; the slide is as long as the fan.
    void expectFan() {
        int top = 0;
        for (int i = 1; i <= entries_; ++i) {
            if (taken_[i] == 0) continue;
            top = i;
            const float lift = static_cast<float>(i) * 0.3f * cardHeight;
            expectHolder(g_.carta(taken_[i]), playedLeft, playedTop - lift);
        }
        EXPECT_EQ(slideSteps_, std::ceil(top * 0.3 * cardHeight / 2));
    }

    void expectLaid() {
        ++laid;
        EXPECT_TRUE(expectTable()) << "the card lies on the table";
    }

    void expectScopa(int player) {
        ++scope;
        const float step =
            (player == human ? -25.0f : 25.0f) * static_cast<float>(g_.scope(player) - 1);
        EXPECT_TRUE(
            showsCard(g_, picture::face(g_.cartaGiocata), cardWidth + 100, pileTop[player] + step));
    }

    /// Each card of the table is seen at its place; true if the card played is one of them.
    bool expectTable() {
        bool found = false;
        for (int row = 1; row <= 3; ++row)
            for (int column = 1; column <= 4; ++column) {
                const int id = g_.tavolo(row, column);
                const float left = placeLeft(column), top = placeTop(row);
                EXPECT_TRUE(id ? showsCard(g_, picture::face(id), left, top) : bare(g_, left, top));
                found |= id == g_.cartaGiocata;
            }
        return found;
    }

    Play& p_;
    Game& g_;
    double rate_, chosen_ = 0, last_ = 0, end_ = -1, sweepStart_ = -1, firstMask_ = 0;
    int entries_ = 0, slideSteps_ = 0, scopeBefore_[3] = {}, taken_[13] = {};
};

TEST(Moves, TakeTheirTimeAndAreSeen) {
    const char* const settings[] = {" 0 1 100", " 0 2 100", " 0 3 100"};
    for (int rate = 1; rate <= 3; ++rate) {
        Play p(static_cast<std::uint64_t>(rate), settings[rate - 1]);
        Eye eye(p, rate * 10);
        p.runHands(6);
        EXPECT_EQ(eye.captures + eye.laid, 6 * 36);
        EXPECT_GT(eye.sweeps[human], 1);
        EXPECT_GT(eye.sweeps[computer], 1);
        EXPECT_GT(eye.scope, 5);
    }
}

}  // namespace
