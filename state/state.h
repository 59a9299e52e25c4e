// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// The state of the game: one flat set of variables, grouped only by how long they live. Every
// procedure reads and writes them directly. A card is its id from 1 to 40, 0 is no card; a player
// is 1, the human, or 2, the computer. W and H stand for larghezzaCarta and altezzaCarta.

#include <functional>
#include <span>
#include <string>

#include "platform/array.h"
#include "platform/events.h"
#include "state/forms.h"

inline constexpr int human = 1, computer = 2;

/// The move being carried out; cleared before every move by gioco.
struct CurrentMove {
    int giocatore = 0;      ///< whose move it is; in the final sweep, who receives the leftovers
    int cartaGiocata = 0;   ///< the card played; 0: none chosen yet, or a computer card rejected
    int valoreGiocato = 0;  ///< its value 1 to 10; for the human's ace sweep, the sum of the table
    int postoMano = 0;      ///< its slot in the hand: human 1 to 3, computer 0 to 2
    Array<int, 12> presa;   ///< the table cards taken, from 1; zero entries are skipped
    Array<int, 12> presaX, presaY;  ///< their Left and Top, rounded
    int numeroPresa = 0;            ///< entries of presa in use; 0: the card stays on the table
    int sommaPresa = 0;             ///< sum of the values in presa
    bool presaOk = false;           ///< human: a capture is compulsory, or set up
    bool presaUguale = false;  ///< human: a card of equal value lies there; just one may be taken
    int postiVuoti = 0;        ///< empty places passed by combina; 12: the table is bare
    int carteMano = 0, assiMano = 0;  ///< the computer's cards and aces, at the start of its turn
    std::string fase;  ///< what a click means: "gioco1", "selezione", or nothing when empty
    /// The leftovers are being given to the last taker: the card last played has been dealt with
    /// when it was played, so it is not laid and not taken again, and nothing makes a scopa.
    bool raccoltaFinale = false;
    int rigaTavolo = 0, colonnaTavolo = 0;  ///< a table place being worked on
    float posX = 0, posY = 0, posZ = 0;     ///< where a card is being painted or moved
};

/// One hand, from Mescola to the score sheet.
struct Hand {
    Array<int, 40> mazzo;    ///< the shuffled pack: 1-4 table, 5-22 human, 23-40 computer
    int cimaMazzo = 0;       ///< places used up of the lower half: 4, then 3 more a deal, up to 22
    Grid<int, 3, 4> tavolo;  ///< rows 1 to 3, columns 1 to 4
    int mosseGiocate = 0;    ///< cards played since the last deal, 0 to 6
    int ultimaPresa = 0;     ///< who last took cards; not cleared between hands
    Array<int, 40> pilaPrese;  ///< the human's cards as taken; at the end the computer's follow
    int presiUmano = 0;        ///< cards in the human's pile
    Array<int, 2> scope;       ///< by player
    int denariUmano = 0;       ///< these two are counted at the end of the hand
    bool settebelloUmano = false;
    Array<int, 2> primieraSomma;           ///< by player: points of the best card of each suit
    Grid<int, 2, 4> primieraCarte;         ///< by player and suit: place in the order, 11: no card
    int primieraVinta = 0;                 ///< player with the higher sum, 0: none
    int fotoGorilla = 0, giriGorilla = 0;  ///< frame in front, passes through the ten
    int fotoMaschera = 0, giriMaschera = 0;  ///< last frame raised, passes through the five
};

/// One match; mazziere and tipoPartita live on from match to match.
struct Match {
    int mazziere = 0;          ///< who deals; the other one leads
    int tipoPartita = 0;       ///< 0 Single Game, 1 11 points Game, 2 21 points Game
    int progressoPartita = 0;  ///< offset of this hand's labels on the score sheet, 10 a hand
    int totaleUmano = 0, totaleComputer = 0;
    std::string nomeGiocatore;
    bool sceltaFatta = false;  ///< the opening screen may end
};

/// What the keys work on.
struct Keys {
    bool ringInUse = false;  ///< from the first arrow key to the next movement of the mouse
    int ringed = 0;          ///< which of the cards that can be pressed, from 0
};

/// What the settings file keeps.
struct Settings {
    int brano = 0;         ///< index in canzoni, 0 to lastMelody; 0 is no music
    int velocita = 20;     ///< ten times the index in velocità_gioco: 10, 20 or 30
    float scalaCarte = 1;  ///< card scale, 1 for the size that the layout was drawn for
};

/// Measures of the table in units, taken at each activation.
struct Geometry {
    float scalaX = 1, scalaY = 1;
    float centroX = 400, centroY = 300;
    float larghezzaCarta = 0, altezzaCarta = 0;
    float tavoloX = 0, tavoloY = 0;
    Array<int, 2> pilaY;  ///< Top of each player's pile
};

/// The moments of a hand that can be watched from outside; the game does not depend on it.
enum class Moment { dealt, turn, decided, carriedOut, leftovers, scored };

struct Game : Runtime, CurrentMove, Hand, Match, Keys, Settings, Geometry, TableForm, ScoreForm {
    /// The two forms have their design values; nothing is loaded or shown. The table says which
    /// procedure answers which event: eventTable() for the whole game, an empty one for a game in
    /// which nothing happens by itself.
    Game(Backend&, std::span<const Handler> table);

    Array<std::string, 255> maschere;  ///< subsets of the positions 1 to 8, built once

    std::function<void(Moment)> watch;  ///< called at each Moment, if set
};

inline void notify(const Game& g, Moment moment) {
    if (g.watch) g.watch(moment);
}
