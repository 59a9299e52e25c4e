// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tools/recorder.h"

#include <bit>
#include <charconv>

#include "state/card_holders.h"
#include "state/cards.h"
#include "state/rounding.h"
#include "state/scoring.h"
#include "state/state.h"

namespace {

constexpr std::uint64_t allCards = ((std::uint64_t{1} << 40) - 1) << 1;

std::uint64_t bit(int id) {
    return id == 0 ? 0 : std::uint64_t{1} << id;
}

inline void require(bool holds, const char* what) {
    if (!holds) [[unlikely]]
        throw InvariantBroken(what);
}

void append(std::string& text, int number) {
    char digits[16];
    char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, end);
}

/// Writes "key":, after a comma unless it is the first of its object.
void key(std::string& text, const char* name) {
    if (text.back() != '{') text += ',';
    text.append("\"").append(name).append("\":");
}

void write(std::string& text, const char* name, int number) {
    key(text, name);
    append(text, number);
}

void write(std::string& text, const char* name, const std::string& value) {
    key(text, name);
    text.append("\"").append(value).append("\"");
}

void writeFlag(std::string& text, const char* name, bool value) {
    key(text, name);
    text += value ? "true" : "false";
}

/// A list of what `item` gives for the numbers from first to last.
template <class Item>
void writeList(std::string& text, int first, int last, const Item& item) {
    text += '[';
    for (int i = first; i <= last; ++i) {
        if (i != first) text += ',';
        if constexpr (std::is_convertible_v<decltype(item(i)), int>) {
            append(text, item(i));
        } else {
            text.append("\"").append(item(i)).append("\"");
        }
    }
    text += ']';
}

template <class Item>
void write(std::string& text, const char* name, int first, int last, const Item& item) {
    key(text, name);
    writeList(text, first, last, item);
}

void open(std::string& text, const char* kind, int hand) {
    text += '{';
    write(text, "t", std::string(kind));
    write(text, "n", hand);
}

int total(const Game& g, int player) {
    return player == human ? g.totaleUmano : g.totaleComputer;
}

/// The offset of the labels that show the hand just scored.
int rowOffset(const Game& g) {
    return g.tipoPartita == 0 ? g.progressoPartita : g.progressoPartita - 10;
}

}  // namespace

void Recorder::see(Game& g, Moment moment) {
    switch (moment) {
        case Moment::dealt:
            return begin(g);
        case Moment::turn:
            return beginMove(g);
        case Moment::decided:
            return decide(g);
        case Moment::carriedOut:
            return finishMove(g);
        case Moment::leftovers:
            return takeLeftovers(g);
        case Moment::scored:
            return score(g);
    }
}

void Recorder::begin(Game& g) {
    ++hands;
    move_ = 0;
    pile_[human] = pile_[computer] = 0;
    if (hands > 1) require(g.mazziere == 3 - dealer_, "the deal has not changed sides");
    dealer_ = g.mazziere;
    const bool adding = g.tipoPartita > 0;
    for (const int player : {human, computer})
        totalsBefore_[player] = adding ? total(g, player) : 0;
    if (!transcript_) return;
    open(text, "hand", hands);
    write(text, "match", match);
    write(text, "tipo", g.tipoPartita);
    write(text, "dealer", g.mazziere);
    write(text, "deck", 1, 40, [&](int i) { return g.mazzo(i); });
    text += "}\n";
}

void Recorder::beginMove(const Game& g) {
    ++move_;
    ++moves;
    if (g.mosseGiocate == 0) played_.fill(false);
    for (int slot = 1; slot <= 3; ++slot) {
        const int ours = played_(slot) ? 0 : g.mazzo(g.cimaMazzo + slot - 3);
        hand_(slot) = g.giocatore == human ? ours : heldBy(g.dorso(slot - 1));
    }
    for (int i = 1; i <= tablePlaces; ++i) {
        const auto [row, column] = tableOrder[static_cast<std::size_t>(i - 1)];
        table_(i) = g.tavolo(row, column);
    }
    scopeBefore_ = g.scope(g.giocatore);
}

void Recorder::decide(const Game& g) {
    card_ = g.cartaGiocata;
    slot_ = g.postoMano;
    if (g.giocatore == human) played_(slot_) = true;
    tookCount_ = 0;
    bool aceTaken = false;
    for (int i = 1; i <= g.numeroPresa; ++i) {
        if (g.presa(i) == 0) continue;
        took_(++tookCount_) = g.presa(i);
        aceTaken = aceTaken || isAce(g.presa(i));
    }
    sweep_ = isAce(card_) && tookCount_ > 0 && !aceTaken;
}

