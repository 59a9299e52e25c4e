// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/ace_sweep.h"

#include "state/state.h"
#include "table/pause.h"

using frmscopa::ritardo;

namespace {

constexpr int gorillaFrames = 10, maskFrames = 5;
constexpr int gorillaRounds = 6;
constexpr int quickMask = 120, slowMask = 2400;  ///< milliseconds

template <int Last>
void showFrames(Game& g, Array<Image, Last>& frames) {
    for (int i = 1; i <= Last; ++i) {
        frames(i).Visible = true;
        ZOrder(g, frames(1));
    }
}

template <int Last>
void hideFrames(Array<Image, Last>& frames) {
    for (int i = 1; i <= Last; ++i) frames(i).Visible = false;
}

/// The timer's interval is left as the last tick set it, so after the first sweep frame 1 stands
/// for one long interval more.
void playMask(Game& g) {
    Enabled(g, g.Timer2, true);
    showFrames(g, g.Mask2);
    while (g.giriMaschera == 0) rtcDoEvents(g, never);
    Enabled(g, g.Timer2, false);
    ritardo(g, 2);
    hideFrames(g.Mask2);
    g.giriMaschera = 0;
}

void playGorilla(Game& g) {
    Enabled(g, g.Timer1, true);
    showFrames(g, g.Gorilla);
    while (g.giriGorilla < gorillaRounds) rtcDoEvents(g, never);
    g.giriGorilla = 0;
    g.fotoGorilla = 0;
    Enabled(g, g.Timer1, false);
    hideFrames(g.Gorilla);
}

}  // namespace

void playMascot(Game& g, int player) {
    if (player == human) {
        playMask(g);
    } else {
        playGorilla(g);
    }
}

namespace frmscopa {

void Timer1_Timer(Game& g) {
    if (++g.fotoGorilla > gorillaFrames) {
        g.fotoGorilla = 1;
        ++g.giriGorilla;
    }
    ZOrder(g, g.Gorilla(g.fotoGorilla));
}

void Timer2_Timer(Game& g) {
    Interval(g, g.Timer2, g.fotoMaschera == 0 ? slowMask : quickMask);
    ++g.fotoMaschera;
    ZOrder(g, g.Mask2(g.fotoMaschera));
    if (g.fotoMaschera < maskFrames) return;
    Interval(g, g.Timer2, slowMask);
    g.fotoMaschera = 0;
    ++g.giriMaschera;
}

}  // namespace frmscopa
