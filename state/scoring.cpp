// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "state/scoring.h"

#include <algorithm>
#include <string_view>

#include "state/cards.h"
#include "state/state.h"

namespace frmscopa {
namespace {

/// The digits from the strongest primiera card to the weakest; a card's place counts from 1.
constexpr std::string_view order = "7615432890";
constexpr int noCard = 11;

int placeInOrder(int id) {
    return static_cast<int>(order.find(static_cast<char>('0' + id % 10))) + 1;
}

int digitAt(int place) {
    return order[static_cast<std::size_t>(place - 1)] - '0';
}

void bestCards(Game& g, int player, int firstPlace, int lastPlace) {
    for (int suit = 1; suit <= 4; ++suit) g.primieraCarte(player, suit) = noCard;
    for (int p = firstPlace; p <= lastPlace; ++p) {
        int& best = g.primieraCarte(player, suitIndex(g.pilaPrese(p)));
        best = std::min(best, placeInOrder(g.pilaPrese(p)));
    }
    g.primieraSomma(player) = 0;
    for (int suit = 1; suit <= 4; ++suit) {
        const int best = g.primieraCarte(player, suit);
        if (best != noCard) g.primieraSomma(player) += valoresettanta(digitAt(best));
    }
}

}  // namespace

void tallyHand(Game& g) {
    Array<bool, 40> taken;
    g.settebelloUmano = false;
    for (int p = 1; p <= g.presiUmano; ++p) {
        const int id = g.pilaPrese(p);
        taken(id) = true;
        g.denariUmano += id <= lastDenaro;
        if (id == settebello) g.settebelloUmano = true;
    }
    int next = g.presiUmano;
    for (int id = 1; id <= 40; ++id)
        if (!taken(id)) g.pilaPrese(++next) = id;
}

void calcsettanta(Game& g) {
    bestCards(g, human, 1, g.presiUmano);
    bestCards(g, computer, g.presiUmano + 1, 40);
    const int ours = g.primieraSomma(human), theirs = g.primieraSomma(computer);
    g.primieraVinta = ours > theirs ? human : ours < theirs ? computer : 0;
}

int valoresettanta(int cifra) {
    switch (cifra) {
        case 7:
            return 21;
        case 6:
            return 18;
        case 1:
            return 16;
        case 5:
            return 15;
        case 4:
            return 14;
        case 3:
            return 13;
        case 2:
            return 12;
        case 8:
        case 9:
        case 0:
            return 10;
        default:
            return 0;
    }
}

int primieraCard(const Game& g, int player, int suit) {
    const int place = g.primieraCarte(player, suit);
    if (place == noCard) return 0;
    const int digit = digitAt(place);
    return 10 * (suit - 1) + (digit == 0 ? 10 : digit);
}

}  // namespace frmscopa

namespace frmscore {

void awardPoints(Game& g) {
    const auto point = [&g](int mine, int theirs) {
        if (mine > theirs) ++g.totaleUmano;
        if (mine < theirs) ++g.totaleComputer;
    };
    point(g.presiUmano, 40 - g.presiUmano);
    point(g.denariUmano, 10 - g.denariUmano);
    point(g.primieraVinta == human, g.primieraVinta == computer);
    point(g.settebelloUmano, !g.settebelloUmano);
    g.totaleUmano += g.scope(human);
    g.totaleComputer += g.scope(computer);
}

}  // namespace frmscore
