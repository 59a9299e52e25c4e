// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "state/panel_texts.h"

namespace panelText {

std::string english() {
    return R"(Lumeria (Velarda)

Play cards against the computer. There are three kinds of game: a single game, a match to 11 points and a match to 21 points. Choose the background music from the Music menu. The scores are shown after each game.

------------------------------
Game Rules

This game is a version of Scopa from the south of Italy. It follows the rules of Scopa and scores as Scopa does. A match that ends in a draw goes on.

The dealer puts 4 cards on the table, face up, and deals 3 cards to each player, face down. Each time both hands are empty, 3 more are dealt. The other player always starts.

If a card on the table is equal to the card you play, you must take it. If there is none, cards whose sum equals the card you play can be taken.

Click the cards on the table to choose them; click a card again to let it go. By keyboard, 1, 2 and 3 play a card of your hand; the arrows lead a ring over the cards that can be chosen, and Space or Enter presses the one inside it.

Taking all the cards on the table is a "scopa". The card that makes it is shown face up to the right of the pack you have won. Each "scopa" is worth one point.

An ace takes all the cards on the table and scores a Scopa. But if there is an ace on the table, you can take only that ace.

The final score

Denari: the number of "denari" cards that you have taken counts; the player with more of them gets 1 point.

Settebello: 1 point for the "settebello", the seven of denari.

Primiera, also called "primero": 1 point for the better four cards, one of each suit. They are worth:

Seven	21
Six	18
Ace	16
Five	15
Four	14
Three	13
Figures (eight, nine and ten)	10

Advice

Take as many cards as you can, and denari before any others. Work for the best primiera. Hunt the settebello and the aces. And always look for a "scopa".

------------------------------)";
}

std::string italian() {
    return R"(Lumeria (Velarda)

Una partita a carte contro il computer. I tipi di gioco sono tre: partita singola, partita a 11 punti e partita a 21 punti. La musica di sottofondo si sceglie dal menu Music. Il punteggio viene mostrato alla fine di ogni partita.

------------------------------
Regole del gioco

È una variante della Scopa diffusa nel sud d'Italia. Regole e punteggi sono quelli della Scopa. Se il risultato è in parità, si continua a giocare.

Il mazziere mette 4 carte scoperte sul tavolo e distribuisce 3 carte coperte per volta a ciascun giocatore. Comincia sempre l'avversario del mazziere.

Se sul tavolo c'è una carta uguale a quella giocata, bisogna prendere quella. Altrimenti si possono prendere le carte la cui somma è uguale alla carta giocata.

Le carte del tavolo si scelgono con un clic; con un altro clic si lasciano. Con la tastiera, 1, 2 e 3 giocano una carta della mano; le frecce portano un anello sulle carte che si possono scegliere, e Spazio o Invio preme quella dentro l'anello.

Chi prende tutte le carte del tavolo fa "scopa". La carta che l'ha fatta resta scoperta a destra del mazzetto delle prese. Ogni "scopa" vale un punto.

L'asso prende tutte le carte del tavolo e fa Scopa. Se però sul tavolo c'è già un asso, si può prendere soltanto quello.

Il punteggio finale

Denari: contano le carte di "denari" prese; a chi ne ha di più va 1 punto.

Settebello: 1 punto a chi ha preso il "settebello", cioè il sette di denari.

Primiera, o "settanta": 1 punto a chi ha le quattro carte migliori, una per seme. I valori sono:

Sette	21
Sei	18
Asso	16
Cinque	15
Quattro	14
Tre	13
Figure (otto, nove e dieci)	10

Consigli

Prendere più carte possibile, e i denari prima delle altre. Puntare alla migliore settanta. Dare la caccia al settebello e agli assi. E cercare sempre di fare "scopa".

Il punteggio finale di ogni mano si compone di cinque parti, da 1 punto ciascuna: carte, denari, settanta, settebello, scope.

------------------------------)";
}

std::string information() {
    return "Velarda  ver. 3.0\n© 2026 The Velarda developers\nFree software, MIT licence";
}

}  // namespace panelText
