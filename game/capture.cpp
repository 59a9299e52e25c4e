// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/capture.h"

#include "speech/announcements.h"
#include "state/card_holders.h"
#include "state/cards.h"
#include "state/state.h"
#include "table/ace_sweep.h"
#include "table/painting.h"

namespace frmscopa {
namespace {

/// The positions of a mask. A search among nine would need masks that are not there, so it is not
/// made: the card is laid, and the human need not take.
constexpr int mostCandidates = 8;

/// The first table card of the played card's value, 0 if there is none. Counts the empty places
/// that it passes.
int findEqual(Game& g) {
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        if (id == 0) {
            ++g.postiVuoti;
        } else if (equalValue(id, g.cartaGiocata)) {
            return id;
        }
    }
    return 0;
}

/// The computer does not play this card now.
void reject(Game& g) {
    g.cartaGiocata = 0;
}

/// An ace would take no more than an ace, and could sweep later; with nothing else in the hand it
/// has to go.
bool holdsBackAce(const Game& g) {
    return g.giocatore == computer && g.valoreGiocato == 1 && g.assiMano < g.carteMano;
}

/// The human chooses among equal cards himself; the computer takes this one.
void takeEqual(Game& g, int id) {
    g.presaOk = true;
    if (g.giocatore == human) {
        g.presaUguale = true;
        return;
    }
    mark(g, id);
    enterTaken(g, 1, id);
    g.numeroPresa = 1;
}

/// Lists in presa the cards that a sum could use. Tens are never among them.
void listCandidates(Game& g) {
    g.numeroPresa = g.sommaPresa = 0;
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        const int digit = id % 10;
        if (digit == 0 || digit > g.valoreGiocato) continue;
        enterTaken(g, ++g.numeroPresa, id);
        g.sommaPresa += digit;
    }
}

bool named(const std::string& mask, int position) {
    return mask[static_cast<std::size_t>(position - 1)] != '0';
}

/// The lowest mask whose cards add up to the played card, 0 if there is none. Several sets may do;
/// the first one in the order of counting is the computer's, so a table has one answer and no other
/// is looked for. It prefers nothing, neither many cards nor denari.
int findMask(const Game& g) {
    // As maschere says them: mask k names the positions of its bits, so the sum of a mask is that
    // of the mask without its highest bit, and one digit more.
    Array<int, (1 << mostCandidates) - 1> sums;
    int k = 1;
    for (int p = 1; p <= g.numeroPresa; ++p) {
        const int digit = g.presa(p) % 10;
        for (int rest = 0, bit = k; rest < bit; ++rest, ++k)
            if ((sums(k) = sums(rest) + digit) == g.valoreGiocato) return k;
    }
    return 0;
}

/// Marks the cards of the mask; the other candidates leave zero entries behind in presa.
void takeMask(Game& g, const std::string& mask) {
    for (int p = 1; p <= g.numeroPresa; ++p) {
        if (named(mask, p)) {
            mark(g, g.presa(p));
        } else {
            g.presa(p) = 0;
        }
    }
}

/// For the human the candidates stay in presa: verifica clears them.
void noCapture(Game& g) {
    if (g.giocatore == human) return;
    reject(g);
    g.numeroPresa = 0;
}

/// Looks for two or more candidates that add up to the played card. Leaves numeroPresa at the
/// number of candidates where they do, and at 0 where no search is made.
void searchSum(Game& g) {
    const int n = g.numeroPresa;
    if (g.sommaPresa < g.valoreGiocato || n < 2) return noCapture(g);
    if (n > mostCandidates) {
        g.numeroPresa = 0;
        return;
    }
    const int all = (1 << n) - 1;
    const int k = n > 2 ? findMask(g) : g.sommaPresa == g.valoreGiocato ? all : 0;
    if (k == 0) return noCapture(g);
    if (g.giocatore == human) {
        g.presaOk = true;
    } else {
        takeMask(g, g.maschere(k));
    }
}

/// Marks the whole table. The human's marked cards are collected and added up by verifica, which
/// then finds the sum that it looks for; the computer's are listed here.
void takeTable(Game& g) {
    int cards = 0;
    g.valoreGiocato = 0;
    for (const auto [row, column] : tableOrder) {
        const int id = g.tavolo(row, column);
        if (id == 0) continue;
        g.posX = g.carta(id).Left;  // not looked at: muovicarte starts from the card played
        g.posY = g.carta(id).Top;
        mark(g, id);
        if (g.giocatore == computer) {
            enterTaken(g, ++cards, id);
        } else {
            g.valoreGiocato += cardValue(id);
        }
    }
    g.numeroPresa = cards;
}

}  // namespace

void Trova_Combinazioni(Game& g) {
    for (int k = 255; k >= 1; --k) {
        std::string mask(8, '0');
        for (int p = 1, m = k; m != 0; ++p, m /= 2)
            if (m % 2 == 1) mask[static_cast<std::size_t>(p - 1)] = static_cast<char>('0' + p);
        g.maschere(k) = mask;
    }
}

void combina(Game& g) {
    g.presaOk = g.presaUguale = false;
    g.postiVuoti = 0;
    if (const int equal = findEqual(g); equal != 0) {
        if (holdsBackAce(g)) return reject(g);
        takeEqual(g, equal);
    } else if (g.postiVuoti == tablePlaces && g.giocatore == computer) {
        return reject(g);
    } else {
        listCandidates(g);
        searchSum(g);
    }
    // Only the human's ace comes here without a capture: the computer starts its own sweep.
    if (g.cartaGiocata % 10 == 1 && !g.presaOk) velarda(g);
}

void velarda(Game& g) {
    if (g.postiVuoti == tablePlaces) return;
    tellSweep(g);
    playMascot(g, g.giocatore);
    takeTable(g);
    g.presaOk = true;
}

}  // namespace frmscopa
