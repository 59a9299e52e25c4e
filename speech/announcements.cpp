// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "speech/announcements.h"

#include <algorithm>

#include "platform/backend.h"
#include "speech/card_names.h"
#include "state/card_holders.h"
#include "state/cards.h"
#include "state/state.h"

namespace {

using Ids = std::vector<int>;

bool silent(Game& g) {
    return !g.backend.listening();
}

void say(Game& g, const std::string& sentence) {
    g.backend.announce(sentence);
}

Ids tableCards(const Game& g) {
    Ids ids;
    for (const auto [row, column] : tableOrder)
        if (const int id = g.tavolo(row, column)) ids.push_back(id);
    return ids;
}

Ids takenCards(const Game& g) {
    return {g.presa.begin() + 1, g.presa.begin() + 1 + g.numeroPresa};
}

std::string onTheTable(const Game& g) {
    const Ids cards = tableCards(g);
    return cards.empty() ? "The table is bare." : "On the table: " + listOfCards(cards) + '.';
}

/// Before the first card of a hand the table has just been told.
bool firstMove(const Game& g) {
    return g.mosseGiocate == 0 && g.cimaMazzo == firstDeal;
}

/// What the card in play may take, in words that say what to look for.
std::string demand(const Game& g) {
    if (!g.presaUguale) return "cards that add up to " + std::to_string(g.valoreGiocato);
    Ids equal = tableCards(g);
    std::erase_if(equal, [&](int id) { return !equalValue(id, g.cartaGiocata); });
    return theCards(equal, "or");
}

int markedSum(const Game& g) {
    int sum = 0;
    for (const int id : tableCards(g))
        if (marked(g, id)) sum += cardValue(id);
    return sum;
}

const char* whose(int player) {
    return player == human ? "yours" : player == computer ? "the computer's" : "nobody's";
}

std::string row(const char* title, int ours, int theirs) {
    return std::string(title) + ": you " + std::to_string(ours) + ", the computer " +
           std::to_string(theirs) + '.';
}

/// The sheet shows it by a colour and by what the button says.
std::string standing(const Game& g) {
    const bool over = g.Command1.Caption == "NEW GAME";
    if (!over && g.totaleUmano == g.totaleComputer) return "The match is drawn and goes on.";
    if (!over) return "The match goes on.";
    return g.totaleUmano > g.totaleComputer ? "You have won." : "The computer has won.";
}

}  // namespace

void tellOpening(Game& g) {
    if (silent(g)) return;
    say(g, "Velarda. " + g.Option1(0).Caption + ", " + g.Option1(1).Caption + " or " +
               g.Option1(2).Caption + ": the arrow keys choose, Enter begins.");
    for (const OptionButton& option : g.Option1)
        if (option.Value) say(g, option.Caption + " is chosen.");
}

void tellHand(Game& g) {
    if (silent(g)) return;
    const char* const leads =
        g.mazziere == human ? "You deal, the computer leads. " : "The computer deals, you lead. ";
    say(g, leads + onTheTable(g));
}

void tellDeal(Game& g) {
    if (silent(g)) return;
    const Ids hand{g.mazzo.begin() + g.cimaMazzo - 2, g.mazzo.begin() + g.cimaMazzo + 1};
    const bool last = g.cimaMazzo == deckSpent;
    say(g, (last ? "Your last cards: " : "Your cards: ") + listOfCards(hand) + '.');
}

void tellTurn(Game& g) {
    if (silent(g)) return;
    say(g, firstMove(g) ? "Your turn." : "Your turn. " + onTheTable(g));
}

void tellTable(Game& g) {
    if (silent(g)) return;
    say(g, onTheTable(g));
}

void tellSweep(Game& g) {
    if (silent(g)) return;
    if (g.giocatore == human) {
        say(g, "You play the " + cardName(g.cartaGiocata) + ". It sweeps the table.");
    } else {
        say(g, "The gorilla comes out: the computer sweeps the table.");
    }
}

void tellHumansCard(Game& g) {
    if (silent(g)) return;
    const std::string card = cardName(g.cartaGiocata);
    if (!g.presaOk) return say(g, "You lay the " + card + '.');
    // A sweep has been told, and leaves nothing to choose.
    if (markedCount(g) != 0) return;
    say(g, "You play the " + card + ". You must take: choose " + demand(g) + '.');
}

void tellMark(Game& g, int id) {
    if (silent(g)) return;
    const int sum = markedSum(g);
    const bool right = sum == g.valoreGiocato && (!g.presaUguale || markedCount(g) == 1);
    if (right) return;
    std::string sentence = cardName(id) + (marked(g, id) ? " marked" : " let go");
    if (!g.presaUguale) {
        sentence += ", " + std::to_string(sum) + " of " + std::to_string(g.valoreGiocato);
    } else if (sum != 0) {
        sentence += ", not possible: only " + demand(g);
    }
    say(g, sentence + '.');
}

void tellComputersMove(Game& g) {
    if (silent(g)) return;
    const std::string card = cardName(g.cartaGiocata);
    if (g.numeroPresa == 0) return say(g, "The computer lays the " + card + '.');
    say(g, "The computer plays the " + card + " and takes " + theCards(takenCards(g)) + '.');
}

void tellCapture(Game& g) {
    if (silent(g)) return;
    say(g, "You take " + theCards(takenCards(g)) + '.');
}

void tellScopa(Game& g) {
    if (silent(g)) return;
    say(g, g.giocatore == human ? "Scopa for you!" : "Scopa for the computer!");
}

void tellLeftovers(Game& g) {
    if (silent(g) || g.numeroPresa == 0) return;
    say(g, std::string("The cards left on the table are ") + whose(g.giocatore) + ": " +
               theCards(takenCards(g)) + '.');
}

void tellScore(Game& g) {
    if (silent(g)) return;
    say(g, row("Score. Carte", g.presiUmano, 40 - g.presiUmano));
    say(g, row("Denari", g.denariUmano, 10 - g.denariUmano));
    say(g, std::string("Primiera: ") + whose(g.primieraVinta) + '.');
    say(g, std::string("Settebello: ") + whose(g.settebelloUmano ? human : computer) + '.');
    say(g, row("Scope", g.scope(human), g.scope(computer)));
    say(g, row("Total", g.totaleUmano, g.totaleComputer));
    say(g, standing(g));
}

void tellRefusal(Game& g) {
    if (silent(g)) return;
    say(g, "Not possible.");
}
