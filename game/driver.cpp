// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "game/driver.h"

#include "game/capture.h"
#include "game/computer.h"
#include "game/deal.h"
#include "game/human.h"
#include "game/move_outcome.h"
#include "platform/chance.h"
#include "preferences/music.h"
#include "preferences/settings.h"
#include "speech/announcements.h"
#include "state/card_holders.h"
#include "state/cards.h"
#include "state/scoring.h"
#include "state/state.h"
#include "table/lamps.h"
#include "table/opening_screen.h"
#include "table/painting.h"
#include "table/pause.h"
#include "table/wipe.h"

namespace frmscopa {
namespace {

void placeBanner(Game& g) {
    moveTo(g.Picture2, bannerSpot(g));
    g.Picture2.Visible = false;
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
    tellOpening(g);
    sceltaPartita(g);
}

void beginMove(Game& g, int player) {
    g.giocatore = player;
    g.cartaGiocata = g.valoreGiocato = g.numeroPresa = g.sommaPresa = 0;
    showTurn(g, player);
    notify(g, Moment::turn);
    if (player == human) tellTurn(g);
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
    tellDeal(g);
    if (g.cimaMazzo < deckSpent) return;
    eraseCard(g, deckSpot(g));
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
    tellLeftovers(g);
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
    tellHand(g);
    tellDeal(g);
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
