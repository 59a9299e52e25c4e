// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// From the title through the opening screen and from match to match, to the end of the program.

#include <algorithm>

#include "script.h"

using namespace script;
using enum Moment;

namespace {

/// The pause before or after a player's choice of a card.
bool inMove(const Play& p, int player, bool chosen) {
    return p.moment == turn && p.g.giocatore == player && p.g.fase.empty() &&
           (p.g.cartaGiocata != 0) == chosen;
}

TEST(Opening, ShowsTheTitleForTenSecondsByTheRateAndThenThePanel) {
    const std::pair<const char*, double> cases[] = {{"0,1", 10}, {"0,2", 5}, {"0,3", 10 / 3.0}};
    for (const auto& [settings, seconds] : cases) {
        Play p(1, settings);
        p.then(&Play::titleShows, [&] {
            expectPlace(p.g.Picture4, 172, 166.8f);
            for (const Control* one : p.g.frmscopa.controls)
                EXPECT_EQ(one->Visible, one == &p.g.Picture4);
            p.menu(p.g.velocità_gioco(3));
        });
        p.then(&Play::choosing, [&, seconds = seconds] {
            EXPECT_NEAR(p.now(), seconds, 1e-6) << "the wait under way keeps its length";
            expectPlace(p.g.Gorilla(10), 300, 327.48f);
            EXPECT_EQ(p.g.Option1(1).Caption, "11 points Game");
            EXPECT_EQ(Point(p.g.frmscopa, 198.5, 300), 0) << "the panel's edge";
        });
        const auto computersTurn = [](auto& now) { return inMove(now, computer, false); };
        p.then(computersTurn, [&] { EXPECT_NEAR(p.left(), 1 / 3.0, 1e-6) << "by the new rate"; });
        p.run();
    }
}

/// The frame of a mascot that is in front.
template <class Frames>
int front(const Frames& frames) {
    const auto lower = [](const Image& a, const Image& b) { return a.z < b.z; };
    return std::max_element(frames.begin() + 1, frames.end(), lower)->index;
}

TEST(OpeningScreen, BothMascotsPlayUntilGo) {
    Play p;
    p.robotPlays = false;
    std::map<double, std::pair<int, int>> inFront;  // by the moment from which it holds
    p.look = [&] {
        if (p.choosing()) inFront[p.now()] = {front(p.g.Gorilla), front(p.g.Mask2)};
    };
    p.then([](auto& now) { return now.now() > 13; }, [&] { p.press({&p.g.GO}); });
    p.then(&Play::picking);
    p.run();
    const auto at = [&](double t) { return std::prev(inFront.upper_bound(5 + t))->second; };
    for (int tick = 1; tick <= 35; ++tick)
        EXPECT_EQ(at(tick * 0.08 + 0.01).first, (tick - 1) % 10 + 1) << tick;
    const std::map<double, int> masks{{0.2, 1},  {2.5, 1},  {2.53, 2}, {2.65, 3}, {2.77, 4},
                                      {2.89, 5}, {5.27, 5}, {5.29, 1}, {7.67, 1}, {7.69, 2}};
    for (const auto& [time, frame] : masks) EXPECT_EQ(at(time).second, frame) << time;
    EXPECT_FALSE(p.g.Mask2(5).Visible || p.g.Timer1.enabled || p.g.Timer2.enabled);
    EXPECT_EQ(p.g.fotoGorilla + p.g.giriGorilla + p.g.fotoMaschera + p.g.giriMaschera, 0);
    expectPlace(p.g.Mask2(5), 100, 400);
}

TEST(Presses, ThatComeTwiceStartOneHand) {
    for (const bool over : {false, true}) {
        Play p;
        p.watch = [&](Moment moment) {
            if (moment == leftovers) forceHand(p.g, over ? 12 : 4, 4);
        };
        Game& g = p.g;
        p.then(&Play::choosing, [&] { p.press({&g.Option1(2), &g.Option1(1), &g.GO, &g.GO}); });
        p.then(&Play::picking, [&] { p.press({&g.GO}); });
        p.then(&Play::scoreShown, [&] { p.press({&g.Command1, &g.Command1}); });
        if (over) {
            p.then(&Play::titleShows);
            p.then(&Play::choosing, [&] { p.press({&g.GO, &g.GO}); });
        }
        p.then(&Play::picking, [&] { p.press({&g.Command1}); });
        p.then(&Play::scoreShownAgain);
        p.run();
        EXPECT_EQ(p.seen(turn), 72);
        EXPECT_EQ(g.tipoPartita, 1) << "the last click counts, in later matches too";
        EXPECT_TRUE(g.Option1(1).Value && !g.Option1(2).Value);
        EXPECT_EQ(g.totaleUmano, over ? 12 : 8) << "a new match starts afresh";
    }
}

constexpr double aFrame = 1 / 60.0;  ///< of a slide

bool maskShows(const Play& p, bool plays) {
    return p.started() && p.g.Mask2(5).Visible && !p.choosing() && p.g.Timer2.enabled == plays;
}

const std::map<std::string, When> waits{
    {"title", &Play::titleShows},
    {"opening screen", &Play::choosing},
    {"choice of a card", &Play::picking},
    {"choice of what it takes", &Play::selecting},
    {"after the human's choice", [](auto& p) { return inMove(p, human, true); }},
    {"before the computer's choice", [](auto& p) { return inMove(p, computer, false); }},
    {"after the computer's choice", [](auto& p) { return inMove(p, computer, true); }},
    {"human's sweep", [](auto& p) { return maskShows(p, true); }},
    {"last frame of the human's sweep", [](auto& p) { return maskShows(p, false); }},
    {"computer's sweep", [](auto& p) { return p.started() && p.g.Timer1.enabled; }},
    {"fan", [](auto& p) { return p.moment == decided && p.left() > 2 * aFrame; }},
    {"slide", [](auto& p) { return p.moment == decided && p.left() < 1.1 * aFrame; }},
    {"banner", [](auto& p) { return p.g.Picture2.Visible; }},
    {"end of a round", [](auto& p) { return p.moment == carriedOut && p.g.mosseGiocate == 6; }},
    {"before the sheet", [](auto& p) { return p.moment == leftovers && !p.g.raccoltaFinale; }},
    {"score sheet", &Play::scoreShown}};

const std::map<std::string, Event> ways{
    {"close command", {Source::frmscopa, Verb::QueryUnload}},
    {"menu", {Source::esci, Verb::Click}},
    {"close command of the sheet", {Source::frmscore, Verb::QueryUnload}},
    {"QUIT", {Source::Command2, Verb::Click}}};

TEST(Ending, WorksInEveryWait) {
    for (const auto& [wait, when] : waits)
        for (const auto& [way, event] : ways) {
            SCOPED_TRACE(testing::Message() << way << " in the wait: " << wait);
            Play p;
            p.backend.frameSeconds = aFrame;
            double left = -1;
            p.look = [&] { EXPECT_EQ(left, -1) << "the program goes on"; };
            p.watch = [&](Moment) { EXPECT_EQ(left, -1) << "the move is not finished"; };
            p.then(when, [&, event = event] {
                p.g.queue.push_back(event);
                p.menu(p.g.velocità_gioco(3));  // comes too late
                left = p.now();
            });
            p.run();
            EXPECT_EQ(p.now(), left) << "it ends at once";
            for (const MMControl* device : {&p.g.MMC1, &p.g.MMCw})
                EXPECT_EQ(device->state, MMControl::State::closed);
            EXPECT_EQ(p.backend.settingsWritten, 0) << "nothing is saved";
        }
}

}  // namespace
