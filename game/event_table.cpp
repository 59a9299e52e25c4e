// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/event_table.h"

#include <type_traits>

#include "game/driver.h"
#include "game/human.h"
#include "game/keys.h"
#include "game/match.h"
#include "preferences/music.h"
#include "preferences/never_called.h"
#include "preferences/panels.h"
#include "preferences/settings.h"
#include "speech/objects.h"
#include "state/state.h"
#include "table/ace_sweep.h"
#include "table/opening_screen.h"

namespace {

constexpr int closeCommand = 0;  ///< UnloadMode of the window's own close command

/// Calls a procedure of the game with what it takes of the event.
template <auto procedure>
void run(Runtime& runtime, const Event& event) {
    auto& g = static_cast<Game&>(runtime);
    if constexpr (std::is_invocable_v<decltype(procedure), Game&>) {
        procedure(g);
    } else if constexpr (std::is_invocable_v<decltype(procedure), Game&, Key>) {
        procedure(g, static_cast<Key>(event.index));
    } else if constexpr (std::is_invocable_v<decltype(procedure), Game&, int>) {
        procedure(g, event.verb == Verb::QueryUnload ? closeCommand : event.index);
    } else {
        procedure(g, event.Button, event.Shift, event.X, event.Y);
    }
}

constexpr Handler table[] = {
    // The table.
    {Source::frmscopa, Verb::Load, run<frmscopa::Form_Load>},
    {Source::frmscopa, Verb::Activate, run<frmscopa::Form_Activate>},
    {Source::frmscopa, Verb::Resize, run<frmscopa::Form_Resize>},
    {Source::frmscopa, Verb::MouseDown, run<frmscopa::Form_MouseDown>},
    {Source::frmscopa, Verb::MouseMove, run<frmscopa::Form_MouseMove>},
    {Source::frmscopa, Verb::KeyDown, run<frmscopa::Form_KeyDown>},
    {Source::frmscopa, Verb::QueryUnload, run<frmscopa::Form_QueryUnload>},
    {Source::frmscopa, Verb::Unload, run<frmscopa::Form_Unload>},
    {Source::Verde, Verb::Click, run<frmscopa::Verde_Click>},
    {Source::Rosso, Verb::Click, run<frmscopa::Rosso_Click>},
    {Source::Timer1, Verb::Timer, run<frmscopa::Timer1_Timer>},
    {Source::Timer2, Verb::Timer, run<frmscopa::Timer2_Timer>},
    // The opening screen.
    {Source::Option1, Verb::Click, run<frmscopa::Option1_Click>},
    {Source::GO, Verb::Click, run<frmscopa::GO_Click>},
    // The menus and the panels.
    {Source::velocità_gioco, Verb::Click, run<frmscopa::velocità_gioco_Click>},
    {Source::Italiano, Verb::Click, run<frmscopa::Italiano_Click>},
    {Source::english, Verb::Click, run<frmscopa::english_Click>},
    {Source::canzoni, Verb::Click, run<frmscopa::canzoni_Click>},
    {Source::menu_about, Verb::Click, run<frmscopa::menu_about_Click>},
    {Source::esci, Verb::Click, run<frmscopa::esci_Click>},
    {Source::Text1, Verb::Click, run<frmscopa::Text1_Click>},
    {Source::Text3, Verb::Click, run<frmscopa::Text3_Click>},
    // The music.
    {Source::MMC1, Verb::Done, run<frmscopa::MMC1_Done>},
    // The score sheet.
    {Source::frmscore, Verb::Load, run<frmscore::Form_Load>},
    {Source::frmscore, Verb::Activate, run<frmscore::Form_Activate>},
    {Source::frmscore, Verb::Resize, run<frmscore::Form_Resize>},
    {Source::frmscore, Verb::QueryUnload, run<frmscore::Form_QueryUnload>},
    {Source::Command1, Verb::Click, run<frmscore::Command1_Click>},
    {Source::Command2, Verb::Click, run<frmscore::Command2_Click>},
    // Answers to events that never come.
    {Source::dorso, Verb::Click, run<frmscopa::dorso_Click>},
    {Source::Mazzo, Verb::Click, run<frmscopa::Mazzo_Click>},
    {Source::Text4, Verb::Change, run<frmscopa::Text4_Change>},
    {Source::MMC1, Verb::StopCompleted, run<frmscopa::MMC1_StopCompleted>},
};

}  // namespace

std::span<const Handler> eventTable() {
    return table;
}

void runProgram(Game& g) {
    g.frmscopa.teller = toldOfTable;
    g.frmscore.teller = toldOfSheet;
    try {
        Show(g, g.frmscopa);
        while (true) {
            while (activateNext(g)) {
            }
            rtcDoEvents(g, never);
        }
    } catch (const EndProgram&) {
        frmscopa::Form_Unload(g);
    }
}
