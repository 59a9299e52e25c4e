// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/driver.h"

#include <algorithm>

#include "game/capture.h"
#include "game/cards.h"
#include "game/computer.h"
#include "game/deal.h"
#include "game/human.h"
#include "game/scoring.h"
#include "platform/chance.h"
#include "preferences/settings.h"
#include "preferences/sound.h"
#include "table/motion.h"
#include "table/opening_screen.h"
#include "table/painting.h"
#include "table/wipe.h"

namespace frmscopa {
namespace {

constexpr float lampLeft = 620, lampHeight = 32;

/// Above this the hands would touch the table's rows; below it no card can be read. The settings
/// keep what the player wrote.
constexpr float smallestScale = 0.4f, largestScale = 1.06f;

void measureWindow(Game& g) {
    g.scalaX = g.frmscopa.Width / layoutTwipsAcross;
    g.scalaY = g.frmscopa.Height / layoutTwipsDown;
    g.centroX = g.frmscopa.ScaleWidth / 2;
    g.centroY = g.frmscopa.ScaleHeight / 2;
}

void measureCards(Game& g) {
    const float scale = std::clamp(g.scalaCarte, smallestScale, largestScale);
    g.larghezzaCarta = g.scalaX * g.carta(1).Width * scale;
    g.altezzaCarta = g.scalaY * g.carta(1).Height * scale;
    g.tavoloX = g.centroX - 2 * g.larghezzaCarta - 9;
    g.tavoloY = g.centroY - 1.5f * g.altezzaCarta - gap;
}

void placeBanner(Game& g) {
    Move(g.Picture2, 110, g.centroY);
    g.Picture2.Visible = false;
}

void parkLamps(Game& g) {
    for (int i = 0; i <= 1; ++i) {
        Move(g.Verde(i), unitsAcross, unitsDown);
        Move(g.Rosso(i), unitsAcross, unitsDown);
    }
}

void openMatch(Game& g) {
    prepareOpening(g);
    parkLamps(g);
    rtcRandomize(g);
    for (int id = 1; id <= 40; ++id) g.carta(id).Tag.clear();
    placeBanner(g);
    ritardo(g, 10);
    g.nomeGiocatore = "Player";
    hideTitle(g);
    modScopa::sipario(g, g.frmscopa, openingBlue);
    sceltaPartita(g);
}

void placeLamps(Game& g) {
    const float half = g.altezzaCarta / 2;
    for (Image* lamp : {&g.Verde(0), &g.Rosso(0)})
        Move(*lamp, lampLeft, unitsDown - half - lampHeight);
    for (Image* lamp : {&g.Verde(1), &g.Rosso(1)}) Move(*lamp, lampLeft, half);
}

void beginMove(Game& g, int player) {
    g.giocatore = player;
    g.cartaGiocata = g.valoreGiocato = g.numeroPresa = g.sommaPresa = 0;
    ZOrder(g, g.Verde(player - 1));
    ZOrder(g, g.Rosso(2 - player));
    notify(g, Moment::turn);
}

void humanMove(Game& g) {
    beginMove(g, human);
    gioco1(g);
    verifica(g);
    notify(g, Moment::decided);
    muovicarte(g);
    notify(g, Moment::carriedOut);
}

void computerMove(Game& g) {
    beginMove(g, computer);
    ritardo(g, 1);
    gioco2(g);
    ++g.mosseGiocate;
    notify(g, Moment::decided);
    muovicarte(g);
    notify(g, Moment::carriedOut);
}

/// Six cards, turn about; the player who does not deal leads.
void playRound(Game& g) {
    bool humansTurn = g.mazziere != human;
    while (g.mosseGiocate < movesOfRound) {
        humansTurn ? humanMove(g) : computerMove(g);
        humansTurn = !humansTurn;
    }
    ritardo(g, 1);
}

void dealAgain(Game& g) {
    g.mosseGiocate = 0;
    daicarte(g);
    if (g.cimaMazzo < deckSpent) return;
    const auto top = static_cast<float>(g.pilaY(g.mazziere));
    erase(g, deckLeft, top, deckLeft + g.larghezzaCarta, top + g.altezzaCarta);
}

/// The cards left on the table go to the player who took last; this gives no scopa.
void giveLeftovers(Game& g) {
    int found = 0;
    for (const auto [row, column] : tableOrder)
        if (const int id = g.tavolo(row, column)) enterTaken(g, ++found, id);
    g.presaOk = false;
    g.numeroPresa = found;
    g.giocatore = g.ultimaPresa;
    g.raccoltaFinale = true;
    notify(g, Moment::leftovers);
    muovicarte(g);
    g.raccoltaFinale = false;
}

}  // namespace

void Form_Load(Game& g) {
    g.frmscopa.ScaleMode = pixelScale;
    g.frmscopa.WindowState = maximised;
    Form_Resize(g);
    Trova_Combinazioni(g);
    for (int slot = 1; slot <= 2; ++slot) {
        g.dorso(slot) = g.dorso(0);
        g.dorso(slot).index = slot;
        g.frmscopa.controls.push_back(&g.dorso(slot));
    }
    readSettings(g);
    prepareSound(g);
    rtcRandomize(g);
    g.mazziere = randomBelow(g, 2) + 1;
}

void Form_Activate(Game& g) {
    Cls(g.frmscopa);
    measureWindow(g);
    BackColor(g.frmscopa, pureBlue);
    Load(g, g.frmscore);
    if (g.Command1.Caption == "CONTINUE") {
        placeBanner(g);
    } else {
        openMatch(g);
    }
    Cls(g.frmscopa);
    measureCards(g);
    g.fotoGorilla = g.giriGorilla = g.fotoMaschera = g.giriMaschera = 0;
    Mescola(g);
    daicarte(g);
    gioco(g);
}

void Form_Resize(Game& g) {
    if (g.frmscopa.WindowState == minimised) return;
    g.frmscopa.ScaleWidth = unitsAcross;
    g.frmscopa.ScaleHeight = unitsDown;
}

void Form_QueryUnload(Game&, int UnloadMode) {
    if (UnloadMode == 0) throw EndProgram{};
}

void Form_Unload(Game& g) {
    Command(g, g.MMC1, "close");
    Command(g, g.MMCw, "close");
}

void esci_Click(Game& g) {
    Unload(g, g.frmscopa);
    throw EndProgram{};
}

void gioco(Game& g) {
    placeLamps(g);
    g.mosseGiocate = g.denariUmano = g.presiUmano = 0;
    g.scope(human) = g.scope(computer) = 0;
    notify(g, Moment::dealt);
    playRound(g);
    while (g.cimaMazzo != deckSpent) {
        dealAgain(g);
        playRound(g);
    }
    giveLeftovers(g);
    tallyHand(g);
    calcsettanta(g);
    ritardo(g, 2);
    Show(g, g.frmscore);
}

}  // namespace frmscopa
