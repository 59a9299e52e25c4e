// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What is said aloud, compared with what has happened: every sentence of some matches, told a
// second time from the moves.

#include <algorithm>

#include "state/cards.h"
#include "whole_program.h"

namespace {

using Said = std::vector<std::string>;

std::string card(int id) {
    static const char* const suits[] = {"coins", "cups", "clubs", "swords"};
    static const char* const values[] = {"ten",  "ace", "two",   "three", "four",
                                         "five", "six", "seven", "eight", "nine"};
    return values[id % 10] + std::string(" of ") + suits[(id - 1) / 10];
}

/// "a, b and c" with a word before each.
std::string list(const std::vector<int>& ids, const std::string& article,
                 const std::string& join = " and ") {
    std::string text;
    for (std::size_t i = 0; i < ids.size(); ++i)
        text += (i == 0 ? "" : i + 1 < ids.size() ? ", " : join) + article + card(ids[i]);
    return text;
}

/// What a match sounds like, worked out from its moments.
class Expected {
public:
    explicit Expected(const Game& g) : g_(g) {}
    Said said;

    void see(Moment moment) {
        if (moment == Moment::dealt) deal();
        if (moment == Moment::turn) turn();
        if (moment == Moment::decided) g_.giocatore == human ? humansMove() : computersMove();
        if (moment == Moment::carriedOut && g_.scope(g_.giocatore) > scope_)
            say(ours() ? "Scopa for you!" : "Scopa for the computer!");
        if (moment == Moment::leftovers) leftovers();
        if (moment == Moment::scored) score();
    }

private:
    bool ours() const { return g_.giocatore == human; }
    void say(const std::string& sentence) { said.push_back(sentence); }
    std::vector<int> table() const {
        std::vector<int> ids;
        for (const auto [row, column] : tableOrder)
            if (g_.tavolo(row, column) != 0) ids.push_back(g_.tavolo(row, column));
        return ids;
    }
    std::string onTable() const {
        return table().empty() ? "The table is bare." : "On the table: " + list(table(), "") + ".";
    }
    void hand(const std::string& whose) {
        const int top = g_.cimaMazzo;
        say(whose + list({g_.mazzo(top - 2), g_.mazzo(top - 1), g_.mazzo(top)}, "") + ".");
    }
    void deal() {
        const bool computerLeads = g_.mazziere == human;
        say((computerLeads ? "You deal, the computer leads. " : "The computer deals, you lead. ") +
            onTable());
        hand("Your cards: ");
    }
    void turn() {
        const bool first = g_.cimaMazzo == 7 && g_.mosseGiocate == 0;
        if (g_.mosseGiocate == 0 && !first)
            hand(g_.cimaMazzo == 22 ? "Your last cards: " : "Your cards: ");
        table_ = table();
        scope_ = g_.scope(g_.giocatore);
        if (ours()) say(first ? "Your turn." : "Your turn. " + onTable());
    }
    std::vector<int> taken() const {
        std::vector<int> ids;
        for (int i = 1; i <= g_.numeroPresa; ++i)
            if (g_.presa(i) != 0) ids.push_back(g_.presa(i));
        return ids;
    }
    bool sweeps() const {
        const bool takesAce = std::ranges::any_of(taken(), [](int id) { return id % 10 == 1; });
        return g_.cartaGiocata % 10 == 1 && !taken().empty() && !takesAce;
    }
    std::string choice() const {
        std::vector<int> equal = table_;
        std::erase_if(equal, [&](int id) { return id % 10 != g_.cartaGiocata % 10; });
        if (!equal.empty()) return list(equal, "the ", " or ");
        return "cards that add up to " + std::to_string((g_.cartaGiocata - 1) % 10 + 1);
    }
    void humansMove() {
        const std::string played = card(g_.cartaGiocata) + ".";
        if (taken().empty()) return say("You lay the " + played);
        say("You play the " + played +
            (sweeps() ? " It sweeps the table." : " You must take: choose " + choice() + "."));
        say("You take " + list(taken(), "the ") + ".");
    }
    void computersMove() {
        if (sweeps()) say("The gorilla comes out: the computer sweeps the table.");
        const std::string played = card(g_.cartaGiocata);
        say(taken().empty()
                ? "The computer lays the " + played + "."
                : "The computer plays the " + played + " and takes " + list(taken(), "the ") + ".");
    }
    void leftovers() {
        if (table().empty()) return;
        say("The cards left on the table are " +
            std::string(ours() ? "yours: " : "the computer's: ") + list(table(), "the ") + ".");
    }
    void row(const std::string& title, int mine, int theirs) {
        say(title + ": you " + std::to_string(mine) + ", the computer " + std::to_string(theirs) +
            ".");
    }
    void score() {
        static const std::string owner[] = {"nobody's.", "yours.", "the computer's."};
        row("Score. Carte", g_.presiUmano, 40 - g_.presiUmano);
        row("Denari", g_.denariUmano, 10 - g_.denariUmano);
        say("Primiera: " + owner[g_.primieraVinta]);
        say("Settebello: " + owner[g_.settebelloUmano ? 1 : 2]);
        row("Scope", g_.scope(human), g_.scope(computer));
        row("Total", g_.totaleUmano, g_.totaleComputer);
        const int ahead = g_.totaleUmano - g_.totaleComputer;
        const bool over = g_.Command1.Caption == "NEW GAME";
        say(over         ? ahead > 0 ? "You have won." : "The computer has won."
            : ahead == 0 ? "The match is drawn and goes on."
                         : "The match goes on.");
    }

    const Game& g_;
    std::vector<int> table_;
    int scope_ = 0;
};

/// Sentences about the choices of a player, which the moves do not tell.
bool isOfChoosing(const std::string& sentence) {
    return sentence.find(" marked") != std::string::npos ||
           sentence.find("chosen.") != std::string::npos || sentence.starts_with("Velarda. ");
}

TEST(Announcements, TellEverythingOnceInItsOrder) {
    WholeProgram program(7);
    program.backend.listens = true;
    program.robot.tipoPartita = 1;
    Expected expected(program.g);
    program.watch = [&](Moment moment) { expected.see(moment); };
    program.runHands(40);
    std::erase_if(program.backend.announced, isOfChoosing);
    ASSERT_GT(expected.said.size(), 40u * 60);
    for (std::size_t i = 0; i < expected.said.size(); ++i)
        ASSERT_EQ(program.backend.announced.at(i), expected.said[i]) << "sentence " << i;
    EXPECT_EQ(program.backend.announced.size(), expected.said.size());
}

TEST(Announcements, AreNotMadeWhereNobodyListens) {
    WholeProgram program;
    program.runHands(2);
    EXPECT_EQ(program.backend.announced, Said{});
}

}  // namespace
