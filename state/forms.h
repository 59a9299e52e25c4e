// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// The controls of the two forms. Their captions, colours and sizes are set in state/forms.cpp.

#include <map>

#include "platform/array.h"
#include "platform/events.h"
#include "platform/form.h"
#include "platform/media_device.h"
#include "state/event_sources.h"
#include "state/melodies.h"

class Backend;

inline constexpr Colour tableColour = 0x7000;
inline constexpr Colour pureBlue = 0xFF0000;
inline constexpr Colour openingBlue = 0xFF5000;
inline constexpr Colour frameRed = 0xFF;
inline constexpr Colour paleYellow = 0xC0FFFF;
inline constexpr Colour darkRed = 0x000080;

inline constexpr int firstRate = 1, lastRate = 3;  ///< indices in velocità_gioco

/// What frmscopa, the table, holds.
struct TableForm {
    Form frmscopa;
    Array<Image, 40> carta;  ///< never shown: the picture of a card, where it last was, its mark
    Array<Image, 2> dorso;   ///< never shown: the computer's slots; Tag is the id held, or "0"
    Image Mazzo;             ///< never shown: the back of a card
    Array<Image, 10> Gorilla;
    Array<Image, 5> Mask2;
    Array<Image, 1> Verde, Rosso;  ///< turn lamps: 0 the human's, 1 the computer's
    Image Picture2, Picture4;      ///< the scopa banner, the title
    Array<OptionButton, 2> Option1;
    Button GO;
    TextBox Text1, Text3, Text4;  ///< rules in English, rules in Italian, information
    MenuEntry play_rate, istruzioni, Italiano, english, Musica, menu_about, esci;
    Array<MenuEntry, lastRate> velocità_gioco;  ///< from 1
    Array<MenuEntry, lastMelody> canzoni;
    Timer Timer1, Timer2;
    MMControl MMC1, MMCw;
};

/// A control array that grows while the program runs: a new element is a copy of element 0.
class LabelArray {
public:
    Label& operator()(int i) { return labels_.at(i); }
    const Label& operator()(int i) const { return labels_.at(i); }
    bool loaded(int i) const { return labels_.contains(i); }
    std::map<int, Label>& all() { return labels_; }

private:
    std::map<int, Label> labels_;
};

/// What frmscore, the score sheet, holds.
struct ScoreForm {
    Form frmscore;
    Label LBLtit;
    LabelArray LBLdat;
    Array<Label, 1> lblTot;
    Array<Image, 8> imgset;
    Button Command1, Command2;
};

/// Gives the table's controls their design values and puts them on the form.
void designTable(TableForm&, Backend&);

/// The same for the score sheet. Called at each load: labels loaded at run time are gone then.
void designScore(ScoreForm&, Backend&);

/// Loads a label of the array as a hidden copy of element 0; an index in use stays as it is.
void loadLabel(Form&, LabelArray&, int index);
