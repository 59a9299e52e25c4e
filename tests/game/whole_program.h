// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// A whole program, played headless from the load of the table to its end, for tests that say what
// shall happen in its waits and look at what has become of it.

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "state/state.h"
#include "tools/robot.h"

class WholeProgram;
using When = std::function<bool(const WholeProgram&)>;
using What = std::function<void()>;

/// One run of the program. In each wait the steps come first, in their order, each once; where
/// they leave the queue empty, the robot plays on. The run ends with the last step, or at the next
/// wait if that step has queued something.
class WholeProgram {
public:
    explicit WholeProgram(std::uint64_t seed = 1, std::string settings = "12,2,100");

    Headless backend;
    Game g{backend, eventTable()};
    Robot robot;
    What look = [] {};  ///< called first in each wait; may queue something
    std::function<void(Moment)> watch = [](Moment) {};

    /// Does `what` in the first wait from here on in which `when` holds; `awaited` names it.
    void then(
        std::string awaited, When when, What what = [] {}) {
        steps_.push_back({std::move(awaited), std::move(when), std::move(what)});
    }
    /// Runs the program. Fails the test, and names what was awaited, where a step does not come in
    /// sixty hands, or nothing goes on.
    void run();
    void runHands(int hands);  ///< the same, to the score sheet of so many hands

    // What the wait in progress is for.
    double until = 0;
    double left() const { return until - now(); }
    bool titleShows() const { return g.Picture4.Visible; }
    bool choosing() const { return g.GO.Visible; }
    bool picking() const { return g.fase == "gioco1" && g.cartaGiocata == 0; }
    bool scoreShown() const { return moment == Moment::scored && g.front == &g.frmscore; }
    bool secondHand() const { return seen(Moment::dealt) == 2; }
    bool started() const { return seen(Moment::dealt) > 0; }
    Moment moment{};  ///< the last one seen, once started
    int turnOf = 0;   ///< the player of the last Moment::turn
    int seen(Moment which) const { return seen_.contains(which) ? seen_.at(which) : 0; }
    double now() const { return backend.time.now; }

    // What the user may do; it is queued.
    void menu(const MenuEntry& e) { g.queue.push_back({e.source, Verb::Click, e.index}); }
    What presses(const std::vector<Control*>& controls) {  ///< of the form in front
        return [this, controls] {
            for (Control* control : controls) clickOn(g, *g.front, *control);
        };
    }

private:
    struct Step {
        std::string awaited;
        When when;
        What what;
    };
    bool act();
    void see(Moment);

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    std::map<Moment, int> seen_;
};

/// What is seen of the surface at a point: a colour, or a picture by its number below 0.
int seenAt(const Form&, float x, float y);

/// For Moment::leftovers: makes the hand bring these points; one of the two must be 4 or more.
void forceHand(Game&, int humanPoints, int computerPoints);
