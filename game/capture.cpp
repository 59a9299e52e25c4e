// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/capture.h"

#include "game/cards.h"
#include "table/ace_sweep.h"
#include "table/painting.h"

namespace frmscopa {
namespace {

constexpr int mostCandidates = 8;  ///< positions of a mask

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

void reject(Game& g) {
    g.cartaGiocata = 0;
}

/// False when the computer holds back an ace: the ace would take an ace while other cards are held.
bool takeEqual(Game& g, int id) {
    if (g.giocatore == human) {
        g.presaUguale = g.presaOk = true;
        return true;
    }
    if (g.valoreGiocato == 1 && g.assiMano < g.carteMano) {
        reject(g);
        return false;
    }
    mark(g, id);
    enterTaken(g, 1, id);
    g.numeroPresa = 1;
    g.presaOk = true;
    return true;
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

/// The lowest mask whose cards add up to the played card, 0 if there is none.
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

void noCapture(Game& g) {
    if (g.giocatore == human) return;
    reject(g);
    g.numeroPresa = 0;
}

/// Looks for two or more candidates that add up to the played card.
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
        if (!takeEqual(g, equal)) return;
    } else if (g.postiVuoti == tablePlaces && g.giocatore == computer) {
        return reject(g);
    } else {
        listCandidates(g);
        searchSum(g);
    }
    // Only the human's ace comes here without a capture: the computer starts its own sweep.
    if (g.cartaGiocata % 10 == 1 && !g.presaOk) velarda(g);
}

}  // namespace frmscopa
