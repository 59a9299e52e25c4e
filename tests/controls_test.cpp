// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// How units become pixels, which control is at a point, which events a click there raises, and how
// they are delivered.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "platform/events.h"
#include "platform/headless/headless.h"

namespace {

struct Bench {
    Headless backend;
    Runtime runtime{backend, {}};
    Form form;
    Image a, b;
    Button button;
    OptionButton options[3], other;

    Bench() {
        form.backend = &backend;
        form.source = Source{9};
        put(a, Source{1}, Kind::image, {10, 10, 40, 40});
        put(b, Source{2}, Kind::image, {30, 30, 60, 60});
        put(button, Source{3}, Kind::button, {0, 0, 800, 600});
        for (OptionButton& option : options) put(option, Source{4}, Kind::option, {});
        put(other, Source{5}, Kind::option, {});
        other.Value = true;
    }
    void put(Control& control, Source source, Kind kind, const Box& box) {
        control.source = source;
        control.kind = kind;
        Move(control, box.left, box.top);
        control.Width = box.right - box.left;
        control.Height = box.bottom - box.top;
        control.Visible = true;
        form.controls.push_back(&control);
    }
};

TEST(ControlAt, FindsTheOneInFront) {
    Bench t;
    EXPECT_EQ(controlAt(t.form, 35, 35), &t.b) << "the later one, as long as none was raised";
    ZOrder(t.runtime, t.a);
    EXPECT_EQ(controlAt(t.form, 35, 35), &t.a);
    ZOrder(t.runtime, t.b);
    EXPECT_EQ(controlAt(t.form, 35, 35), &t.b);
    t.b.Visible = false;
    EXPECT_EQ(controlAt(t.form, 35, 35), &t.a);
    EXPECT_EQ(controlAt(t.form, 10, 10), &t.a) << "left and top edge belong to it";
    EXPECT_EQ(controlAt(t.form, 40, 20), nullptr) << "right and bottom edge do not";
    EXPECT_EQ(controlAt(t.form, 20, 40), nullptr);
    EXPECT_EQ(controlAt(t.form, 100, 100), nullptr) << "native ones are left out";
}

TEST(ControlAt, KnowsFixedSizes) {
    Bench t;
    t.form.grid = {2, 1.5, 1.25};
    t.b.Visible = false;
    t.a.fixedWidth = 31;   // 38.75 pixels: 39 from pixel 20 on
    t.a.fixedHeight = 50;  // 62.5 pixels: 63 from pixel 15 on
    EXPECT_EQ(pixelsOf(t.a, t.form.grid), (PixelBox{20, 15, 59, 78}));
    EXPECT_EQ(controlAt(t.form, 29.4f, 20), &t.a);
    EXPECT_EQ(controlAt(t.form, 29.6f, 20), nullptr);
    EXPECT_EQ(controlAt(t.form, 20, 51.9f), &t.a);
    EXPECT_EQ(controlAt(t.form, 20, 52.1f), nullptr);
}

TEST(ControlAt, IsTheLastOneDrawnThere) {
    std::mt19937 random(3);
    const auto draw = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int round = 0; round < 60; ++round) {
        Bench t;
        t.form.grid = {0.9 + draw(30) / 10.0, 0.9 + draw(30) / 10.0, 1 + draw(5) / 4.0};
        Image images[24];
        for (Image& image : images) {
            const auto left = static_cast<float>(draw(60)), top = static_cast<float>(draw(60));
            t.put(image, Source{6}, Kind::image, {left, top, left + 25, top + 20});
            image.fixedWidth = draw(3) == 0 ? 17 : 0;
            image.Visible = draw(4) != 0;
            if (draw(4) == 0) ZOrder(t.runtime, images[draw(24)]);
        }
        const auto drawn = drawnControls(t.form);
        for (int i = 0; i < 100; ++i) {
            const float x = static_cast<float>(draw(90)) + 0.3f,
                        y = static_cast<float>(draw(80)) + 0.3f;
            const auto hit = std::find_if(drawn.rbegin(), drawn.rend(), [&](const Control* one) {
                const PixelBox box = pixelsOf(*one, t.form.grid);
                const double px = x * t.form.grid.x, py = y * t.form.grid.y;
                return px >= box.left && px < box.right && py >= box.top && py < box.bottom;
            });
            ASSERT_EQ(controlAt(t.form, x, y), hit == drawn.rend() ? nullptr : *hit);
        }
    }
}

