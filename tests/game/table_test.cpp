// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What is seen on the table from the shuffle to the last move, where, and for how long.

#include <algorithm>
#include <cmath>

#include "script.h"

using namespace script;

namespace {

constexpr Colour tableGreen = 0x7000;

/// Where things lie, worked out from the design alone.
struct Layout {
    float playedLeft = 578, playedTop = 300 - cardHeight / 2;
    float humanTop = 595 - cardHeight, computersTop = 5;
    float pileTop[3] = {0, 487, 5};  ///< by player; 600 - 108.35 - 5 is 486.65

    static float right(int cards) { return static_cast<float>(cards) * (cardWidth + 6); }
    static float down(int cards) { return static_cast<float>(cards) * (cardHeight + 6); }
    static float tableLeft(int column) { return 400 - 2 * cardWidth - 9 + right(column - 1); }
    static float tableTop(int row) { return 300 - 1.5f * cardHeight - 6 + down(row - 1); }
    static float slotLeft(int slot) { return 400 - 1.5f * cardWidth - 6 + right(slot); }
} const layout;

/// The picture of which a whole card is seen at a place; `bare` for the table, -2 otherwise.
constexpr int bare = -1;
int seenAt(const Game& g, float left, float top) {
    const float x = left + cardWidth / 2, y = top + cardHeight / 2;
    const Painted* seen = g.frmscopa.surface.at(x, y);
    if (Point(g.frmscopa, x, y) == tableGreen) return bare;
    const Box box = seen ? seen->box : Box{};
    const float off = std::abs(box.left - left) + std::abs(box.bottom - top - cardHeight);
    return off < 0.01f ? seen->picture : -2;
}

/// Each card of the table is seen at its place and each free place is bare.
void expectTable(const Game& g) {
    for (int row = 1; row <= 3; ++row)
        for (int column = 1; column <= 4; ++column) {
            const int id = g.tavolo(row, column);
            EXPECT_EQ(seenAt(g, layout.tableLeft(column), layout.tableTop(row)), id ? id : bare);
        }
}

TEST(Shuffle, RefusesJustTheSumForty) {
    const std::vector<int> fours[] = {{2, 3, 4, 31}, {7, 8, 12, 13}, {40, 1, 2, 3}, {1, 2, 3, 33}};
    for (const auto& four : fours) {
        Play p;
        for (const int id : {four[3], four[2], four[1], four[0], 1})  // the last draw comes first
            p.g.chance.prepared.push_back((static_cast<float>(id) + 0.5f) / 41);
        p.then(&Play::picking);
        p.run();
        const bool stands = four[0] + four[1] + four[2] + four[3] != 40;
        EXPECT_EQ(std::equal(four.begin(), four.end(), p.g.mazzo.begin() + 1), stands);
    }
}

TEST(Wipe, FillsTheHalvesFromBothSides) {
    Play p;
    p.backend.wipeSeconds = 4;
    p.backend.frameSeconds = 1 / 64.0;
    const auto green = [&](float x, float y) { return Point(p.g.frmscopa, x, y) == tableGreen; };
    p.look = [&] {
        if (std::abs(p.now() - 11) > 1 / 64.0) return;  // the second wipe is at its half
        EXPECT_TRUE(green(10, 20) && green(390, 280) && !green(410, 20) && !green(790, 280));
        EXPECT_TRUE(green(790, 580) && green(410, 320) && !green(390, 580) && !green(10, 320));
    };
    p.then(&Play::picking);
    p.run();
    EXPECT_TRUE(p.now() > 12.9 && p.g.frmscopa.surface.backColor == tableGreen);
}

/// What every deal leaves in the hands and at the deck's place, and the first one on the table.
void expectDealt(const Game& g) {
    for (int s = 0; s <= 2; ++s) {
        EXPECT_EQ(seenAt(g, layout.slotLeft(s), layout.humanTop), g.mazzo(g.cimaMazzo - 2 + s));
        EXPECT_EQ(seenAt(g, layout.slotLeft(s), layout.computersTop), picture::back);
    }
    const bool first = g.cimaMazzo == 7, last = g.cimaMazzo == 22;
    EXPECT_EQ(seenAt(g, 680, layout.pileTop[g.mazziere]), last ? bare : picture::back);
    EXPECT_EQ(seenAt(g, 680, layout.pileTop[3 - g.mazziere]), bare);
    for (int column = 1; first && column <= 4; ++column)
        EXPECT_EQ(seenAt(g, layout.tableLeft(column), layout.tableTop(2)), g.mazzo(column));
}

/// Follows every move: how long each stop lasts and what is left on the surface.
class Eye {
public:
    Eye(Play& p, double rate) : p_(p), g_(p.g), rate_(rate) {
        p.watch = [this](Moment moment) { see(moment); };
        p.look = [this] { look(); };
    }
    int sweeps[3] = {}, scope = 0;

private:
    /// What a pause of so long at the low rate, and something else, is to last.
    void expectPause(double passed, double low, double more = 0) const {
        EXPECT_NEAR(passed, low * 10 / rate_ + more, 1e-6) << g_.giocatore;
    }

