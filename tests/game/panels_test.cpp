// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Which events open and close the panels.

#include "desk.h"

namespace {

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

TEST(Panels, CloseByTheRightEvents) {
    const struct {
        const char* what;
        Event event;
        int closes;
    } cases[] = {{"the English rules", {Source::Text1}, english},
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
        for (const auto& [what, event, closes] : cases) {
            EXPECT_EQ(openAfter(before, event), before & ~closes) << what << " on " << before;
            EXPECT_EQ(openAfter(before, event, 0xFF0000), before & ~closes) << what << ", blue";
        }
}

TEST(Panels, OpenByTheMenu) {
    for (int before = 0; before <= all; ++before) {
        EXPECT_EQ(openAfter(before, {Source::Italiano}), (before & ~english) | italian);
        EXPECT_EQ(openAfter(before, {Source::english}), (before & ~italian) | english);
        EXPECT_EQ(openAfter(before, {Source::menu_about}), (before & ~italian) ^ information);
    }
}

TEST(Panels, TheOneOpenedLastIsInFront) {
    Desk desk;
    deliver(desk.g, {Source::english});
    deliver(desk.g, {Source::menu_about});
    EXPECT_GT(desk.g.Text4.z, desk.g.Text1.z);
    deliver(desk.g, {Source::Italiano});
    EXPECT_GT(desk.g.Text3.z, desk.g.Text4.z);
}

}  // namespace
