// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

struct Game;

/// The settings as the file holds them: music entry 0 to lastMelody, play rate firstRate to
/// lastRate, card scale in percent, 1e-30 to 1e30.
struct SettingsFile {
    int brano = 12;
    int velocita = 2;
    float scala = 100;
};

/// Reads three numbers that commas, blanks or line ends part. A number that is missing or out of
/// its range has its delivered value; the others count all the same.
SettingsFile parseSettings(const std::string& text);

/// The text of the file: each number on its own line between two blanks.
std::string formatSettings(const SettingsFile&);

namespace frmscopa {

/// Leaves brano, velocita and scalaCarte from the settings file and checks their menu entries.
void readSettings(Game&);

/// Writes the three values as they stand. velocita is ten times the index here.
void writeSettings(Game&);

void velocità_gioco_Click(Game&, int Index);  ///< Index firstRate to lastRate

}  // namespace frmscopa
