// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Three hundred seeded hands, watched from outside, and one number for all that happened.

#include <algorithm>

#include "state/cards.h"
#include "tools/recorder.h"
#include "tools/signature.h"
#include "tools/teaser.h"
#include "whole_program.h"

namespace {

/// Whoever changes the play on purpose makes sure that the other tests say so too and puts the new
/// number here.
TEST(ThreeHundredHands, HaveTheKnownSignature) {
    EXPECT_EQ(signatureOfPlay(), 5974004500799276125u) << "play has changed";
}

/// What has come in several hands, so that nothing is left untried.
struct Seen {
    long scope = 0;
    int lastCardEmptied = 0, leftovers[3] = {};
};

enum class Way { plain, teased, silent };

/// Ten hands between the robot and the computer; the kind of match goes by the seed.
class Hands : public WholeProgram {
public:
    Hands(int run, Way way, Seen& all)
        : WholeProgram(static_cast<std::uint64_t>(run + 1)), all_(all) {
        robot.tipoPartita = run % 3;
        backend.soundWorks = way != Way::silent;
        watch = [this](Moment now) { see(now); };
        if (way == Way::teased) look = [this] { teaser_.tease(until); };
        runHands(10);
        all_.scope += recorder.scope;
    }
    Recorder recorder{true};

private:
    void see(Moment now) {
        recorder.see(g, now);
        if (now == Moment::dealt) turns_ = scope_(human) = scope_(computer) = 0;
        if (now == Moment::turn) turn();
        if (now == Moment::carriedOut) carriedOut();
        if (now == Moment::leftovers) leftoversGiven();
        if (now == Moment::scored) scored();
    }

    void turn() {
        const bool dealersTurn = turns_++ % 2 == 1;
        EXPECT_EQ(g.giocatore == g.mazziere, dealersTurn) << "the one who does not deal leads";
        before_ = cardsOnTable();
    }

    /// Emptying the table is a scopa, but with the very last card.
    void carriedOut() {
        if (cardsOnTable() < before_) lastTaker_ = g.giocatore;
        if (cardsOnTable() == 0) ++(turns_ == 36 ? all_.lastCardEmptied : scope_(g.giocatore));
        EXPECT_EQ(g.scope(human), scope_(human));
        EXPECT_EQ(g.scope(computer), scope_(computer));
    }

    void leftoversGiven() {
        EXPECT_EQ(turns_, 36);
        EXPECT_EQ(g.giocatore, lastTaker_);
        rest_ = cardsOnTable();
        EXPECT_EQ(g.numeroPresa, rest_);
        if (rest_ > 0) ++all_.leftovers[lastTaker_];
    }

    void scored() {
        EXPECT_EQ(cardsOnTable(), rest_) << "a card has been laid";
        const int mark[] = {0, 11, 21}, ours = g.totaleUmano, theirs = g.totaleComputer;
        const bool over = ours != theirs && std::max(ours, theirs) >= mark[g.tipoPartita];
        EXPECT_EQ(g.Command1.Caption, over ? "NEW GAME" : "CONTINUE") << ours << '-' << theirs;
    }

    int cardsOnTable() const {
        const auto lies = [this](Place at) { return g.tavolo(at.row, at.column) != 0; };
        return static_cast<int>(std::ranges::count_if(tableOrder, lies));
    }

    Seen& all_;
    Teaser teaser_{g, 13};
    Array<int, 2> scope_;
    int turns_ = 0, before_ = 0, rest_ = 0, lastTaker_ = 0;
};

TEST(ThreeHundredHands, KeepTheRulesAndHeedNeitherMonkeyNorSilence) {
    Seen plain, teased, silent;
    for (int run = 0; run < 30; ++run) {
        const Hands hands(run, Way::plain, plain);
        // Not EXPECT_EQ, which would print both transcripts.
        EXPECT_TRUE(Hands(run, Way::teased, teased).recorder.text == hands.recorder.text)
            << "teased, from seed " << run + 1;
        EXPECT_TRUE(Hands(run, Way::silent, silent).recorder.text == hands.recorder.text)
            << "without sound, from seed " << run + 1;
    }
    EXPECT_GT(plain.scope, 100);
    EXPECT_GT(plain.lastCardEmptied, 0);
    EXPECT_GT(plain.leftovers[human], 30);
    EXPECT_GT(plain.leftovers[computer], 30);
}

}  // namespace
