// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "speech/objects.h"

#include <algorithm>
#include <tuple>

#include "speech/card_names.h"
#include "state/card_holders.h"
#include "state/cards.h"
#include "state/state.h"
#include "table/geometry.h"
#include "table/score_sheet.h"

namespace {

using Role = Told::Role;

Box cardBox(const Game& g, Spot spot) {
    return {spot.left, spot.top, spot.left + g.larghezzaCarta, spot.top + g.altezzaCarta};
}

Picture pictureAt(const Game& g, float x, float y) {
    const Painted* const top = g.frmscopa.surface.at(x, y);
    return top ? top->picture : picture::none;
}

/// Nothing else lies over the middle of the card.
bool isSeen(const Game& g, Picture picture, Spot spot) {
    return pictureAt(g, spot.left + g.larghezzaCarta / 2, spot.top + g.altezzaCarta / 2) == picture;
}

/// The list of the table as it grows.
struct TableList {
    const Game& g;
    std::vector<Told> all;

    void add(Role role, Source source, int index, std::string name, const Box& box) {
        all.push_back({role, source, index, std::move(name), toPixels(box, g.frmscopa.grid)});
    }
    void addCard(int id, Spot spot, const std::string& where) {
        if (!isSeen(g, picture::face(id), spot)) return;
        add(Role::card, Source::carta, id, fullCardName(id) + ", " + where, cardBox(g, spot));
        all.back().marked = marked(g, id);
        if (all.back().marked) all.back().name += ", taken";
    }
    void addBack(Source source, int index, Spot spot, const char* name) {
        if (isSeen(g, picture::back, spot))
            add(Role::picture, source, index, name, cardBox(g, spot));
    }
};

void addControls(TableList& list) {
    const TableForm& form = list.g;
    const std::pair<const Image*, const char*> named[] = {{&form.Picture4, "Velarda"},
                                                          {&form.Gorilla(1), "The gorilla"},
                                                          {&form.Mask2(1), "The mask"},
                                                          {&form.Picture2, "Scopa"}};
    for (const auto& [image, name] : named) {
        if (!image->Visible) continue;
        list.all.push_back(
            {Role::picture, image->source, 0, name, pixelsOf(*image, form.frmscopa.grid)});
    }
}

/// Of a player's two lamps only the one in front is seen; the green one is the other's red one.
void addTurn(TableList& list) {
    const Game& g = list.g;
    if (!g.Verde(0).Visible || g.Verde(0).Left >= unitsAcross) return;
    const bool ours = g.Verde(0).z > g.Rosso(0).z;
    const Image& green = g.Verde(ours ? 0 : 1);
    list.all.push_back({Role::label, Source::Verde, 0, ours ? "Your turn" : "The computer's turn",
                        pixelsOf(green, g.frmscopa.grid)});
}

/// The backs are told as one thing: which of them is played next is the computer's affair.
void addComputersHand(TableList& list) {
    const Game& g = list.g;
    int cards = 0;
    Box box;
    for (int slot = 0; slot <= 2; ++slot) {
        const Spot spot = computersSpot(g, slot);
        if (!isSeen(g, picture::back, spot)) continue;
        const Box card = cardBox(g, spot);
        box = {cards++ == 0 ? card.left : box.left, card.top, card.right, card.bottom};
    }
    if (cards == 0) return;
    const char* const word = cards == 1 ? " card" : " cards";
    list.add(Role::picture, Source::dorso, 0,
             std::to_string(cards) + word + " in the computer's hand", box);
}

/// The pile shows no number; the cards of the scope lie beside it and can be counted.
void addPile(TableList& list, int player) {
    const Game& g = list.g;
    const bool ours = player == human;
    list.addBack(Source::carta, -player, pileSpot(g, player),
                 ours ? "Your pile" : "The computer's pile");
    if (g.mazziere == player)
        list.addBack(Source::Mazzo, 0, deckSpot(g),
                     ours ? "The deck, on your side" : "The deck, on the computer's side");
    const int scope = g.scope(player);
    if (scope == 0) return;
    const Box last = cardBox(g, scopaSpot(g, player, scope));
    if (pictureAt(g, (last.left + last.right) / 2, (last.top + last.bottom) / 2) == picture::none)
        return;
    list.add(Role::picture, Source::Picture2, player,
             (ours ? "Your scope: " : "The computer's scope: ") + std::to_string(scope), last);
}

void addTableCards(TableList& list) {
    for (const Place place : tableOrder) {
        const int id = list.g.tavolo(place.row, place.column);
        if (id == 0) continue;
        list.addCard(
            id, placeSpot(list.g, place),
            "table, row " + std::to_string(place.row) + ", column " + std::to_string(place.column));
    }
}

void addHand(TableList& list) {
    const Game& g = list.g;
    if (g.cimaMazzo < firstDeal) return;
    for (int slot = 1; slot <= 3; ++slot)
        list.addCard(g.mazzo(g.cimaMazzo + slot - 3), handSpot(g, slot - 1),
                     "card " + std::to_string(slot) + " of 3 in your hand");
}

/// Whose figures a label of the sheet tells: 0 the human's, 1 the computer's.
struct Figure {
    int row, block, column;
};

Figure figureOf(int index) {
    const int place = index - frmscore::firstFigure;
    return {place / frmscore::labelsPerHand, place % frmscore::labelsPerHand / frmscore::columns,
            place % frmscore::columns};
}

/// A number stands behind a blank, in the place of its sign.
std::string trimmed(const std::string& caption) {
    return caption.starts_with(' ') ? caption.substr(1) : caption;
}

/// A figure alone says nothing to who does not see the column and the row.
std::string nameOfFigure(const Game& g, const Label& label) {
    const Figure figure = figureOf(label.index);
    const int title = frmscore::firstTitle + figure.block * frmscore::columns + figure.column;
    return g.LBLdat(1 + figure.block).Caption + ", row " + std::to_string(figure.row + 1) + ", " +
           g.LBLdat(title).Caption + ' ' + trimmed(label.Caption);
}

std::string nameOfLabel(const Game& g, const Label& label) {
    if (label.source == Source::lblTot) {
        const std::string total =
            g.LBLdat(1 + label.index).Caption + ", total " + trimmed(label.Caption);
        return label.underlined ? total + ", leads" : total;
    }
    const bool figure = label.source == Source::LBLdat && label.index >= frmscore::firstFigure;
    return figure ? nameOfFigure(g, label) : label.Caption;
}

std::string nameOfPrimieraCard(const Game& g, const Image& image) {
    return g.LBLdat(image.index <= 4 ? 1 : 2).Caption + ", primiera, " +
           fullCardName(image.picture);
}

}  // namespace

std::vector<Told> toldOfTable(const Runtime& runtime) {
    const auto& g = static_cast<const Game&>(runtime);
    TableList list{g, {}};
    addControls(list);
    addTurn(list);
    if (g.larghezzaCarta == 0) return list.all;
    addComputersHand(list);
    addPile(list, computer);
    addTableCards(list);
    if (g.cartaGiocata != 0) list.addCard(g.cartaGiocata, playedSpot(g), "played");
    addHand(list);
    addPile(list, human);
    return list.all;
}

std::vector<Told> toldOfSheet(const Runtime& runtime) {
    const auto& g = static_cast<const Game&>(runtime);
    std::vector<const Control*> controls = drawnControls(g.frmscore);
    std::ranges::stable_sort(controls, {}, [](const Control* control) {
        return std::tuple(control->Top, control->Left);
    });
    std::vector<Told> all;
    for (const Control* control : controls) {
        const bool label = control->kind == Kind::label;
        all.push_back({label ? Role::label : Role::picture, control->source, control->index,
                       label ? nameOfLabel(g, static_cast<const Label&>(*control))
                             : nameOfPrimieraCard(g, static_cast<const Image&>(*control)),
                       pixelsOf(*control, g.frmscore.grid)});
    }
    return all;
}
