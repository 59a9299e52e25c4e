// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The painted surface against all that was painted on it, and which control is at a point.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/events.h"
#include "platform/form.h"
#include "platform/headless/headless.h"

namespace {

struct Random : std::mt19937 {
    int below(int n) { return static_cast<int>((*this)() % static_cast<unsigned>(n)); }
    float unit(int n) { return static_cast<float>(below(n)); }
};

/// A form whose backend keeps everything that is painted and drops nothing.
struct Sheet : Headless {
    Form form;
    std::vector<Painted> strokes;

    Sheet() { form.backend = this; }
    void painted(Form&, const Painted& stroke) override { strokes.push_back(stroke); }
    void cleared(Form&) override { strokes.clear(); }

    /// At how many points something else is seen than what was painted last.
    int differences() const {
        int count = 0;
        for (float y = 0; y < 24; y += 0.5f)
            for (float x = 0; x < 32; x += 0.5f) {
                const auto last = std::find_if(strokes.rbegin(), strokes.rend(), [&](auto& one) {
                    const auto [left, top, right, bottom] = one.box;
                    return x >= left && x < right && y >= top && y < bottom;
                });
                const Painted* seen = form.surface.at(x, y);
                const Painted below = last == strokes.rend() ? Painted{} : *last;
                const Painted top = seen ? *seen : Painted{};
                count += top.picture != below.picture || top.colour != below.colour;
            }
        return count;
    }
};

/// Paints something at random, but often at the same edges, as the game does.
void paint(Form& form, Random& random) {
    const float x = random.unit(28), y = random.unit(28);
    const float w = random.unit(3) * 4 + 4, h = random.unit(3) * 4 + 4;
    const Colour colour = 0x7000 + random.below(3);
    const auto picture = static_cast<Picture>(1 + random.below(60));
    const int kind = random.below(20);
    if (kind < 8) PaintPicture(form, picture, x, y, w, h);
    if (kind >= 8 && kind < 14) Line(form, x, y, x + w - 1, y + h - 1, colour, LineStyle::BF);
    if (kind == 14) Line(form, x + w, y, x, y, colour);
    if (kind == 15) Line(form, x, y, x + w, y + h, colour, LineStyle::B);
    if (kind == 16) form.surface.tidied();
    if (kind == 17) BackColor(form, colour);
    for (float top = y; kind > 17 && top < y + 9; top += 2) {  // a slide
        PaintPicture(form, picture, x, top + 1, w, h);
        Line(form, x, top - 3, x + w, top, 0x7000, LineStyle::BF);
    }
}

TEST(Surface, ShowsWhatWasPaintedLast) {
    Random random;
    Sheet sheet;
    for (int stroke = 1; stroke <= 12000; ++stroke) {
        paint(sheet.form, random);
        ASSERT_EQ(sheet.differences(), 0) << "stroke " << stroke;
    }
}

TEST(Surface, StaysSmall) {
    Sheet sheet;
    for (float top = 0; top < 400; top += 2) {
        PaintPicture(sheet.form, 1, 4, top + 1, 6, 8);
        Line(sheet.form, 4, top - 3, 10, top, 0x7000, LineStyle::BF);
    }
    for (float x = 0; x <= 800; ++x) {
        Line(sheet.form, x, 0, x, 301, 0x5);
        Line(sheet.form, 800 - x, 600, 800 - x, 300, 0x5);
    }
    EXPECT_LT(sheet.form.surface.tidied().size(), 10u) << "a slide and a wipe leave no trail";
    Random random;
    for (int i = 0; i < 2500; ++i)
        PaintPicture(sheet.form, 1, random.unit(14), random.unit(14), 2.5f, 3);
    EXPECT_LT(sheet.form.surface.tidied().size(), 600u) << "it tidies itself up";
    Line(sheet.form, 10, 10, 20, 20, 0x99, LineStyle::B);
    EXPECT_EQ(Point(sheet.form, 20.9f, 11.9f), 0x99) << "the ends are included";
    EXPECT_EQ(Point(sheet.form, 11.9f, 18.9f), 0x99) << "an outline is two units thick";
    EXPECT_NE(Point(sheet.form, 12.1f, 18.9f), 0x99) << "and no more";
}

TEST(ControlAt, IsTheVisibleOneThatWasRaisedLast) {
    Sheet sheet;
    Runtime runtime(sheet, {});
    sheet.form.grid = {2, 2, 1};
    Image back, small, middle, hidden, button;
    for (Image* image : {&back, &small, &middle, &hidden, &button}) {
        Move(*image, 0, 0);
        image->Width = image->Height = 25;
        image->Visible = image != &hidden;
        sheet.form.controls.push_back(image);
    }
    small.fixedWidth = 17;
    button.kind = Kind::button;
    EXPECT_EQ(controlAt(sheet.form, 5, 5), &middle) << "those never raised keep their order";
    for (Image* raised : {&back, &small, &button}) ZOrder(runtime, *raised);
    EXPECT_EQ(drawnControls(sheet.form), (std::vector<const Control*>{&middle, &back, &small}));
    EXPECT_EQ(controlAt(sheet.form, 8.4f, 5), &small) << "its 17 pixels are 8.5 units";
    EXPECT_EQ(controlAt(sheet.form, 8.6f, 5), &back);
    EXPECT_EQ(controlAt(sheet.form, 5, 24.9f), &small) << "the height is not fixed";
    EXPECT_EQ(controlAt(sheet.form, 5, 25.1f), nullptr);
}

}  // namespace