void Recorder::finishMove(const Game& g) {
    if (tookCount_ > 0) pile_[g.giocatore] |= bit(card_);
    for (int i = 1; i <= tookCount_; ++i) pile_[g.giocatore] |= bit(took_(i));
    std::uint64_t seen = pile_[human] | pile_[computer];
    int count = std::popcount(seen);
    const auto add = [&](int id) {
        seen |= bit(id);
        count += id != 0;
    };
    for (const auto [row, column] : tableOrder) {
        add(g.tavolo(row, column));
        require(g.carta(g.tavolo(row, column)).Tag.empty(), "a card has kept its mark");
    }
    for (int slot = 0; slot <= 2; ++slot) {
        add(heldBy(g.dorso(slot)));
        if (!played_(slot + 1)) add(g.mazzo(g.cimaMazzo + slot - 2));
    }
    for (int p = g.cimaMazzo + 1; p <= deckSpent; ++p) {
        add(g.mazzo(p));
        add(g.mazzo(p + 18));
    }
    require(seen == allCards && count == 40, "a card is lost or doubled");
    require(g.presiUmano == std::popcount(pile_[human]), "the human's pile does not add up");
    if (transcript_) writeMove(g);
}

void Recorder::writeMove(const Game& g) {
    open(text, "move", hands);
    write(text, "k", move_);
    write(text, "p", g.giocatore);
    write(text, "hand", 1, 3, [&](int i) { return hand_(i); });
    write(text, "slot", slot_);
    write(text, "card", card_);
    write(text, "table", 1, tablePlaces, [&](int i) { return table_(i); });
    write(text, "took", 1, tookCount_, [&](int i) { return took_(i); });
    key(text, "at");
    if (tookCount_ == 0) {
        writeList(text, 0, 1, [&](int i) { return i == 0 ? g.rigaTavolo : g.colonnaTavolo; });
    } else {
        text += "null";
    }
    writeFlag(text, "sweep", sweep_);
    writeFlag(text, "scopa", g.scope(g.giocatore) > scopeBefore_);
    text += "}\n";
}

void Recorder::takeLeftovers(const Game& g) {
    for (int i = 1; i <= g.numeroPresa; ++i) pile_[g.giocatore] |= bit(g.presa(i));
    if (!transcript_) return;
    open(text, "last", hands);
    write(text, "p", g.giocatore);
    write(text, "took", 1, g.numeroPresa, [&](int i) { return g.presa(i); });
    text += "}\n";
}

void Recorder::score(const Game& g) {
    ++scored;
    scope += g.scope(human) + g.scope(computer);
    std::uint64_t ours = 0, all = 0;
    int denari = 0;
    for (int p = 1; p <= 40; ++p) {
        const std::uint64_t card = bit(g.pilaPrese(p));
        all |= card;
        if (p > g.presiUmano) continue;
        ours |= card;
        denari += g.pilaPrese(p) <= lastDenaro;
    }
    require(all == allCards, "a pile has lost or doubled a card");
    require(ours == pile_[human] && (all & ~ours) == pile_[computer], "a pile is not as taken");
    require(denari == g.denariUmano, "the denari do not add up");
    require(g.settebelloUmano == ((ours & bit(settebello)) != 0), "the settebello is astray");
    int points = 0;
    for (const int player : {human, computer}) {
        const int gained = total(g, player) - totalsBefore_[player] - g.scope(player);
        require(gained >= 0 && gained <= 4, "a player's points do not add up");
        points += gained;
    }
    require(points >= 1 && points <= 4, "the points of a hand do not add up");
    if (transcript_) writeScore(g);
}

void Recorder::writeScore(const Game& g) {
    const int offset = rowOffset(g);
    open(text, "score", hands);
    write(text, "pile", 1, 40, [&](int i) { return g.pilaPrese(i); });
    write(text, "presi", g.presiUmano);
    write(text, "denari", g.denariUmano);
    writeFlag(text, "settebello", g.settebelloUmano);
    write(text, "scope", human, computer, [&](int p) { return g.scope(p); });
    write(text, "primiera_sum", human, computer, [&](int p) { return g.primieraSomma(p); });
    key(text, "primiera_best");
    for (const int player : {human, computer}) {
        text += player == human ? '[' : ',';
        writeList(text, 1, 4, [&](int suit) { return g.primieraCarte(player, suit); });
    }
    text += ']';
    write(text, "primiera_won", g.primieraVinta);
    write(text, "totals", human, computer, [&](int p) { return total(g, p); });
    write(text, "caption", g.Command1.Caption);
    write(text, "next_dealer", g.mazziere);
    write(text, "row", 13, 22, [&](int i) { return g.LBLdat(offset + i).Caption; });
    write(text, "row_top", rounded(g.LBLdat(offset + 13).Top));
    write(text, "totals_top", rounded(g.lblTot(0).Top));
    write(text, "total_captions", 0, 1, [&](int i) { return g.lblTot(i).Caption; });
    const bool humanLeads = g.lblTot(0).ForeColor == 0xFF;
    write(text, "total_red", humanLeads ? human : g.lblTot(1).ForeColor == 0xFF ? computer : 0);
    write(text, "images", 1, 8,
          [&](int i) { return g.imgset(i).Visible ? static_cast<int>(g.imgset(i).picture) : 0; });
    text += "}\n";
}
