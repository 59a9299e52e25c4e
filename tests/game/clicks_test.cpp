// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Which clicks count on the table, and which open and close the panels.

#include <algorithm>

#include "desk.h"
#include "game/human.h"

namespace {

TEST(Presses, CountOnlyWhereACardIsSeenAndOnlyTheFirst) {
    const std::pair<float, int> cases[] = {{362.5f, 2}, {363.5f, 0}, {368.5f, 0},
                                           {369.5f, 3}, {434, 0},    {437.25f, 4}};
    for (const auto& [x, card] : cases) {
        Desk desk;
        desk.giveHuman({2, 3, 4});
        desk.g.fase = "gioco1";
        frmscopa::Form_MouseDown(desk.g, 1, 0, x, 540);
        EXPECT_EQ(desk.g.cartaGiocata, card) << "pressed at " << x;
        frmscopa::Form_MouseDown(desk.g, 1, 0, 332, 540);
        EXPECT_EQ(desk.g.cartaGiocata, card == 0 ? 2 : card) << "pressed at " << x << " before";
    }
}

TEST(Presses, OnALampAreNoneOnTheTable) {
    Desk desk;
    Move(desk.g.Verde(0), 620, 514);
    desk.g.Verde(0).Visible = true;
    pressAt(desk.g, desk.g.frmscopa, 636, 530, 1);
    ASSERT_EQ(desk.g.queue.size(), 1u);
    EXPECT_EQ(desk.g.queue.back().source, Source::Verde);
}

TEST(Presses, AreSaidWithTheirSum) {
    Desk desk;
    desk.backend.listens = true;
    desk.giveHuman({37});
    desk.layTable({5, 14, 3});
    EXPECT_TRUE(desk.humanPlays({1, 2, 1, 3}, {}));
    const std::vector<std::string> expected{
        "You play the seven of swords. You must take: choose cards that add up to 7.",
        "five of coins marked, 5 of 7.", "four of cups marked, 9 of 7.",
        "five of coins let go, 4 of 7."};
    EXPECT_EQ(desk.backend.announced, expected) << "the last mark is told by the capture";
}

TEST(Presses, ThatAreNotPossibleAreSaid) {
    Desk desk;
    desk.backend.listens = true;
    desk.giveHuman({7});
    desk.layTable({17, 3, 27});
    EXPECT_TRUE(desk.humanPlays({4, 2, 2, 3}, {}));
    const std::vector<std::string> expected{
        "You play the seven of coins. You must take: choose the seven of cups or the seven of "
        "clubs.",
        "Not possible.",
        "three of coins marked, not possible: only the seven of cups or the seven of clubs.",
        "three of coins let go."};
    EXPECT_EQ(desk.backend.announced, expected);
    frmscopa::Form_MouseDown(desk.g, 1, 0, 5, 5);
    EXPECT_EQ(desk.backend.announced.back(), "Not possible.") << "nothing is wanted any more";
}

constexpr int english = 1, italian = 2, information = 4, all = 7;

/// Which panels are open after an event that found these open.
int openAfter(int before, const Event& event, Colour surface = 0x7000) {
    Desk desk;
    Game& g = desk.g;
    BackColor(g.frmscopa, surface);
    g.Text1.Visible = before & english;
    g.Text3.Visible = before & italian;
    g.Text4.Visible = before & information;
    deliver(g, event);
    return g.Text1.Visible * english + g.Text3.Visible * italian + g.Text4.Visible * information;
}

TEST(Panels, AreSaidWhenTheyOpen) {
    Desk desk;
    desk.backend.listens = true;
    const Event english_Click{Source::english}, info{Source::menu_about};
    for (const Event& event : {info, info, english_Click}) deliver(desk.g, event);
    const std::vector<std::string>& said = desk.backend.announced;
    EXPECT_EQ(said.at(0), "Information.");
    EXPECT_EQ(said.at(1), "Velarda  ver. 3.0");
    EXPECT_EQ(said.at(4), "Game rules.") << "nothing was said of the panel that closed";
    EXPECT_EQ(std::ranges::count(said, "Seven, 21"), 1) << "a row of the table of values";
}

TEST(Panels, CloseByTheRightEvents) {
    const std::tuple<const char*, Event, int> cases[] = {
        {"the English rules", {Source::Text1}, english},
        {"the Italian rules", {Source::Text3}, italian},
        {"the information", {Source::Text4}, 0},
        {"a green lamp", {Source::Verde, Verb::Click, 1}, all},
        {"a red lamp", {Source::Rosso, Verb::Click, 1}, all},
        {"a back", {Source::dorso, Verb::Click, 1}, all},
        {"the deck", {Source::Mazzo}, all},
        {"GO", {Source::GO}, all},
        {"an option", {Source::Option1, Verb::Click, 1}, 0},
        {"a rate", {Source::velocità_gioco, Verb::Click, 1}, 0},
        {"a melody", {Source::canzoni, Verb::Click, 1}, 0},
        {"a change of the Italian rules", {Source::Text3, Verb::Change}, 0},
        {"a change of the information", {Source::Text4, Verb::Change}, information},
        {"the surface", {Source::frmscopa, Verb::MouseDown}, all}};
    for (int before = 0; before <= all; ++before)
        for (const auto& [what, event, closes] : cases)
            for (const Colour surface : {0x7000, 0xFF0000})
                EXPECT_EQ(openAfter(before, event, surface), before & ~closes)
                    << what << ", open: " << before << ", surface: " << surface;
}

TEST(Panels, OpenByTheMenuInFront) {
    for (int before = 0; before <= all; ++before) {
        EXPECT_EQ(openAfter(before, {Source::Italiano}), (before & ~english) | italian);
        EXPECT_EQ(openAfter(before, {Source::english}), (before & ~italian) | english);
        EXPECT_EQ(openAfter(before, {Source::menu_about}), (before & ~italian) ^ information);
    }
    Desk desk;
    deliver(desk.g, {Source::english});
    deliver(desk.g, {Source::menu_about});
    EXPECT_GT(desk.g.Text4.z, desk.g.Text1.z);
    deliver(desk.g, {Source::Italiano});
    EXPECT_GT(desk.g.Text3.z, desk.g.Text4.z);
}

}  // namespace
