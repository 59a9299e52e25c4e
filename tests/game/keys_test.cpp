// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Which cards the keys press, and where the ring is that shows them.

#include "game/keys.h"
#include "desk.h"
#include "game/human.h"

namespace {

/// The human is to choose a card of the hand, or of the table.
struct Player : Desk {
    explicit Player(const char* fase, const Cards& hand = {2, 3, 4}, const Cards& table = {}) {
        g.giocatore = human;
        giveHuman(hand);
        layTable(table);
        g.fase = fase;
    }

    void keys(const std::vector<Key>& struck) {
        for (const Key key : struck) deliver(g, {Source::frmscopa, Verb::KeyDown, int(key)});
    }

    /// The card inside the ring, 0 without a ring.
    int ringed() const {
        for (const Pressable& card : pressable(g))
            if (card.box.left == g.frmscopa.ring.left && card.box.top == g.frmscopa.ring.top)
                return card.id;
        return 0;
    }

    void deliverQueued() { rtcDoEvents(g, atOnce); }
};

const Cards gappedTable{11, 0, 12, 0, 0, 0, 0, 0, 0, 13, 0, 14};

TEST(Keys, LeadTheRingAlongTheHand) {
    Player player("gioco1");
    const std::pair<Key, int> steps[] = {{Key::Left, 2},  {Key::Left, 2},  {Key::Right, 3},
                                         {Key::Right, 4}, {Key::Right, 4}, {Key::Up, 4},
                                         {Key::Home, 2},  {Key::End, 4}};
    EXPECT_EQ(player.ringed(), 0) << "before the first arrow";
    for (const auto& [key, card] : steps) {
        player.keys({key});
        EXPECT_EQ(player.ringed(), card) << "after key " << int(key);
    }
    deliver(player.g, {Source::frmscopa, Verb::MouseMove});
    EXPECT_EQ(player.ringed(), 0) << "once the mouse has moved";
}

TEST(Keys, LeadTheRingOverTheGapsOfTheTable) {
    Player player("selezione", {}, gappedTable);
    player.keys({Key::Right});
    const std::pair<Key, int> steps[] = {{Key::Right, 12}, {Key::Down, 13}, {Key::Down, 13},
                                         {Key::Right, 14}, {Key::Up, 12},   {Key::Up, 12},
                                         {Key::Left, 11},  {Key::Down, 13}, {Key::Up, 11}};
    EXPECT_EQ(player.ringed(), 11);
    for (const auto& [key, card] : steps) {
        player.keys({key});
        EXPECT_EQ(player.ringed(), card) << "after key " << int(key);
    }
    player.keys({Key::End, Key::Press});
    player.deliverQueued();
    EXPECT_EQ(notation(player.marked()), notation({14}));
}

TEST(Keys, PlayTheCardOfTheirNumberOrTheRinged) {
    const std::pair<std::vector<Key>, int> cases[] = {
        {{Key::One}, 2},
        {{Key::Three}, 4},
        {{Key::Press}, 0},
        {{Key::Right, Key::Press}, 2},
        {{Key::End, Key::Press}, 4},
        {{Key::Two, Key::One}, 3},
        {{Key::End, Key::Press, Key::One}, 4},
    };
    for (const auto& [struck, card] : cases) {
        Player player("gioco1");
        player.keys(struck);
        EXPECT_EQ(player.g.cartaGiocata, 0) << "before the press has come through the queue";
        player.deliverQueued();
        EXPECT_EQ(player.g.cartaGiocata, card) << struck.size() << " keys";
    }
}

TEST(Keys, AndTheMouseAtTheSameMomentPlayOneCard) {
    Player player("gioco1");
    const Spot third = handSpot(player.g, 2);
    player.keys({Key::One});
    pressAt(player.g, player.g.frmscopa, third.left + 9, third.top + 9, 1);
    player.deliverQueued();
    EXPECT_EQ(player.g.cartaGiocata, 2);
    EXPECT_NE(Point(player.g.frmscopa, third.left + 9, third.top + 9), tableColour);
}

TEST(Keys, PassOverACardThatHasBeenPlayed) {
    Player player("gioco1", {2, 0, 4});
    player.keys({Key::Two});
    EXPECT_TRUE(player.g.queue.empty());
    player.keys({Key::Right, Key::Right});
    EXPECT_EQ(player.ringed(), 4);
}

TEST(Keys, DoNothingOutsideTheirMoment) {
    for (const char* fase : {"", "selezione"}) {
        Player player(fase);
        player.keys({Key::One, Key::Right, Key::End, Key::Press, Key::Escape});
        EXPECT_TRUE(player.g.queue.empty()) << "fase: " << fase;
        EXPECT_EQ(player.ringed(), 0) << "fase: " << fase;
    }
    Player played("gioco1");
    played.g.cartaGiocata = 2;
    played.keys({Key::Three, Key::Right, Key::Press});
    EXPECT_TRUE(played.g.queue.empty()) << "while the card played is looked at";
}

TEST(Ring, GoesWithTheCardAndComesBackAtTheNextChoice) {
    Player player("", {3, 4, 5}, {1, 2, 5, 6});
    player.g.ringInUse = true;
    std::vector<int> seen;
    player.backend.time.user = [&](double until) {
        if (until == atOnce) return false;
        if (until != never) {
            EXPECT_EQ(player.g.frmscopa.ring.right, 0) << "while the game goes on";
            return false;
        }
        seen.push_back(player.ringed());
        // The three takes the ace and the two that lie first.
        player.keys({Key::Press, Key::Right});
        return true;
    };
    frmscopa::gioco1(player.g);
    frmscopa::verifica(player.g);
    EXPECT_EQ(seen, (std::vector{3, 1, 2}));
}

TEST(Ring, IsNotUsedUnseenWhileASweepIsJudged) {
    Player player("", {2, 3, 11}, {5});
    player.g.ringInUse = true;
    player.backend.time.user = [&](double until) {
        const bool choosing = until == never;
        if (choosing) player.keys({Key::End, Key::Press});
        if (until == atOnce && player.g.fase == "selezione") {
            player.keys({Key::Press});
            EXPECT_TRUE(player.g.queue.empty()) << "there is no ring to press in";
        }
        return choosing;
    };
    frmscopa::gioco1(player.g);
    frmscopa::verifica(player.g);
    EXPECT_EQ(notation(player.presa()), notation({5}));
}

TEST(Escape, ClosesThePanelInFront) {
    Player player("gioco1");
    Game& g = player.g;
    deliver(g, {Source::english});
    deliver(g, {Source::menu_about});
    player.keys({Key::Escape});
    player.deliverQueued();
    EXPECT_TRUE(g.Text1.Visible && !g.Text4.Visible) << "the information lay in front";
    player.keys({Key::Escape});
    player.deliverQueued();
    EXPECT_FALSE(g.Text1.Visible);
}

TEST(Arrows, ChooseTheMatchAndEnterBegins) {
    Player player("");
    Game& g = player.g;
    g.GO.Visible = true;
    const std::pair<Key, int> steps[] = {{Key::Up, 0},   {Key::Down, 1}, {Key::Right, 2},
                                         {Key::Down, 2}, {Key::Left, 1}, {Key::End, 2}};
    for (const auto& [key, chosen] : steps) {
        player.keys({key});
        player.deliverQueued();
        EXPECT_EQ(g.tipoPartita, chosen) << "after key " << int(key);
        EXPECT_TRUE(g.Option1(chosen).Value);
    }
    player.keys({Key::Press});
    player.deliverQueued();
    EXPECT_TRUE(g.sceltaFatta);
}

}  // namespace
