// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What the windows say, in which colours and sizes, read from outside.

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/headless/headless.h"
#include "state/rounding.h"
#include "state/state.h"

namespace {

struct Design : testing::Test {
    Headless backend;
    Game g{backend, {}};
};

TEST_F(Design, TheMenuBarHasItsEntries) {
    std::string bar;
    for (const MenuEntry* entry : g.frmscopa.menu) {
        if (entry->index > 12) continue;  // a melody of later; those delivered keep their numbers
        bar += (entry->topLevel ? "\n" : " ") + entry->Caption + (entry->heading ? ":" : "");
    }
    EXPECT_EQ(bar,
              "\n&Play rate: Low Middle High\n&Game rules: Italiano English"
              "\n&Music: None Humanoid Impact Go4yrgun Sevilana Bugs Astro Champion Champs"
              " Easycity Fastlane Lastday Scopa\n&Info\n&QUIT");
}

TEST_F(Design, TheFormsHaveTheirCaptions) {
    EXPECT_EQ(g.frmscopa.Caption, "Corvalia - Velarda");
    EXPECT_EQ(g.frmscore.Caption, "Corvalia - Scopa");
    EXPECT_EQ(g.Command2.Caption, "QUIT");
}

TEST_F(Design, TheControlsHaveTheirSizes) {
    const std::tuple<const Control&, float, float> scaled[] = {{g.Gorilla(10), 1260, 1704},
                                                               {g.Mask2(5), 1800, 1356},
                                                               {g.Verde(1), 384, 384},
                                                               {g.Rosso(1), 384, 384}};
    for (const auto& [control, twipsAcross, twipsDown] : scaled) {
        EXPECT_FLOAT_EQ(control.Width, twipsAcross * 800 / 15432) << int(control.source);
        EXPECT_FLOAT_EQ(control.Height, twipsDown * 600 / 12360) << int(control.source);
    }
    const std::tuple<const Control&, int, int> fixed[] = {
        {g.Text1, 360, 242}, {g.Text3, 360, 242}, {g.Text4, 221, 101}, {g.imgset(8), 31, 50}};
    for (const auto& [control, pixelsAcross, pixelsDown] : fixed) {
        EXPECT_EQ(control.fixedWidth, pixelsAcross) << int(control.source);
        EXPECT_EQ(control.fixedHeight, pixelsDown) << int(control.source);
    }
}

TEST_F(Design, TheLabelsHaveTheirColoursAndFonts) {
    const std::tuple<const Label&, Colour, float, bool> labels[] = {
        {g.LBLtit, 0xC0FFFF, 19.2f, true},
        {g.LBLdat(0), 0xC0FFC0, 12, false},
        {g.LBLdat(2), 0xFFFF80, 12, false},
        {g.lblTot(1), 0x80C0FF, 12, true}};
    for (const auto& [label, back, points, bold] : labels) {
        EXPECT_EQ(label.BackColor, back) << int(label.source);
        EXPECT_EQ(label.FontSize, points) << int(label.source);
        EXPECT_EQ(label.bold, bold) << int(label.source);
    }
    EXPECT_EQ(g.Option1(2).ForeColor, 0x000080);
    EXPECT_EQ(g.Option1(2).BackColor, 0xC0FFFF);
    for (const TextBox* panel : {&g.Text1, &g.Text3, &g.Text4})
        EXPECT_EQ(panel->BackColor, 0xC0FFFF) << panel->name;
}

TEST_F(Design, ThePanelsSayWhatTheGameCounts) {
    EXPECT_NE(g.Text1.Text.find("\nSeven\t21\nSix\t18\nAce\t16\nFive\t15\nFour\t14\nThree\t13\n"
                                "Figures (eight, nine and ten)\t10\n"),
              std::string::npos);
    EXPECT_NE(g.Text3.Text.find("\nSette\t21\nSei\t18\nAsso\t16\nCinque\t15\nQuattro\t14\n"
                                "Tre\t13\nFigure (otto, nove e dieci)\t10\n"),
              std::string::npos);
    const std::pair<const TextBox&, const char*> beginnings[] = {
        {g.Text1, "Lumeria (Velarda)\n\nPlay cards"},
        {g.Text3, "Lumeria (Velarda)\n\nUna partita"},
        {g.Text4, "Velarda  ver. 3.0\n"}};
    for (const auto& [panel, words] : beginnings)
        EXPECT_TRUE(panel.Text.starts_with(words)) << panel.Text.substr(0, 40);
    EXPECT_EQ(std::ranges::count(g.Text4.Text, '\n'), 2) << "three lines";
}

TEST(Rounded, GoesToTheEvenNumberFromAHalf) {
    const std::pair<float, int> cases[] = {
        {266.6f, 267}, {266.4f, 266}, {131.5f, 132}, {130.5f, 130}};
    for (const auto& [value, whole] : cases) EXPECT_EQ(rounded(value), whole);
}

}  // namespace
