// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/events.h"

#include <algorithm>

#include "platform/backend.h"
#include "platform/form.h"

namespace {

std::size_t slot(Source source, Verb verb) {
    return static_cast<std::size_t>(source) * verbs + static_cast<std::size_t>(verb);
}

void findNextDue(Runtime& runtime) {
    runtime.nextDue = never;
    for (const Timer* timer : runtime.timers)
        if (timer->enabled) runtime.nextDue = std::min(runtime.nextDue, timer->due);
}

void fireTimers(Runtime& runtime) {
    for (Timer* timer : runtime.timers) {
        if (!timer->enabled) continue;
        const double now = rtcGetTimer(runtime);
        if (timer->due > now) continue;
        // Ticks that were missed while nothing pumped are not made up for.
        const double period = timer->interval / 1000.0;
        timer->due = std::max(timer->due + period, now);
        findNextDue(runtime);
        deliver(runtime, {timer->source, Verb::Timer});
    }
}

void deliverQueued(Runtime& runtime) {
    // A procedure may queue further events; those wait for the next round.
    const std::size_t pending = runtime.queue.size();
    for (std::size_t i = 0; i < pending; ++i) {
        const Event event = runtime.queue[i];
        deliver(runtime, event);
    }
    runtime.queue.erase(runtime.queue.begin(),
                        runtime.queue.begin() + static_cast<std::ptrdiff_t>(pending));
}

}  // namespace

Runtime::Runtime(Backend& b, std::span<const Handler> table) : backend(b) {
    for (const Handler& row : table) {
        const std::size_t place = slot(row.source, row.verb);
        if (place >= procedures.size()) procedures.resize(place + 1);
        procedures[place] = row.run;
    }
    queue.reserve(64);
}

bool answers(const Runtime& runtime, Source source, Verb verb) {
    const std::size_t place = slot(source, verb);
    return place < runtime.procedures.size() && runtime.procedures[place];
}

void deliver(Runtime& runtime, const Event& event) {
    if (!answers(runtime, event.source, event.verb)) return;
    runtime.procedures[slot(event.source, event.verb)](runtime, event);
}

double rtcGetTimer(Runtime& runtime) {
    return runtime.backend.clock();
}

void rtcDoEvents(Runtime& runtime, double until) {
    runtime.backend.present();
    runtime.backend.wait(runtime.queue.empty() ? std::min(until, runtime.nextDue) : atOnce);
    if (runtime.nextDue != never && runtime.nextDue <= rtcGetTimer(runtime)) fireTimers(runtime);
    if (!runtime.queue.empty()) deliverQueued(runtime);
}

void showFrame(Runtime& runtime) {
    const double until = rtcGetTimer(runtime) + runtime.backend.frameSeconds;
    do rtcDoEvents(runtime, until);
    while (rtcGetTimer(runtime) < until);
}

void showUntil(Runtime& runtime, double until) {
    runtime.backend.present();
    while (rtcGetTimer(runtime) < until) runtime.backend.wait(until);
}

bool activateNext(Runtime& runtime) {
    if (runtime.activations.empty()) return false;
    Form* form = runtime.activations.front();
    runtime.activations.erase(runtime.activations.begin());
    deliver(runtime, {form->source, Verb::Activate});
    return true;
}

void pressAt(Runtime& runtime, const Form& form, float x, float y, int button) {
    if (const Control* control = controlAt(form, x, y)) {
        runtime.queue.push_back({control->source, Verb::Click, control->index});
    } else {
        runtime.queue.push_back({form.source, Verb::MouseDown, 0, button, 0, x, y});
    }
}

void clickOn(Runtime& runtime, Form& form, Control& control) {
    if (control.kind == Kind::option) {
        for (Control* other : form.controls)
            if (other->kind == Kind::option && other->source == control.source)
                static_cast<OptionButton*>(other)->Value = other == &control;
    }
    runtime.queue.push_back({control.source, Verb::Click, control.index});
}

void ZOrder(Runtime& runtime, Control& control) {
    control.z = ++runtime.raised;
}

void Enabled(Runtime& runtime, Timer& timer, bool enabled) {
    if (enabled && !timer.enabled) timer.due = rtcGetTimer(runtime) + timer.interval / 1000.0;
    timer.enabled = enabled;
    findNextDue(runtime);
}

void Interval(Runtime& runtime, Timer& timer, int milliseconds) {
    timer.interval = milliseconds;
    timer.due = rtcGetTimer(runtime) + milliseconds / 1000.0;
    findNextDue(runtime);
}

void Load(Runtime& runtime, Form& form) {
    if (form.loaded) return;
    form.loaded = true;
    deliver(runtime, {form.source, Verb::Load});
}

void Show(Runtime& runtime, Form& form) {
    Load(runtime, form);
    form.Visible = true;
    runtime.front = &form;
    runtime.backend.show(form);
    std::erase(runtime.activations, &form);
    runtime.activations.push_back(&form);
}

void Unload(Runtime& runtime, Form& form) {
    if (!form.loaded) return;
    std::erase(runtime.activations, &form);
    form.loaded = false;
    form.Visible = false;
    runtime.backend.hide(form);
    deliver(runtime, {form.source, Verb::Unload});
}
