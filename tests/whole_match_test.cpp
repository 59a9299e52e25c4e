// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/event_table.h"
#include "platform/chance.h"
#include "tests/support.h"
#include "tools/monkey.h"
#include "tools/recorder.h"

namespace test {
namespace {

constexpr int handsOfAKind = 100;

/// Whole matches of one kind between the robot and the computer, watched from outside.
class Matches {
public:
    Matches(int tipoPartita, bool teased) : teased_(teased) {
        robot_.tipoPartita = tipoPartita;
        g_.watcher = this;
        g_.watch = [](Game&, Moment moment, void* self) {
            static_cast<Matches*>(self)->see(moment);
        };
        backend_.time.user = [this](double until) {
            return (teased_ && monkey_.tease(until)) || robot_.act(until);
        };
        runProgram(g_);
    }

    Recorder recorder{true};
    int lastCardEmptied = 0, leftovers[2] = {};

private:
    void see(Moment moment) {
        recorder.see(g_, moment);
        if (moment == Moment::dealt) turns_ = scope_[0] = scope_[1] = 0;
        if (moment == Moment::turn) turn();
        if (moment == Moment::carriedOut) carriedOut();
        if (moment == Moment::leftovers) leftoversGiven();
        EXPECT_TRUE(moment != Moment::scored || cardsOnTable() == rest_) << "a card has been laid";
        if (recorder.scored == handsOfAKind || testing::Test::HasFailure()) throw EndProgram{};
    }

    void turn() {
        const bool dealersTurn = turns_++ % 2 == 1;
        EXPECT_EQ(g_.giocatore == g_.mazziere, dealersTurn) << "the one who does not deal leads";
        before_ = cardsOnTable();
    }

    /// Emptying the table is a scopa, but with the very last card.
    void carriedOut() {
        if (cardsOnTable() < before_) lastTaker_ = g_.giocatore;
        if (cardsOnTable() == 0) ++(turns_ == 36 ? lastCardEmptied : scope_[g_.giocatore - 1]);
        EXPECT_EQ(g_.scope(human), scope_[0]);
        EXPECT_EQ(g_.scope(computer), scope_[1]);
    }

    void leftoversGiven() {
        EXPECT_EQ(turns_, 36);
        EXPECT_EQ(g_.giocatore, lastTaker_);
        rest_ = cardsOnTable();
        EXPECT_EQ(g_.numeroPresa, rest_);
        if (rest_ > 0) ++leftovers[lastTaker_ - 1];
    }

    int cardsOnTable() const {
        int count = 0;
        for (const auto [row, column] : tableOrder) count += g_.tavolo(row, column) != 0;
        return count;
    }

    bool teased_;
    Headless backend_{7};
    Game g_{backend_};
    Robot robot_{g_, 11};
    Monkey monkey_{g_, 13};
    int turns_ = 0, before_ = 0, rest_ = 0, lastTaker_ = 0, scope_[2] = {};
};

/// One draw in sixteen million lies so near to 1 that four times as much plus 1 is 5 in single
/// precision; a card was once laid on a fifth column that way.
TEST(Chance, StaysBelowItsBound) {
    Headless backend;
    Game g(backend);
    for (const int n : {2, 3, 4, 41}) {
        g.chance.prepared = {0x1.fffffep-1f};
        EXPECT_EQ(randomBelow(g, n), n - 1);
    }
}

TEST(WholeMatches, KeepTheRulesAndHeedNoMonkey) {
    int lastCardEmptied = 0;
    for (int tipoPartita = 0; tipoPartita <= 2; ++tipoPartita) {
        const Matches plain(tipoPartita, false), teased(tipoPartita, true);
        EXPECT_TRUE(plain.recorder.text == teased.recorder.text);
        EXPECT_GT(plain.recorder.scope, 100);
        for (const int times : plain.leftovers) EXPECT_GT(times, 10);
        lastCardEmptied += plain.lastCardEmptied;
    }
    EXPECT_GT(lastCardEmptied, 0);
}

}  // namespace
}  // namespace test
