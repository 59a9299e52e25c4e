// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What stands on the screen at each named moment of several matches: a table of moments and things.

#include <algorithm>
#include <cmath>
#include <set>

#include "state/cards.h"
#include "whole_program.h"

namespace {

using Things = std::set<std::string>;

std::string nameOf(const Game& g, const Control& control) {
    static const std::map<Source, std::string> names{
        {Source::Picture2, "banner"}, {Source::Picture4, "title"}, {Source::Gorilla, "gorilla"},
        {Source::Mask2, "mask"},      {Source::Verde, "green"},    {Source::Rosso, "red"},
        {Source::GO, g.GO.Caption}};
    if (names.contains(control.source)) return names.at(control.source);
    if (control.source != Source::Option1) return "something else";
    const OptionButton& option = g.Option1(control.index);
    return option.Caption + (option.Value ? ", chosen," : "");
}

/// The controls of the form in front that are in view and not behind another: name, left and top.
Things inView(const Game& g) {
    if (g.front == &g.frmscore) return {"score sheet"};
    Things things;
    for (const Control* control : g.frmscopa.controls) {
        if (!control->Visible) continue;
        const float x = control->Left + control->Width / 2, y = control->Top + control->Height / 2;
        if (x > 800 || y > 600) continue;
        if (!isNative(*control) && controlAt(g.frmscopa, x, y) != control) continue;
        things.insert(nameOf(g, *control) + ' ' + std::to_string(std::lround(control->Left)) + ' ' +
                      std::to_string(std::lround(control->Top)));
    }
    return things;
}

constexpr Colour blue = 0xFF0000, lightBlue = 0xFF5000, green = 0x7000, black = 0;

/// What is seen of the surface at some points.
struct Sight {
    int seen;
    const char* where;
    std::vector<std::pair<float, float>> points;
};

const std::vector<Sight> allBlue{{blue, "everywhere", {{1, 1}, {799, 599}, {400, 300}}}};
const std::vector<Sight> tableIsWiped{{green, "edges", {{1, 1}, {799, 599}, {255, 300}}}};
const std::vector<Sight> panel{
    {lightBlue, "the surface", {{1, 1}, {799, 599}, {197, 300}, {604, 300}, {400, 47}, {400, 514}}},
    {black, "the panel's frame", {{198.5f, 300}, {602.5f, 300}, {400, 48.5f}, {400, 512.5f}}},
    {blue, "the panel's corners", {{201, 51}, {600, 510}}},
    {-picture::title, "the title's corners", {{335, 201}, {465, 255}}},
    {blue, "around the title", {{332, 228}, {468, 228}, {400, 199}, {400, 257}}}};

const Things humansTurn{"green 620 514", "red 620 54"};
const Things computersTurn{"green 620 54", "red 620 514"};

Things opening(const char* single, const char* eleven) {
    return {single,        eleven, "21 points Game 322 160", "GO 353 300", "gorilla 300 327",
            "mask 410 337"};
}

struct Look {
    const char* moment;
    When when;
    Things inView;
    std::vector<Sight> surface;
    bool inHand = false;  ///< the lamps are in view besides
};

/// The mascot belongs to the turn of an ace alone, and the banner to what follows a decision.
template <int player>
bool sweeping(const WholeProgram& p) {
    const bool shown = player == human ? p.g.Mask2(1).Visible : p.g.Gorilla(1).Visible;
    return shown && p.moment == Moment::turn && p.turnOf == player && isAce(p.g.cartaGiocata);
}
bool scopaShows(const WholeProgram& p) {
    return p.moment == Moment::decided && p.g.Picture2.Visible;
}

/// The first that fits counts.
const std::vector<Look> looks{
    {"title", &WholeProgram::titleShows, {"title 172 167"}, allBlue},
    {"opening screen of a later match", [](auto& p) { return p.choosing() && p.started(); },
     opening("Single Game 322 100", "11 points Game, chosen, 322 130"), panel},
    {"opening screen", &WholeProgram::choosing,
     opening("Single Game, chosen, 322 100", "11 points Game 322 130"), panel},
    {"score sheet", &WholeProgram::scoreShown, {"score sheet"}, {}},
    {"human's sweep", sweeping<human>, {"mask 100 400"}, tableIsWiped, true},
    {"computer's sweep", sweeping<computer>, {"gorilla 100 120"}, tableIsWiped, true},
    {"scopa", scopaShows, {"banner 110 300"}, tableIsWiped, true},
    {"hand", &WholeProgram::started, {}, tableIsWiped, true}};

/// Compares what is seen with the look of the moment and returns the moment's name.
std::string expectLook(const WholeProgram& p) {
    const auto fits = [&](const Look& look) { return look.when(p); };
    const auto look = std::ranges::find_if(looks, fits);
    if (look == looks.end()) return "no named moment";
    SCOPED_TRACE(look->moment);
    Things expected = look->inView;
    if (look->inHand) expected.merge(Things(p.turnOf == human ? humansTurn : computersTurn));
    EXPECT_EQ(inView(p.g), expected);
    for (const auto& [seen, where, points] : look->surface)
        for (const auto& [x, y] : points)
            EXPECT_EQ(seenAt(p.g.frmscopa, x, y), seen) << where << " at " << x << ", " << y;
    return look->moment;
}

TEST(Screen, ShowsWhatBelongsToEachMoment) {
    WholeProgram program;
    program.robot.tipoPartita = 1;
    program.backend.soundWorks = false;  // It makes no difference.
    Game& g = program.g;
    std::map<std::string, int> seen;
    program.look = [&] {
        if (HasFailure()) return;  // One telling is enough.
        ++seen[expectLook(program)];
        if (!program.scoreShown()) return;
        Move(g.Picture2, 5, 5);  // Whatever was in the way, a hand begins in order.
        g.Picture2.Visible = true;
    };
    program.runHands(20);
    if (HasFailure()) return;
    for (const Look& look : looks) EXPECT_GT(seen[look.moment], 0) << look.moment << " never came";
    EXPECT_EQ(seen.size(), looks.size()) << "there is a wait at no named moment";
}

}  // namespace