    void look() {
        if (p_.picking()) chosen_ = p_.now();
        if (p_.moment == Moment::decided && p_.left() <= 0) ++slideSteps_;
        sweep_ = sweep_ || (p_.started() && (g_.Timer1.enabled || g_.Timer2.enabled));
        if (!sweep_ || !g_.Timer1.enabled || p_.choosing()) return;
        const float slot = layout.slotLeft(g_.postoMano);
        EXPECT_EQ(seenAt(g_, slot, layout.computersTop), picture::back) << "the ace comes later";
        EXPECT_TRUE(g_.Gorilla(1).Visible);
    }

    void see(Moment moment) {
        EXPECT_FALSE(g_.Gorilla(1).Visible || g_.Mask2(5).Visible || g_.Picture2.Visible);
        const double passed = p_.now() - last_;
        if (moment == Moment::turn) turn(passed);
        if (moment == Moment::decided) decided(passed);
        if (moment == Moment::carriedOut) carriedOut(passed);
        if (moment == Moment::leftovers) entries_ = g_.numeroPresa;
        if (moment == Moment::scored) expectPause(passed, entries_ == 0 ? 3 : entries_ + 8);
        if (moment != Moment::leftovers) last_ = p_.now();
    }

    void turn(double passed) {
        if (g_.cimaMazzo > 7) expectPause(passed, g_.mosseGiocate == 0 ? 1 : 0);
        if (g_.mosseGiocate == 0) expectDealt(g_);
        const Source lit = g_.giocatore == human ? Source::Verde : Source::Rosso;
        EXPECT_EQ(controlAt(g_.frmscopa, 636, 584 - cardHeight / 2)->source, lit);
        EXPECT_NE(controlAt(g_.frmscopa, 636, 16 + cardHeight / 2)->source, lit);
        sweep_ = false;
        scopeBefore_ = g_.scope(g_.giocatore);
    }

    void decided(double passed) {
        const bool humans = g_.giocatore == human;
        // GO was pressed at once, before a tick; each sweep then leaves the long interval.
        const double mask = (sweeps[human] == 0 ? 0.12 : 2.4) + 2.4 + 3 * 0.12;
        if (humans) expectPause(p_.now() - chosen_, sweep_ ? 3 : 1, sweep_ ? mask : 0);
        if (!humans) expectPause(passed, 5, sweep_ ? 61 * 0.08 : 0);
        sweeps[g_.giocatore] += sweep_;
        EXPECT_EQ(p_.backend.cardSounds, p_.seen(Moment::decided));
        EXPECT_EQ(seenAt(g_, layout.playedLeft, layout.playedTop), g_.cartaGiocata);
        const float slot = layout.slotLeft(humans ? g_.postoMano - 1 : g_.postoMano);
        EXPECT_EQ(seenAt(g_, slot, humans ? layout.humanTop : layout.computersTop), bare);
        entries_ = g_.numeroPresa;
        slideSteps_ = 0;
        taken_ = g_.presa;
    }

    void carriedOut(double passed) {
        const int player = g_.giocatore, scopeNow = g_.scope(player);
        const bool isScopa = scopeNow > scopeBefore_;
        const double banner = isScopa ? 1200 / (rate_ * rate_) : 0;
        expectPause(passed, entries_ == 0 ? 0 : entries_ + 5, banner);
        EXPECT_EQ(seenAt(g_, layout.playedLeft, layout.playedTop), bare);
        expectTable(g_);
        if (entries_ > 0) expectFan();
        scope += isScopa;
        const auto step = static_cast<float>((player == human ? -25 : 25) * (scopeNow - 1));
        const int card = seenAt(g_, cardWidth + 100, layout.pileTop[player] + step);
        EXPECT_TRUE(!isScopa || card == g_.cartaGiocata);
    }

    /// The holders stay where the fan has brought the cards; the slide is as long as the fan.
    void expectFan() const {
        float top = 0;
        for (int i = 1; i <= entries_; ++i) {
            if (taken_(i) == 0) continue;
            top = static_cast<float>(i) * 0.3f * cardHeight;
            expectPlace(g_.carta(taken_(i)), layout.playedLeft, layout.playedTop - top);
        }
        EXPECT_EQ(slideSteps_, std::ceil(top / 2));
        EXPECT_EQ(seenAt(g_, 100, layout.pileTop[g_.giocatore]), picture::back);
    }

    Play& p_;
    Game& g_;
    Array<int, 12> taken_;
    double rate_, chosen_ = 0, last_ = 0;
    int entries_ = 0, slideSteps_ = 0, scopeBefore_ = 0;
    bool sweep_ = false;
};

TEST(Moves, TakeTheirTimeAndAreSeen) {
    for (int rate = 1; rate <= 3; ++rate) {
        Play p(static_cast<std::uint64_t>(rate), "0," + std::to_string(rate) + ",100");
        Eye eye(p, rate * 10);
        p.runHands(6);
        EXPECT_GT(std::min({eye.sweeps[human], eye.sweeps[computer], eye.scope}), 1);
    }
}

}  // namespace