bool inside(const PixelBox& inner, const PixelBox& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

TEST(Pixels, KeepContainmentAndLeaveNoGaps) {
    std::mt19937 random(11);
    const auto draw = [&random](float from, float to) {
        return std::uniform_real_distribution<float>(from, to)(random);
    };
    for (int i = 0; i < 20000; ++i) {
        const PixelGrid grid{draw(0.3f, 5), draw(0.3f, 5), 1};
        const Box outer{draw(-20, 400), draw(-20, 300), draw(400, 820), draw(300, 620)};
        const float x = draw(outer.left, outer.right), y = draw(outer.top, outer.bottom);
        const Box inner{outer.left, y, x, draw(y, outer.bottom)};
        const Box next{x, y, outer.right, inner.bottom};
        ASSERT_TRUE(inside(toPixels(inner, grid), toPixels(outer, grid)));
        ASSERT_TRUE(inside(toPixels(next, grid), toPixels(outer, grid)));
        ASSERT_EQ(toPixels(inner, grid).right, toPixels(next, grid).left);
    }
    for (const auto& [w, h] : {std::pair{1366, 705}, {2560, 1377}, {800, 600}, {3840, 2100}}) {
        const PixelGrid grid{w / 800.0, h / 600.0, 1};
        EXPECT_EQ(toPixels({0, 0, 800, 600}, grid), (PixelBox{0, 0, w, h}));
    }
}

TEST(Pixels, OfACardAreAsManyEverywhereAndAllErased) {
    std::mt19937 random(5);
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    for (int width = 640; width < 3900; width += 3) {
        PixelGrid grid{width / 800.0, width * draw(0.4, 0.8) / 600, 1};
        const auto scale = static_cast<float>(draw(0.4, 1.06));
        const float w = 1200 * 800 / 15432.0f * scale, h = 2232 * 600 / 12360.0f * scale;
        // Every other window makes a card a whole number of pixels wide.
        if (width % 2 == 0) grid.x = std::round(grid.x * w) / w;
        PixelBox first;
        for (int i = 0; i < 30; ++i) {
            const auto left = static_cast<float>(draw(0, 700)),
                       top = static_cast<float>(draw(0, 480));
            const Box box{left, top, left + w, top + h};
            const PixelBox card = pictureToPixels(box, grid);
            // A filled box reaches one unit past the card's right and bottom edge.
            const Box erasing{left, top, box.right + 1, box.bottom + 1};
            if (i == 0) first = card;
            ASSERT_EQ(card.right - card.left, first.right - first.left) << width << ' ' << left;
            ASSERT_EQ(card.bottom - card.top, first.bottom - first.top) << width << ' ' << top;
            ASSERT_TRUE(inside(card, toPixels(erasing, grid)))
                << width << ' ' << left << ' ' << top;
        }
    }
}

TEST(Press, GoesToTheControlOrElseToTheForm) {
    Bench t;
    pressAt(t.runtime, t.form, 15, 15, 2);
    pressAt(t.runtime, t.form, 500, 400, 4);
    ASSERT_EQ(t.runtime.queue.size(), 2u);
    EXPECT_EQ(t.runtime.queue[0].source, Source{1});
    EXPECT_EQ(t.runtime.queue[0].verb, Verb::Click);
    const Event& bare = t.runtime.queue[1];
    EXPECT_EQ(bare.source, Source{9});
    EXPECT_EQ(bare.verb, Verb::MouseDown);
    EXPECT_EQ(bare.Button, 4);
    EXPECT_EQ(bare.X, 500);
    EXPECT_EQ(bare.Y, 400);
}

TEST(Press, OfAnOptionSelectsItInItsArrayOnly) {
    Bench t;
    for (const int chosen : {1, 2, 0, 0}) {
        clickOn(t.runtime, t.form, t.options[chosen]);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(t.options[i].Value, i == chosen);
        EXPECT_TRUE(t.other.Value) << "another array";
    }
    EXPECT_EQ(t.runtime.queue.size(), 4u);
}

/// Counts its calls; the first one raises the same event again.
int calls = 0;
void answer(Runtime& runtime, const Event& event) {
    if (++calls == 1) runtime.queue.push_back(event);
}

TEST(Round, DeliversWhatIsQueuedWithoutWaiting) {
    const Handler table[] = {{Source{1}, Verb::Click, answer}, {Source{7}, Verb::Timer, answer}};
    Headless backend;
    Runtime runtime(backend, table);
    calls = 0;
    runtime.queue = {{Source{1}, Verb::Click}, {Source{2}, Verb::Click}, {Source{1}, Verb::Change}};
    rtcDoEvents(runtime, 5);
    EXPECT_EQ(calls, 1) << "only what the table has, and what a procedure queues waits";
    EXPECT_EQ(backend.time.now, 0);
    rtcDoEvents(runtime, 5);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(backend.time.now, 0);
    rtcDoEvents(runtime, 5);
    EXPECT_EQ(calls, 2) << "each event comes once";
    EXPECT_EQ(backend.time.now, 5);
}

TEST(Round, AFormIsActivatedOnceForEachTimeItIsShown) {
    const Handler table[] = {{Source{9}, Verb::Activate, answer}};
    Headless backend;
    Runtime runtime(backend, table);
    Form form;
    form.source = Source{9};
    calls = 1;
    Show(runtime, form);
    Show(runtime, form);
    EXPECT_EQ(calls, 1) << "not from inside another event";
    while (activateNext(runtime)) {
    }
    EXPECT_EQ(calls, 2) << "two calls in a row are one showing";
    Show(runtime, form);
    EXPECT_TRUE(activateNext(runtime));
    EXPECT_EQ(calls, 3);
    Show(runtime, form);
    Unload(runtime, form);
    EXPECT_FALSE(activateNext(runtime)) << "it has gone in the meantime";
}

TEST(Round, TimersTickWhileItWaits) {
    const Handler table[] = {{Source{7}, Verb::Timer, answer}};
    Headless backend;
    Runtime runtime(backend, table);
    Timer timer{Source{7}, false, 80, 0};
    runtime.timers = {&timer};
    calls = 1;
    const auto waitUntil = [&](double end) {
        while (backend.time.now < end) rtcDoEvents(runtime, end);
        return calls - 1;
    };
    EXPECT_EQ(waitUntil(1), 0);
    Enabled(runtime, timer, true);
    EXPECT_EQ(waitUntil(1.07), 0);
    EXPECT_EQ(waitUntil(1.09), 1) << "the first tick comes after one interval";
    EXPECT_EQ(waitUntil(1.85), 10);
    Interval(runtime, timer, 2400);
    EXPECT_EQ(waitUntil(4.24), 10);
    EXPECT_EQ(waitUntil(4.26), 11) << "a new interval counts from its setting";
    Enabled(runtime, timer, false);
    EXPECT_EQ(waitUntil(20), 11);
}

}  // namespace
