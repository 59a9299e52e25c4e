// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The settings file: what is read from it, and what each choice writes.

#include "preferences/settings.h"

#include <gtest/gtest.h>

#include "platform/headless/headless.h"
#include "preferences/music.h"
#include "state/state.h"

namespace {

void expectRead(const std::string& text, int brano, int velocita, float scala) {
    const SettingsFile read = parseSettings(text);
    EXPECT_EQ(read.brano, brano) << testing::PrintToString(text);
    EXPECT_EQ(read.velocita, velocita) << testing::PrintToString(text);
    EXPECT_EQ(read.scala, scala) << testing::PrintToString(text);
}

TEST(SettingsFile, PartsItsNumbersByCommasBlanksAndLineEnds) {
    for (const char* text :
         {" 3 \r\n 1 \r\n 80 \r\n", "\n 3\n\n1   80", "3,1 80 \x1a", "3 ,1,\n80"})
        expectRead(text, 3, 1, 80);
    expectRead(std::string(100000, '\n') + "4,1,90", 4, 1, 90);
}

TEST(SettingsFile, HasItsDeliveredValueForWhatIsUnsound) {
    for (const char* bad : {"", "-1", "5x", "0x5", "nan", "inf", "1e99", "\xff\x80"}) {
        const std::string field = bad;
        expectRead(field + ",3,90", 12, 3, 90);
        expectRead("5," + field + ",90", 5, 2, 90);
        expectRead("5,3," + field, 5, 3, 100);
    }
    expectRead("", 12, 2, 100);
    expectRead("4294967301,0,90", 12, 2, 90);
    expectRead("13,4,90", 12, 2, 90);
    expectRead("0,1,0", 0, 1, 100);
}

/// Which entries of the menu are checked.
std::string checkedEntries(const Game& g) {
    std::string checked;
    for (const MenuEntry* entry : g.frmscopa.menu)
        if (entry->Checked) checked += entry->Caption + ' ';
    return checked;
}

TEST(Settings, AreWrittenByteForByteAtEachChoice) {
    for (const std::string scale : {"10", "40", "62.54321", "77", "83", "99", "106", "1000"}) {
        Headless backend;
        backend.settings = "5,2," + scale;
        Game g(backend, {});
        frmscopa::readSettings(g);
        EXPECT_EQ(checkedEntries(g), "Middle Bugs ");
        EXPECT_EQ(backend.settingsWritten, 0) << "reading writes nothing";
        frmscopa::canzoni_Click(g, 7);
        EXPECT_EQ(checkedEntries(g), "Middle Champion ");
        EXPECT_EQ(backend.settings, " 7 \r\n 2 \r\n " + scale + " \r\n");
        frmscopa::velocità_gioco_Click(g, 3);
        EXPECT_EQ(checkedEntries(g), "High Champion ");
        EXPECT_EQ(backend.settings, " 7 \r\n 3 \r\n " + scale + " \r\n");
    }
}

}  // namespace
