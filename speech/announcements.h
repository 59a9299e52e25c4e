// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

// What is said aloud while a hand is played, sentence by sentence, at the moment at which it comes
// to be seen. Where nobody listens nothing is made. None of these runs events or changes the game.

void tellOpening(Game&);  ///< the opening screen: what can be chosen, and what is

void tellHand(Game&);   ///< a hand begins: who leads, and the cards on the table
void tellDeal(Game&);   ///< the three cards that the human has been given
void tellTurn(Game&);   ///< the human's turn has come: what lies on the table
void tellTable(Game&);  ///< what lies on the table, for who asks
void tellSweep(Game&);  ///< an ace begins to sweep; expects giocatore and cartaGiocata

/// What becomes of the human's card: laid, or what it has to take. Expects the outcome of combina.
void tellHumansCard(Game&);

/// A table card has been marked or let go and does not complete a capture.
void tellMark(Game&, int id);

/// What the computer has played and takes. Expects the card shown.
void tellComputersMove(Game&);

/// What the human takes. Expects presa.
void tellCapture(Game&);

void tellScopa(Game&);      ///< expects giocatore
void tellLeftovers(Game&);  ///< who gets the cards left on the table; expects presa and giocatore
void tellScore(Game&);      ///< the score sheet of a hand, row by row, and who has won
void tellRefusal(Game&);    ///< a press that the game does not take
