// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What a reader of the screen finds on the table: everything that is seen, and nothing else.

#include "speech/objects.h"

#include <gtest/gtest.h>

#include "platform/headless/headless.h"
#include "state/state.h"
#include "table/lamps.h"
#include "table/painting.h"

namespace {

using Names = std::vector<std::string>;

struct Objects : testing::Test {
    Objects() {
        g.mazziere = computer;
        measureWindow(g);
        measureCards(g);
        measurePiles(g);
        BackColor(g.frmscopa, tableColour);
        placeLamps(g);
        showLamps(g);
    }
    Names names() const {
        Names found;
        for (const Told& told : toldOfTable(g)) found.push_back(told.name);
        return found;
    }
    void layCard(int id, Place place) {
        g.tavolo(place.row, place.column) = id;
        showCard(g, id, placeSpot(g, place));
    }
    Headless backend;
    Game g{backend, {}};
};

TEST_F(Objects, AreToldFromTopToBottomWithNameAndPlace) {
    showTurn(g, human);
    for (const int slot : {0, 2}) paintAtCardSize(g, picture::back, computersSpot(g, slot));
    paintAtCardSize(g, picture::back, deckSpot(g));
    layCard(11, {1, 2});
    layCard(40, {3, 4});
    mark(g, 40);
    g.cimaMazzo = 7;
    g.mazzo(5) = 7;
    g.mazzo(6) = 23;
    g.mazzo(7) = 12;  // played before, and laid
    showCard(g, 7, handSpot(g, 0));
    showCard(g, 23, playedSpot(g));
    g.cartaGiocata = 23;
    paintAtCardSize(g, picture::back, pileSpot(g, human));
    g.scope(human) = 2;
    showCard(g, 3, scopaSpot(g, human, 2));
    const Names expected{"Your turn",
                         "2 cards in the computer's hand",
                         "The deck, on the computer's side",
                         "ace of cups, table, row 1, column 2",
                         "ten of swords, table, row 3, column 4, taken",
                         "three of clubs, played",
                         "seven of coins, settebello, card 1 of 3 in your hand",
                         "Your pile",
                         "Your scope: 2"};
    EXPECT_EQ(names(), expected);
    const Told ace = toldOfTable(g).at(3);
    const Spot spot = placeSpot(g, {1, 2});
    EXPECT_EQ(ace.place, toPixels({spot.left, spot.top, spot.left + g.larghezzaCarta,
                                   spot.top + g.altezzaCarta},
                                  g.frmscopa.grid));
}

TEST_F(Objects, ThatAreCoveredOrNotYetShownAreNotTold) {
    showTurn(g, computer);
    layCard(11, {1, 1});
    g.tavolo(1, 2) = 12;  // not painted yet
    layCard(13, {1, 3});
    showCard(g, 30, placeSpot(g, {1, 3}));  // the fan rises over it
    g.scope(computer) = 1;
    const Names expected{"The computer's turn", "ace of cups, table, row 1, column 1"};
    EXPECT_EQ(names(), expected);
}

}  // namespace
