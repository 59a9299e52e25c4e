// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tools/teaser.h"

#include "state/cards.h"
#include "state/state.h"
#include "table/geometry.h"

namespace {

constexpr int oftenEnough = 40;  ///< one in so many waits is disturbed while the game moves

}  // namespace

bool Teaser::tease(double until) {
    if (until == never) return teaseWaitingPlayer();
    // While the game moves, a click anywhere is refused and the menus work. Where it looks after
    // other events and would take a card, the surface is left alone.
    const bool takesCards = g_.fase == "selezione" || (g_.fase == "gioco1" && g_.cartaGiocata == 0);
    if (g_.GO.Visible || takesCards || hand_.draw(oftenEnough) != 0) return false;
    switch (hand_.draw(3)) {
        case 0:
            useMenu();
            break;
        case 1:
            pressKey(Key::One, Key::Escape);
            break;
        default:
            hand_.pressAt(static_cast<float>(hand_.draw(800)), static_cast<float>(hand_.draw(600)));
    }
    return true;
}

void Teaser::pressKey(Key first, Key last) {
    const int from = static_cast<int>(first), to = static_cast<int>(last);
    g_.queue.push_back({Source::frmscopa, Verb::KeyDown, from + hand_.draw(to - from + 1)});
}

bool Teaser::teaseWaitingPlayer() {
    if (!wrong_.empty()) {
        takeBack();
        return true;
    }
    if (left_ == 0) {
        left_ = 1 + hand_.draw(3);
        return false;
    }
    --left_;
    switch (hand_.draw(5)) {
        case 0:
            useMenu();
            return true;
        case 1:
            return markWrongly();
        case 2:
            // Neither plays a card nor chooses another match.
            g_.GO.Visible ? useMenu() : pressKey(Key::Left, Key::End);
            return true;
        default:
            clickSomewhereRefused();
            return true;
    }
}

void Teaser::useMenu() {
    const auto choose = [this](const MenuEntry& entry) {
        g_.queue.push_back({entry.source, Verb::Click, entry.index});
    };
    switch (hand_.draw(5)) {
        case 0:
            choose(g_.Italiano);
            break;
        case 1:
            choose(g_.english);
            break;
        case 2:
            choose(g_.menu_about);
            break;
        case 3:
            choose(g_.velocità_gioco(1 + hand_.draw(3)));
            break;
        default:
            choose(g_.canzoni(hand_.draw(lastMelody + 1)));
            break;
    }
}

/// The waiting player may not click these: bare places, the piles, the deck, the other hand, and
/// the table while a hand card is wanted.
void Teaser::clickSomewhereRefused() {
    const auto pressCard = [this](Spot spot) {
        hand_.pressAt(spot.left + g_.larghezzaCarta / 2, spot.top + g_.altezzaCarta / 2);
    };
    const int player = human + hand_.draw(2);
    switch (hand_.draw(5)) {
        case 0:
            hand_.pressAt(2, 300);
            break;
        case 1:
            pressCard(pileSpot(g_, player));
            break;
        case 2:
            pressCard({deckSpot(g_).left, pileSpot(g_, player).top});
            break;
        case 3:
            pressCard(computersSpot(g_, hand_.draw(3)));
            break;
        default:
            if (g_.fase == "gioco1") {
                hand_.pressTable(1 + hand_.draw(3), 1 + hand_.draw(4));
            } else {
                hand_.pressHand(1 + hand_.draw(3));
            }
    }
}

/// Marks one card of another value, or two of the value where only one may be taken.
bool Teaser::markWrongly() {
    if (g_.fase != "selezione") return false;
    std::vector<Place> equal, other;
    for (const Place place : tableOrder) {
        const int id = g_.tavolo(place.row, place.column);
        if (id == 0) continue;
        (equalValue(id, g_.cartaGiocata) ? equal : other).push_back(place);
    }
    if (equal.size() >= 2) {
        wrong_ = {equal[0], equal[1]};
    } else if (!other.empty()) {
        wrong_ = {other[static_cast<std::size_t>(hand_.draw(static_cast<int>(other.size())))]};
    } else {
        return false;
    }
    for (const Place place : wrong_) hand_.pressTable(place.row, place.column);
    return true;
}

void Teaser::takeBack() {
    for (const Place place : wrong_) hand_.pressTable(place.row, place.column);
    wrong_.clear();
}
