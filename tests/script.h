// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

// A whole program, played headless from the load of the table to its end, for tests that say what
// shall happen in its waits and look at what has become of it.

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "game/event_table.h"
#include "game/state.h"
#include "platform/headless/headless.h"
#include "tools/robot.h"

namespace script {

/// The layout's measures as they are designed, in table units.
inline constexpr float cardWidth = 1200 * 800 / 15432.0f, cardHeight = 2232 * 600 / 12360.0f;

/// A backend that remembers the ground on which it shows each form, as a window does.
struct Screen : Headless {
    using Headless::Headless;
    std::map<const Form*, Colour> ground;
    void cleared(Form& form) override { ground[&form] = form.surface.backColor; }
};

using When = std::function<bool()>;
using What = std::function<void()>;

/// One run of the program. In each wait the steps come first, in their order, each once; where
/// they leave the queue empty, the robot plays on. The run ends with the last step, or at the next
/// wait if that step has queued something.
class Play {
public:
    explicit Play(std::uint64_t seed = 1, std::string settings = " 12 \r\n 2 \r\n 100 \r\n");
    Play(const Play&) = delete;
    Play& operator=(const Play&) = delete;

    Screen backend;
    Game g{backend};
    Robot robot;
    bool robotPlays = true;
    int mostHands = 60;          ///< what a script wants must have happened by then
    std::function<void()> look;  ///< called first in each wait; may queue something
    std::function<void(Moment)> watch;

    /// Does `what` in the first wait from here on in which `when` holds.
    Play& then(
        When when, What what = [] {});
    /// Runs the program and fails the test where a step was never reached.
    void run();
    /// The same without steps, to the end of so many hands.
    void runHands(int hands);

    // What the wait in progress is for.
    double until = 0;
    double left() const { return until - backend.time.now; }
    bool titleShows() const { return g.Picture4.Visible; }
    bool choosing() const { return g.GO.Visible; }
    bool picking() const { return g.fase == "gioco1" && g.cartaGiocata == 0; }
    bool selecting() const { return g.fase == "selezione" && until == never; }
    bool scoreShown() const { return moment == Moment::scored && g.front == &g.frmscore; }

    bool started = false;    ///< a hand has been dealt
    Moment moment{};         ///< the last one seen, once started
    int seen(Moment) const;  ///< how often
    double now() const { return backend.time.now; }

    // What the user may do; it is queued.
    void menu(const MenuEntry&);
    void close(const Form&);
    void option(int index) { clickOn(g, g.frmscopa, g.Option1(index)); }
    void go() { clickOn(g, g.frmscopa, g.GO); }
    void button(Button& b) { clickOn(g, g.frmscore, b); }

private:
    struct Step {
        When when;
        What what;
    };

    bool wait();
    void see(Moment);

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    bool scripted_ = true;
    std::array<int, 6> seen_{};
};

/// Lays the draws ready by which the next shuffles come out as these packs; shorter ones are
/// filled up with the other cards in ascending order.
void stackPacks(Game&, std::vector<std::vector<int>> packs);
/// Lays the draw ready that makes this player the first dealer. To be called after stackPacks.
void chooseDealer(Game&, int player);
std::vector<int> wholePack(std::vector<int> firstCards);

/// Makes the hand that is at its leftovers bring these points; one of the two must be 4 or more.
void forceHand(Game&, int humanPoints, int computerPoints);

/// A picture painted at card size and nothing over its middle.
bool showsCard(const Game&, Picture, float left, float top);
/// The one of an array that is in front of the others.
template <int Last>
int frontOf(const Array<Image, Last>& images, int first) {
    int front = first;
    for (int i = first; i <= Last; ++i)
        if (images(i).z > images(front).z) front = i;
    return front;
}

}  // namespace script
