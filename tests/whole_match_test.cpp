// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "game/event_table.h"
#include "tests/naive_rules.h"
#include "tests/support.h"
#include "tools/robot.h"

namespace test {
namespace {

using naive::Cards;

/// Follows whole matches from outside and keeps its own books by the naive rules.
class Bookkeeper {
public:
    Bookkeeper(Game& g, int hands) : handsLeft_(hands) {
        g.watcher = this;
        g.watch = [](Game& game, Moment moment, void* self) {
            static_cast<Bookkeeper*>(self)->see(game, moment);
        };
    }

    /// False where the game waits in vain: there is something to mark, the robot marks it at once,
    /// and so it is asked only once in a move.
    bool canGoOn(const Game& g, double until) {
        if (until != never || g.fase != "selezione") return true;
        const auto legal = naive::takings(table_, g.cartaGiocata);
        return ++selections_ == 1 && !legal.empty() && !sweeping(g.cartaGiocata, legal.front());
    }

    int sweeps = 0, scope = 0, lastCardEmptied = 0, leftoversToHuman = 0, leftoversToComputer = 0;
    int matchesEnded = 0;

private:
    static bool sweeping(int played, const Cards& taken) {
        return naive::worth(played) == 1 && naive::worth(taken.front()) != 1;
    }

    void see(Game& g, Moment moment) {
        checkInvariants(g);
        // What follows from a fault would only bury it, or never end.
        if (testing::Test::HasFailure()) throw EndProgram{};
        switch (moment) {
            case Moment::dealt:
                return dealt(g);
            case Moment::turn:
                return turn(g);
            case Moment::decided:
                return decided(g);
            case Moment::carriedOut:
                return carriedOut(g);
            case Moment::leftovers:
                return leftovers(g);
            case Moment::scored:
                return scored(g);
        }
    }

    void dealt(const Game& g) {
        turns_ = scope_[1] = scope_[2] = 0;
        pile_[1].clear();
        pile_[2].clear();
        dealer_ = g.mazziere;
        EXPECT_EQ(naive::lying(tableOf(g)).size(), 4u);
        EXPECT_NE(dealer_, lastDealer_) << "the deal changes sides";
        lastDealer_ = dealer_;
    }

    void turn(const Game& g) {
        EXPECT_EQ(g.giocatore, turns_ % 2 == 0 ? 3 - dealer_ : dealer_);
        EXPECT_EQ(g.mosseGiocate, turns_ % 6);
        EXPECT_EQ(g.cimaMazzo, 7 + turns_ / 6 * 3);
        table_ = tableOf(g);
        hand_ = handOf(g);
        selections_ = 0;
    }

    void decided(const Game& g) {
        ++turns_;
        const Cards taken = takenBy(g);
        SCOPED_TRACE(name(g.cartaGiocata) + " on " + text(table_));
        if (g.giocatore == human) {
            const auto legal = naive::takings(table_, g.cartaGiocata);
            EXPECT_TRUE(legal.empty() ? taken.empty() : contains(legal, taken)) << names(taken);
        } else {
            EXPECT_TRUE(
                contains(naive::computerPlays(table_, hand_), naive::Play{g.postoMano, taken}))
                << names(taken);
        }
        EXPECT_EQ(names(markedOf(g, table_)), names(taken));
        lastEntry_ = g.numeroPresa;
        while (lastEntry_ > 0 && g.presa(lastEntry_) == 0) --lastEntry_;
        book(g.giocatore, g.cartaGiocata, taken);
    }

    void book(int player, int played, const Cards& taken) {
        laid_ = taken.empty() ? played : 0;
        if (taken.empty()) return;
        sweeps += sweeping(played, taken);
        lastTaker_ = player;
        pile_[player].push_back(played);
        for (const int id : taken) {
            pile_[player].push_back(id);
            std::replace(table_.begin(), table_.end(), id, 0);
        }
        if (!naive::lying(table_).empty()) return;
        (turns_ == 36 ? lastCardEmptied : scope_[player])++;
    }

