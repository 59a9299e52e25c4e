// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "platform/controls.h"

class Backend;
struct Form;
struct Runtime;

enum class Verb : std::uint8_t {
    Click,
    MouseDown,
    MouseMove,
    KeyDown,
    Change,
    Timer,
    Done,
    StopCompleted,
    Load,
    Activate,
    Resize,
    QueryUnload,
    Unload
};
inline constexpr std::size_t verbs = static_cast<std::size_t>(Verb::Unload) + 1;

/// The keys that the game knows. Press is Space or Enter.
enum class Key : std::uint8_t { One, Two, Three, Left, Up, Right, Down, Home, End, Press, Escape };

struct Event {
    Source source{};
    Verb verb{};
    int index = 0;              ///< of the control in its array; KeyDown: the Key
    int Button = 0, Shift = 0;  ///< MouseDown only
    float X = 0, Y = 0;         ///< MouseDown only, table units
};

/// One row of the event table: whose event calls which procedure.
struct Handler {
    Source source;
    Verb verb;
    void (*run)(Runtime&, const Event&);
};

struct Timer {
    Source source{};
    bool enabled = false;
    int interval = 0;  ///< milliseconds
    double due = 0;    ///< by the clock, while enabled
};

/// The random generator of one game. It runs the same on every machine.
struct Chance {
    std::uint64_t state = 0;
    /// Mixed into each seed: a clock that stands still repeats nothing.
    std::uint64_t seedings = 0;
    /// Draws laid ready, last one first; they are given out before any others.
    std::vector<float> prepared;
};

/// For a wait that only an event or a timer ends.
inline constexpr double never = std::numeric_limits<double>::infinity();
/// For a plain yield.
inline constexpr double atOnce = 0;

/// Thrown by a procedure that ends the program. It unwinds whatever is in play, up to `run`.
struct EndProgram {};

/// What every procedure of the game finds the platform through.
struct Runtime {
    Runtime(Backend& b, std::span<const Handler> table);
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;

    Backend& backend;
    Chance chance;
    std::vector<Event> queue;  ///< what has happened and has not been delivered
    std::vector<Timer*> timers;
    double nextDue = never;                          ///< of the enabled timers
    std::vector<Form*> activations;                  ///< shown, and not yet activated
    Form* front = nullptr;                           ///< the form shown last
    unsigned raised = 0;                             ///< the last stamp given by ZOrder
    std::vector<decltype(Handler::run)> procedures;  ///< by source and verb, as far as any has one
};

/// Shows what has been painted, sleeps until there is an event or the clock reads `until`, and
/// runs the procedures of the timers that are due and of the events that are queued. Returns
/// after one such round, so that a caller can wait for what it needs in a loop. Runs events.
void rtcDoEvents(Runtime&, double until = atOnce);

/// Lets what has just been painted be seen for one frame. Runs events.
void showFrame(Runtime&);

/// Shows what has been painted and lets time go on until the clock reads `until`. Runs no events.
void showUntil(Runtime&, double until);

/// The clock in seconds, with fractions.
double rtcGetTimer(Runtime&);

/// Calls the procedure of an event at once; nothing where the table has none.
void deliver(Runtime&, const Event&);

/// True where the table has a procedure for it.
bool answers(const Runtime&, Source, Verb);

/// Delivers the oldest activation that is waiting; false where there is none. Only the resting
/// main loop takes activations up, so no hand can start inside a hand.
bool activateNext(Runtime&);

/// A press of a mouse button at a place in units: queues the click of the control in front there,
/// or else the form's MouseDown. Button 1 left, 2 right, 4 middle.
void pressAt(Runtime&, const Form&, float x, float y, int button);

/// A click on a native control: selects an option button among its array, then queues the click.
void clickOn(Runtime&, Form&, Control&);

void ZOrder(Runtime&, Control&);  ///< brings the control to the front
void Enabled(Runtime&, Timer&, bool);
void Interval(Runtime&, Timer&, int milliseconds);

/// Loads the form, hidden, unless it is loaded; runs its Form_Load.
void Load(Runtime&, Form&);
/// Loads the form if need be, brings it to the front and queues its activation.
void Show(Runtime&, Form&);
/// Hides the form and runs its Form_Unload.
void Unload(Runtime&, Form&);
