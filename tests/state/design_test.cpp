// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What the windows say and how large their parts are designed, read from outside.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

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
        if (entry->source == Source::canzoni) continue;
        bar += (entry->topLevel ? "\n" : " ") + entry->Caption + (entry->heading ? ":" : "");
    }
    EXPECT_EQ(bar,
              "\n&Play rate: Low Middle High\n&Game rules: Italiano English\n&Music:\n&Info\n"
              "&QUIT");
}

/// Settings files hold the numbers.
TEST_F(Design, TheMelodiesStayAtTheirNumbers) {
    const char* const delivered[] = {"None",     "Humanoid", "Impact",   "Go4yrgun", "Sevilana",
                                     "Bugs",     "Astro",    "Champion", "Champs",   "Easycity",
                                     "Fastlane", "Lastday",  "Scopa"};
    for (int number = 0; const char* name : delivered) EXPECT_EQ(g.canzoni(number++).Caption, name);
}

TEST_F(Design, TheControlsHaveTheirCaptions) {
    const std::pair<std::string, const char*> captions[] = {
        {g.frmscopa.Caption, "Corvalia - Velarda"},
        {g.frmscore.Caption, "Corvalia - Scopa"},
        {g.Option1(0).Caption, "Single Game"},
        {g.Option1(1).Caption, "11 points Game"},
        {g.Option1(2).Caption, "21 points Game"},
        {g.GO.Caption, "GO"},
        {g.LBLtit.Caption, "SCORE"},
        {g.Command1.Caption, "NEW GAME"},
        {g.Command2.Caption, "QUIT"}};
    for (const auto& [caption, expected] : captions) EXPECT_EQ(caption, expected);
}

TEST_F(Design, TheControlsHaveTheirSizes) {
    const struct {
        Control& control;
        float twipsAcross, twipsDown;
    } scaled[] = {{g.carta(40), 1200, 2232}, {g.Gorilla(10), 1260, 1704}, {g.Mask2(5), 1800, 1356},
                  {g.Verde(1), 384, 384},    {g.Rosso(1), 384, 384},      {g.Picture2, 852, 384},
                  {g.Picture4, 8796, 1548},  {g.Option1(2), 3012, 252},   {g.GO, 1812, 360}};
    for (const auto& [control, across, down] : scaled) {
        EXPECT_FLOAT_EQ(control.Width, across * 800 / 15432) << int(control.source);
        EXPECT_FLOAT_EQ(control.Height, down * 600 / 12360) << int(control.source);
    }
    const struct {
        Control& control;
        int pixelsAcross, pixelsDown;
    } fixed[] = {{g.Text1, 360, 242},
                 {g.Text3, 360, 242},
                 {g.Text4, 221, 101},
                 {g.imgset(8), 31, 50},
                 {g.lblTot(1), 0, 31}};
    for (const auto& [control, across, down] : fixed) {
        EXPECT_EQ(control.fixedWidth, across) << int(control.source);
        EXPECT_EQ(control.fixedHeight, down) << int(control.source);
    }
}

TEST_F(Design, TheLabelsHaveTheirColoursAndFonts) {
    const struct {
        const Label& label;
        Colour fore, back;
        float points;
        bool bold;
    } labels[] = {{g.LBLtit, 0x000080, 0xC0FFFF, 19.2f, true},
                  {g.LBLdat(0), 0, 0xC0FFC0, 12, false},
                  {g.LBLdat(2), 0, 0xFFFF80, 12, false},
                  {g.lblTot(1), 0, 0x80C0FF, 12, true}};
    for (const auto& [label, fore, back, points, bold] : labels) {
        EXPECT_EQ(label.ForeColor, fore) << int(label.source);
        EXPECT_EQ(label.BackColor, back) << int(label.source);
        EXPECT_EQ(label.FontSize, points) << int(label.source);
        EXPECT_EQ(label.bold, bold) << int(label.source);
    }
    for (const OptionButton& option : g.Option1) {
        EXPECT_EQ(option.ForeColor, 0x000080);
        EXPECT_EQ(option.BackColor, 0xC0FFFF);
    }
    for (const TextBox* panel : {&g.Text1, &g.Text3, &g.Text4})
        EXPECT_EQ(panel->BackColor, 0xC0FFFF) << panel->name;
}

/// A line with a tab is one of the values.
TEST_F(Design, TheRulesTellWhatTheGameCounts) {
    const struct {
        const TextBox& panel;
        const char *heading, *values;
    } panels[] = {
        {g.Text1, "Game Rules", "Seven 21 Six 18 Ace 16 Five 15 Four 14 Three 13 Figures 10 "},
        {g.Text3, "Regole del gioco",
         "Sette 21 Sei 18 Asso 16 Cinque 15 Quattro 14 Tre 13 Figure 10 "}};
    for (const auto& [panel, heading, expected] : panels) {
        std::istringstream lines(panel.Text);
        std::string values, line;
        for (bool headed = false; std::getline(lines, line);) {
            headed = headed || line == heading;
            const std::size_t tab = line.find('\t');
            if (tab == std::string::npos) continue;
            EXPECT_TRUE(headed) << "the heading " << heading << " comes first";
            values += line.substr(0, line.find_first_of(" \t")) + ' ' + line.substr(tab + 1) + ' ';
        }
        EXPECT_EQ(values, expected);
        EXPECT_EQ(panel.Text.rfind("Lumeria (Velarda)\n", 0), 0u) << panel.name;
        EXPECT_EQ(line, "------------------------------") << panel.name;
    }
    EXPECT_EQ(g.Text4.Text.rfind("Velarda  ver. 3.0\n", 0), 0u) << "the first of its three lines";
    EXPECT_EQ(std::ranges::count(g.Text4.Text, '\n'), 2) << "three lines";
}

TEST(Rounded, GoesToTheEvenNumberFromAHalf) {
    const std::pair<float, int> cases[] = {
        {266.6f, 267}, {266.4f, 266}, {131.5f, 132}, {130.5f, 130}};
    for (const auto& [value, whole] : cases) EXPECT_EQ(rounded(value), whole);
}

}  // namespace
