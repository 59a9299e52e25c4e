// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What stands on the screen at each named moment of several matches: a table of moments and things.

#include <cmath>
#include <set>

#include "state/cards.h"
#include "whole_program.h"

namespace {

using Things = std::set<std::string>;

std::string nameOf(const Game& g, const Control& control) {
    static const std::map<Source, std::string> names{
        {Source::Picture2, "banner"}, {Source::Picture4, "title"}, {Source::Gorilla, "gorilla"},
        {Source::Mask2, "mask"},      {Source::Verde, "green"},    {Source::Rosso, "red"}};
    if (control.source == Source::GO) return g.GO.Caption;
    if (control.source == Source::Option1) {
        const OptionButton& option = g.Option1(control.index);
        return option.Caption + (option.Value ? ", chosen," : "");
    }
    return names.contains(control.source) ? names.at(control.source) : "something else";
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

/// What is seen of the surface at some points: a colour, or a picture by its number below 0.
struct Sight {
    int seen;
    const char* where;
    std::vector<std::pair<float, float>> points;
};

int seenAt(const Form& form, float x, float y) {
    const Painted* const painted = form.surface.at(x, y);
    return painted && painted->picture != picture::none ? -painted->picture : Point(form, x, y);
}

const std::vector<Sight> allBlue{{blue, "everywhere", {{1, 1}, {799, 599}, {400, 300}}}};
const std::vector<Sight> tableIsWiped{{green, "edges", {{1, 1}, {799, 599}, {255, 300}}}};
const std::vector<Sight> panel{
    {lightBlue, "the surface", {{1, 1}, {799, 599}, {197, 300}, {604, 300}, {400, 47}, {400, 514}}},
    {black, "the panel's frame", {{198.5f, 300}, {602.5f, 300}, {400, 48.5f}, {400, 512.5f}}},
    {blue, "the panel's corners", {{201, 51}, {600, 510}}},
    {-picture::title, "the title's corners", {{335, 201}, {465, 255}}},
    {blue, "around the title", {{332, 228}, {468, 228}, {400, 199}, {400, 257}}}};

struct Look {
    const char* moment;
    When when;
    Things inView;
    std::vector<Sight> surface;
};

const Things humansTurn{"green 620 514", "red 620 54"},
    computersTurn{"green 620 54", "red 620 514"};

Things with(Things things, const char* one) {
    things.insert(one);
    return things;
}

Things opening(const char* single, const char* eleven) {
    return {single,        eleven, "21 points Game 322 160", "GO 353 300", "gorilla 300 327",
            "mask 410 337"};
}

/// The mascot belongs to the turn of an ace alone, and the banner to what follows a decision.
bool sweeping(const WholeProgram& p, int player) {
    const bool shown = player == human ? p.g.Mask2(1).Visible : p.g.Gorilla(1).Visible;
    return p.moment == Moment::turn && p.turnOf == player && isAce(p.g.cartaGiocata) && shown;
}
bool scopaOf(const WholeProgram& p, int player) {
    return p.moment == Moment::decided && p.turnOf == player && p.g.Picture2.Visible;
}
bool turnOf(const WholeProgram& p, int player) {
    return p.started() && p.turnOf == player;
}
bool firstMatch(const WholeProgram& p) {
    return p.seen(Moment::scored) == 0;
}

/// The first that fits counts.
const std::vector<Look> looks{
    {"title", &WholeProgram::titleShows, {"title 172 167"}, allBlue},
    {"opening screen of the first match", [](auto& p) { return p.choosing() && firstMatch(p); },
     opening("Single Game, chosen, 322 100", "11 points Game 322 130"), panel},
    {"opening screen of a later match", &WholeProgram::choosing,
     opening("Single Game 322 100", "11 points Game, chosen, 322 130"), panel},
    {"score sheet", &WholeProgram::scoreShown, {"score sheet"}, {}},
    {"human's sweep", [](auto& p) { return sweeping(p, human); }, with(humansTurn, "mask 100 400"),
     tableIsWiped},
    {"computer's sweep", [](auto& p) { return sweeping(p, computer); },
     with(computersTurn, "gorilla 100 120"), tableIsWiped},
    {"human's scopa", [](auto& p) { return scopaOf(p, human); }, with(humansTurn, "banner 110 300"),
     tableIsWiped},
    {"computer's scopa", [](auto& p) { return scopaOf(p, computer); },
     with(computersTurn, "banner 110 300"), tableIsWiped},
    {"human's turn", [](auto& p) { return turnOf(p, human); }, humansTurn, tableIsWiped},
    {"computer's turn", [](auto& p) { return turnOf(p, computer); }, computersTurn, tableIsWiped}};

/// Compares what is seen with the look of the moment and returns the moment's name.
std::string expectLook(const WholeProgram& p) {
    for (const auto& [moment, when, expected, surface] : looks) {
        if (!when(p)) continue;
        SCOPED_TRACE(moment);
        EXPECT_EQ(inView(p.g), expected);
        for (const auto& [seen, where, points] : surface)
            for (const auto& [x, y] : points)
                EXPECT_EQ(seenAt(p.g.frmscopa, x, y), seen) << where << " at " << x << ", " << y;
        return moment;
    }
    ADD_FAILURE() << "a wait at no named moment, after " << p.now() << " seconds";
    return {};
}

TEST(Screen, ShowsWhatBelongsToEachMoment) {
    WholeProgram program;
    program.robot.tipoPartita = 1;
    Game& g = program.g;
    std::map<std::string, int> seen;
    program.look = [&] {
        ++seen[expectLook(program)];
        if (testing::Test::HasFailure()) throw EndProgram{};
        if (!program.scoreShown()) return;
        Move(g.Picture2, 5, 5);  // Whatever was in the way, a hand begins in order.
        g.Picture2.Visible = true;
    };
    program.runHands(20);
    for (const Look& look : looks) EXPECT_GT(seen[look.moment], 0) << look.moment << " never came";
}

}  // namespace