    void carriedOut(const Game& g) {
        const Cards now = tableOf(g);
        if (laid_ != 0) {
            const auto where = std::find(now.begin(), now.end(), laid_) - now.begin();
            ASSERT_LT(where, 12) << "the card lies on the table";
            int& place = table_[static_cast<std::size_t>(where)];
            EXPECT_EQ(place, 0) << "a card has been covered";
            place = laid_;
        }
        EXPECT_EQ(text(now), text(table_));
        EXPECT_EQ(g.scope(human), scope_[human]);
        EXPECT_EQ(g.scope(computer), scope_[computer]);
        EXPECT_EQ(names(humansPile(g)), names(pile_[human]));
        EXPECT_EQ(g.ultimaPresa, lastTaker_);
        EXPECT_EQ(g.numeroPresa, lastEntry_) << "empty entries at the end are dropped";
        EXPECT_TRUE(takenBy(g).empty()) << "presa is cleared";
    }

    static Cards humansPile(const Game& g) {
        return {g.pilaPrese.begin() + 1, g.pilaPrese.begin() + 1 + g.presiUmano};
    }

    void leftovers(const Game& g) {
        EXPECT_EQ(turns_, 36);
        const Cards rest = naive::lying(table_);
        EXPECT_EQ(g.giocatore, lastTaker_);
        EXPECT_EQ(names(takenBy(g)), names(rest));
        if (!rest.empty()) (lastTaker_ == human ? leftoversToHuman : leftoversToComputer)++;
        pile_[lastTaker_].insert(pile_[lastTaker_].end(), rest.begin(), rest.end());
    }

    void scored(const Game& g) {
        EXPECT_EQ(names(humansPile(g)), names(pile_[human]));
        EXPECT_EQ(pile_[human].size() + pile_[computer].size(), 40u);
        if (g.tipoPartita == 0) total_ = {};
        const auto hand = naive::points(pile_[human], pile_[computer]);
        total_.human += hand.human + scope_[human];
        total_.computer += hand.computer + scope_[computer];
        scope += scope_[human] + scope_[computer];
        EXPECT_EQ((naive::Count{g.totaleUmano, g.totaleComputer}), total_);
        const int mark[] = {0, 11, 21};
        const bool over = total_.human != total_.computer &&
                          std::max(total_.human, total_.computer) >= mark[g.tipoPartita];
        EXPECT_EQ(g.Command1.Caption, over ? "NEW GAME" : "CONTINUE");
        if (over) {
            total_ = {};
            ++matchesEnded;
        }
        if (--handsLeft_ == 0) throw EndProgram{};
    }

    int handsLeft_;
    int turns_ = 0, dealer_ = 0, lastDealer_ = 0, lastTaker_ = 0, laid_ = 0;
    int selections_ = 0, lastEntry_ = 0;
    Cards table_, hand_;
    Cards pile_[3];
    int scope_[3] = {};
    naive::Count total_;
};

TEST(WholeMatches, KeepTheRulesAtEveryMoment) {
    int sweeps = 0, scope = 0, emptied = 0, toHuman = 0, toComputer = 0;
    for (int tipoPartita = 0; tipoPartita <= 2; ++tipoPartita) {
        Headless backend(static_cast<std::uint64_t>(tipoPartita) + 40);
        Game g(backend);
        Robot robot(g, static_cast<std::uint64_t>(tipoPartita) + 5);
        robot.tipoPartita = tipoPartita;
        Bookkeeper books(g, 40);
        backend.time.user = [&](double until) {
            return books.canGoOn(g, until) && robot.act(until);
        };
        runProgram(g);
        ASSERT_FALSE(HasFailure());
        EXPECT_GT(books.matchesEnded, 1);
        sweeps += books.sweeps;
        scope += books.scope;
        emptied += books.lastCardEmptied;
        toHuman += books.leftoversToHuman;
        toComputer += books.leftoversToComputer;
    }
    EXPECT_GT(sweeps, 100);
    EXPECT_GT(scope, 100);
    EXPECT_GT(emptied, 0) << "the last card must have emptied the table at least once";
    EXPECT_GT(toHuman, 10);
    EXPECT_GT(toComputer, 10);
}

}  // namespace
}  // namespace test
