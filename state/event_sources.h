// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/controls.h"

/// Everything that raises events: the two forms, their controls, timers and sound devices. The
/// procedures that answer stand in the event table.
enum class Source : std::uint8_t {
    frmscopa,
    frmscore,
    carta,
    dorso,
    Mazzo,
    Gorilla,
    Mask2,
    Verde,
    Rosso,
    Picture2,
    Picture4,
    Option1,
    GO,
    Text1,
    Text3,
    Text4,
    play_rate,
    velocità_gioco,
    istruzioni,
    Italiano,
    english,
    Musica,
    canzoni,
    menu_about,
    esci,
    Timer1,
    Timer2,
    MMC1,
    MMCw,
    LBLtit,
    LBLdat,
    lblTot,
    imgset,
    Command1,
    Command2,
};
