// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What becomes of the cards from the first lead to the leftovers, seen on the surface, and how long
// it takes.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>

#include "state/cards.h"
#include "table/geometry.h"
#include "whole_program.h"

namespace {

constexpr int bare = 0x7000, muddled = -1000;

/// What is seen where a card may lie, if it is the same in its middle and all along its edges.
int seenAt(const Game& g, Spot card) {
    std::set<int> seen;
    for (const float x : {1.0f, g.larghezzaCarta / 2, g.larghezzaCarta - 1})
        for (const float y : {1.0f, g.altezzaCarta / 2, g.altezzaCarta - 1})
            seen.insert(seenAt(g.frmscopa, card.left + x, card.top + y));
    return seen.size() == 1 ? *seen.begin() : muddled;
}

void expectTable(const Game& g) {
    for (const Place place : tableOrder) {
        const int id = g.tavolo(place.row, place.column);
        EXPECT_EQ(seenAt(g, placeSpot(g, place)), id == 0 ? bare : -id)
            << "row " << place.row << ", column " << place.column;
    }
}

/// What every deal leaves in the hands and at the deck's place, and the first one on the table.
void expectDealt(const Game& g) {
    for (int slot = 0; slot <= 2; ++slot) {
        EXPECT_EQ(seenAt(g, handSpot(g, slot)), -g.mazzo(g.cimaMazzo - 2 + slot)) << slot;
        EXPECT_EQ(seenAt(g, computersSpot(g, slot)), -picture::back) << slot;
    }
    EXPECT_EQ(seenAt(g, deckSpot(g)), g.cimaMazzo == 22 ? bare : -picture::back) << "the deck";
    if (g.cimaMazzo != 7) return;
    expectTable(g);
    for (int column = 1; column <= 4; ++column) EXPECT_EQ(g.tavolo(2, column), g.mazzo(column));
}

/// Follows every move: how long each stop lasts and what is left on the surface.
class Eye {
public:
    Eye(WholeProgram& program, double rate) : program_(program), g_(program.g), rate_(rate) {
        program.watch = [this](Moment moment) { see(moment); };
        program.look = [this] { look(); };
    }
    int sweeps[3] = {}, scope = 0, lastCardEmptied = 0;  ///< sweeps by player

private:
    /// What has passed is a pause of so many seconds at the low rate, and something else.
    void expectPause(double passed, double low, double more = 0) const {
        EXPECT_NEAR(passed, low * 10 / rate_ + more, 1e-6) << "player " << g_.giocatore;
    }

    std::ptrdiff_t cardsOnTable() const {
        const auto lies = [this](Place at) { return g_.tavolo(at.row, at.column) != 0; };
        return std::ranges::count_if(tableOrder, lies);
    }

    void look() {
        if (program_.picking()) chosen_ = program_.now();
        if (program_.moment == Moment::decided && program_.left() <= 0) ++slideSteps_;
        if (!program_.started() || program_.choosing()) return;
        if (g_.Timer1.enabled || g_.Timer2.enabled) sweep_ = true;
        if (!g_.Timer1.enabled) return;
        EXPECT_EQ(seenAt(g_, computersSpot(g_, g_.postoMano)), -picture::back)
            << "the ace comes after the gorilla";
    }

    void see(Moment moment) {
        const double passed = program_.now() - last_;
        if (moment == Moment::turn) turn(passed);
        if (moment == Moment::decided) decided(passed);
        if (moment == Moment::carriedOut) carriedOut(passed);
        if (moment == Moment::leftovers) leftovers();
        if (moment == Moment::scored) expectPause(passed, entries_ == 0 ? 3 : entries_ + 8);
        if (moment != Moment::leftovers) last_ = program_.now();
    }

    void turn(double passed) {
        const bool newRound = g_.mosseGiocate == 0;
        const int leader = g_.mosseGiocate % 2 == 0 ? g_.giocatore : 3 - g_.giocatore;
        EXPECT_NE(leader, g_.mazziere) << "the one who does not deal leads";
        if (g_.cimaMazzo > 7) expectPause(passed, newRound ? 1 : 0);
        if (newRound) expectDealt(g_);
        sweep_ = false;
        scopeBefore_ = g_.scope(g_.giocatore);
    }

