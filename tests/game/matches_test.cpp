// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Three hundred seeded hands, watched from outside, and one number for all that happened.

#include <algorithm>

#include "script.h"
#include "state/cards.h"
#include "tools/recorder.h"
#include "tools/teaser.h"

using namespace script;

namespace {

/// The signature of these hands. It changes when anything about the play changes: the shuffle, a
/// rule, what the computer chooses, the points, the order in which random numbers are drawn, or
/// the robot's own choices. A change of mere looks or timing leaves it alone. Whoever changes the
/// play on purpose makes sure that the other tests say so too and puts the new number here.
constexpr std::uint64_t knownSignature = 5974004500799276125u;

/// What several hands have been, one after the other.
struct Sum {
    std::uint64_t signature = 0xcbf29ce484222325u;
    long scope = 0;
    int lastCardEmptied = 0, leftovers[3] = {};

    /// The FNV-1a hash of the numbers, each as two bytes.
    void sign(std::initializer_list<int> numbers) {
        for (const int number : numbers)
            for (const int byte : {number & 0xFF, number >> 8 & 0xFF})
                signature = (signature ^ static_cast<unsigned>(byte)) * 0x100000001b3u;
    }
};

enum class Way { plain, teased, silent };

/// Ten hands between the robot and the computer; the kind of match goes by the seed.
class Hands : public Play {
public:
    Hands(int run, Way way, Sum& sum) : Play(static_cast<std::uint64_t>(run + 1)), sum_(sum) {
        robot.tipoPartita = run % 3;
        backend.soundWorks = way != Way::silent;
        watch = [this](Moment now) { see(now); };
        look = [this, way] {
            if (way == Way::teased) teaser_.tease(until);
        };
        runHands(10);
        sum_.scope += recorder.scope;
    }
    Recorder recorder{true};

private:
    void see(Moment now) {
        recorder.see(g, now);
        if (now == Moment::dealt) turns_ = scope_[0] = scope_[1] = 0;
        if (now == Moment::turn) turn();
        if (now == Moment::decided) decided();
        if (now == Moment::carriedOut) carriedOut();
        if (now == Moment::leftovers) leftoversGiven();
        if (now == Moment::scored) scored();
    }

    void turn() {
        const bool dealersTurn = turns_++ % 2 == 1;
        EXPECT_EQ(g.giocatore == g.mazziere, dealersTurn) << "the one who does not deal leads";
        before_ = cardsOnTable();
    }

    void decided() {
        sum_.sign({g.giocatore, g.cartaGiocata, g.postoMano});
        for (int i = 1; i <= g.numeroPresa; ++i) sum_.sign({g.presa(i)});
    }

    /// Emptying the table is a scopa, but with the very last card.
    void carriedOut() {
        for (const auto [row, column] : tableOrder) sum_.sign({g.tavolo(row, column)});
        if (cardsOnTable() < before_) lastTaker_ = g.giocatore;
        if (cardsOnTable() == 0) ++(turns_ == 36 ? sum_.lastCardEmptied : scope_[g.giocatore - 1]);
        EXPECT_TRUE(g.scope(human) == scope_[0] && g.scope(computer) == scope_[1]);
    }

    void leftoversGiven() {
        EXPECT_EQ(turns_, 36);
        EXPECT_EQ(g.giocatore, lastTaker_);
        rest_ = cardsOnTable();
        EXPECT_EQ(g.numeroPresa, rest_);
        sum_.leftovers[lastTaker_] += rest_ > 0;
    }

    void scored() {
        EXPECT_EQ(cardsOnTable(), rest_) << "a card has been laid";
        const int mark[] = {0, 11, 21}, ours = g.totaleUmano, theirs = g.totaleComputer;
        const bool over = ours != theirs && std::max(ours, theirs) >= mark[g.tipoPartita];
        EXPECT_EQ(g.Command1.Caption, over ? "NEW GAME" : "CONTINUE") << ours << '-' << theirs;
        sum_.sign({g.presiUmano, g.denariUmano, g.primieraVinta, int{g.settebelloUmano}, g.scope(1),
                   g.scope(2), g.totaleUmano, g.totaleComputer, g.mazziere});
    }

    int cardsOnTable() const {
        const auto lies = [this](Place at) { return g.tavolo(at.row, at.column) != 0; };
        return static_cast<int>(std::ranges::count_if(tableOrder, lies));
    }

    Sum& sum_;
    Teaser teaser_{g, 13};
    int turns_ = 0, before_ = 0, rest_ = 0, lastTaker_ = 0, scope_[2] = {};
};

TEST(ThreeHundredHands, KeepTheRulesAndHeedNeitherMonkeyNorSilence) {
    Sum plain, teased, silent;
    for (int run = 0; run < 30; ++run) {
        const Hands hands(run, Way::plain, plain);
        EXPECT_TRUE(Hands(run, Way::teased, teased).recorder.text == hands.recorder.text);
        EXPECT_TRUE(Hands(run, Way::silent, silent).recorder.text == hands.recorder.text);
    }
    EXPECT_EQ(plain.signature, knownSignature) << "see the comment at knownSignature";
    EXPECT_GT(plain.scope, 100);
    EXPECT_GT(plain.lastCardEmptied, 0);
    EXPECT_GT(std::min(plain.leftovers[human], plain.leftovers[computer]), 30);
}

}  // namespace
