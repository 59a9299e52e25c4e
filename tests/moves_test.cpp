// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Each move as it is seen: how long every stop lasts and what is left on the surface.

#include <cmath>

#include "tests/layout.h"

using namespace script;

namespace {

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
        for (int i = 1; i <= 10; ++i) EXPECT_FALSE(g_.Gorilla(i).Visible);
        for (int i = 1; i <= 5; ++i) EXPECT_FALSE(g_.Mask2(i).Visible);
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
            // GO was pressed at once, before a tick; each sweep then leaves the long interval.
            if (humans) {
                EXPECT_EQ(firstMask_, sweeps[human] == 1 ? 0.12 : 2.4);
            }
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
            expectPlace(g_.carta(taken_[i]), playedLeft, playedTop - lift);
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
                const float left = tableLeft(column), top = tableTop(row);
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