    void decided(double passed) {
        const bool humans = g_.giocatore == human;
        // GO was pressed at once, before a tick; each sweep then leaves the long interval.
        const double mask = (sweeps[human] == 0 ? 0.12 : 2.4) + 2.4 + 3 * 0.12;
        if (humans) {
            expectPause(program_.now() - chosen_, sweep_ ? 3 : 1, sweep_ ? mask : 0);
        } else {
            expectPause(passed, 5, sweep_ ? 61 * 0.08 : 0);
        }
        if (sweep_) ++sweeps[g_.giocatore];
        EXPECT_EQ(program_.backend.cardSounds, program_.seen(Moment::decided));
        EXPECT_EQ(seenAt(g_, playedSpot(g_)), -g_.cartaGiocata);
        const Spot slot = humans ? handSpot(g_, g_.postoMano - 1) : computersSpot(g_, g_.postoMano);
        EXPECT_EQ(seenAt(g_, slot), bare) << "the slot of the card played";
        entries_ = g_.numeroPresa;
        slideSteps_ = 0;
        taken_ = g_.presa;
    }

    void carriedOut(double passed) {
        const int player = g_.giocatore;
        const bool bareTable = cardsOnTable() == 0;
        const bool lastCard = g_.cimaMazzo == 22 && g_.mosseGiocate == 6;
        const bool isScopa = bareTable && !lastCard;
        EXPECT_EQ(g_.scope(player), scopeBefore_ + (isScopa ? 1 : 0)) << "player " << player;
        if (bareTable && lastCard) ++lastCardEmptied;
        if (entries_ > 0) lastTaker_ = player;
        const double banner = isScopa ? 1200 / (rate_ * rate_) : 0;
        expectPause(passed, entries_ == 0 ? 0 : entries_ + 5, banner);
        EXPECT_EQ(seenAt(g_, playedSpot(g_)), bare);
        expectTable(g_);
        if (entries_ > 0) expectFan();
        if (!isScopa) return;
        ++scope;
        EXPECT_EQ(seenAt(g_, scopaSpot(g_, player, g_.scope(player))), -g_.cartaGiocata);
    }

    void leftovers() {
        entries_ = g_.numeroPresa;
        EXPECT_EQ(g_.giocatore, lastTaker_) << "who took last gets what is left";
        EXPECT_EQ(cardsOnTable(), entries_) << "all of it";
    }

    /// The holders stay where the fan has brought the cards; the slide is as long as the fan.
    void expectFan() const {
        float height = 0;
        for (int i = 1; i <= entries_; ++i) {
            if (taken_(i) == 0) continue;
            height = static_cast<float>(i) * 0.3f * g_.altezzaCarta;
            const Image& card = g_.carta(taken_(i));
            EXPECT_NEAR(card.Left, playedSpot(g_).left, 0.01) << "entry " << i;
            EXPECT_NEAR(card.Top, playedSpot(g_).top - height, 0.01) << "entry " << i;
        }
        EXPECT_EQ(slideSteps_, std::ceil(height / 2));
        EXPECT_EQ(seenAt(g_, pileSpot(g_, g_.giocatore)), -picture::back);
    }

    WholeProgram& program_;
    Game& g_;
    Array<int, 12> taken_;
    double rate_, chosen_ = 0, last_ = 0;
    int entries_ = 0, slideSteps_ = 0, scopeBefore_ = 0, lastTaker_ = 0;
    bool sweep_ = false;
};

TEST(Moves, TakeTheirTimeAndAreSeen) {
    for (int rate = 1; rate <= 3; ++rate) {
        WholeProgram program(static_cast<std::uint64_t>(rate), "0," + std::to_string(rate));
        Eye eye(program, rate * 10);
        program.runHands(30);
        EXPECT_GT(eye.sweeps[human], 1);
        EXPECT_GT(eye.sweeps[computer], 1);
        EXPECT_GT(eye.scope, 1);
        EXPECT_GT(eye.lastCardEmptied, 0) << "the exception has not been tried";
    }
}

TEST(Title, ShowsForTenSecondsByTheRateThatStoodAtItsBeginning) {
    for (int rate = 1; rate <= 3; ++rate) {
        WholeProgram program(1, "0," + std::to_string(rate));
        program.then("the title", &WholeProgram::titleShows,
                     [&] { program.menu(program.g.velocità_gioco(3)); });
        program.then("the opening screen", &WholeProgram::choosing);
        program.run();
        EXPECT_NEAR(program.now(), 10.0 / rate, 1e-6) << "rate " << rate;
        EXPECT_EQ(program.backend.melody, "") << "entry 0 of the settings is none";
    }
}

}  // namespace
