// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The painted surface against a raster that knows no entries, only colours.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/events.h"
#include "platform/headless/headless.h"

namespace {

/// Every picture shows, wherever it is looked at, which one it is and at which of its points.
struct Gradient : Headless {
    Colour pixel(Picture picture, float across, float down) override {
        return picture << 16 | static_cast<int>(across * 255) << 8 | static_cast<int>(down * 255);
    }
};

/// A form together with a raster of half units, painted the plain way.
class Sheet {
public:
    static constexpr int width = 64, height = 48;  ///< half units

    Sheet() {
        form.backend = &backend_;
        backColor(0x112233);
    }

    Form form;

    void picture(Picture p, float x, float y, float w, float h) {
        PaintPicture(form, p, x, y, w, h);
        each(x, y, x + w, y + h,
             [&](float cx, float cy) { return backend_.pixel(p, (cx - x) / w, (cy - y) / h); });
    }
    void fill(float x1, float y1, float x2, float y2, Colour c) {
        Line(form, x1, y1, x2, y2, c, LineStyle::BF);
        box(x1, y1, x2, y2, c);
    }
    void line(float x1, float y1, float x2, float y2, Colour c) {
        Line(form, x1, y1, x2, y2, c);
        box(x1, y1, x2, y2, c);
    }
    void outline(float x1, float y1, float x2, float y2, Colour c) {
        Line(form, x1, y1, x2, y2, c, LineStyle::B);
        box(x1, y1, x2, y1 + 1, c);
        box(x1, y2 - 1, x2, y2, c);
        box(x1, y1, x1 + 1, y2, c);
        box(x2 - 1, y1, x2, y2, c);
    }
    void clear() {
        Cls(form);
        each(0, 0, width, height, [&](float, float) { return back_; });
    }
    void backColor(Colour c) {
        BackColor(form, c);
        back_ = c;
        each(0, 0, width, height, [&](float, float) { return c; });
    }

    /// The first point at which the surface and the raster differ, empty if there is none.
    std::string difference() const {
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column)
                if (Point(form, centre(column), centre(row)) != cells_[row][column])
                    return std::to_string(centre(column)) + ' ' + std::to_string(centre(row));
        return {};
    }

private:
    static float centre(int cell) { return static_cast<float>(cell) / 2 + 0.25f; }

    void box(float x1, float y1, float x2, float y2, Colour c) {
        each(std::min(x1, x2), std::min(y1, y2), std::max(x1, x2) + 1, std::max(y1, y2) + 1,
             [c](float, float) { return c; });
    }
    template <class At>
    void each(float left, float top, float right, float bottom, At at) {
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column) {
                const float x = centre(column), y = centre(row);
                if (x > left && x < right && y > top && y < bottom) cells_[row][column] = at(x, y);
            }
    }

    Gradient backend_;
    Colour back_ = 0, cells_[height][width] = {};
};

/// Paints at random, but often at the same edges, as the game does.
class Painter {
public:
    Painter(Sheet& sheet, unsigned seed) : sheet_(sheet), random_(seed) {}

    void stroke() {
        const int kind = below(100);
        const float x = edge(), y = edge();
        if (kind < 30) {
            sheet_.picture(picture(), x, y, size(), size());
        } else if (kind < 55) {
            sheet_.fill(x, y, x + size() - 1, y + size() - 1, colour());
        } else if (kind < 65) {
            sheet_.fill(x + size(), y + size(), x, y, colour());
        } else if (kind < 75) {
            kind % 2 == 0 ? sheet_.line(x, y, x, y + size(), colour())
                          : sheet_.line(x + size(), y, x, y, colour());
        } else if (kind < 82) {
            sheet_.outline(x, y, x + size(), y + size(), colour());
        } else if (kind < 85) {
            slide(x, y);
        } else if (kind < 89) {
            interruptedFill(x, y);
        } else if (kind < 94) {
            wipe();
        } else if (kind < 98) {
            sheet_.form.surface.tidy();
        } else if (kind == 98) {
            sheet_.clear();
        } else {
            sheet_.backColor(colour());
        }
    }

private:
    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    float edge() { return static_cast<float>(below(14)) * 2 + static_cast<float>(below(2)) / 2; }
    float size() { return static_cast<float>(below(3)) * 4 + 4; }
    Colour colour() { return 0x7000 + below(3); }
    Picture picture() { return static_cast<Picture>(1 + below(3)); }

    void slide(float x, float y) {
        const Picture card = picture();
        const float w = size(), h = size();
        for (float top = y; top < y + 9; top += 2) {
            sheet_.picture(card, x, top + 1, w, h);
            sheet_.fill(x, top - 3, x + w, top, 0x7000);
        }
    }
    /// Two fills that make up one box, and something painted between them over their edge.
    void interruptedFill(float x, float y) {
        const Colour c = colour();
        const float w = size(), h = size();
        sheet_.fill(x, y, x + w - 1, y + h - 1, c);
        const float px = x + static_cast<float>(below(12)) - 6, py = y + size() - 6;
        below(2) == 0 ? sheet_.picture(picture(), px, py, size(), size())
                      : sheet_.fill(px, py, px + size(), py + size(), colour());
        below(2) == 0 ? sheet_.fill(x + w, y, x + w + 3, y + h - 1, c)
                      : sheet_.fill(x, y - 4, x + w - 1, y - 1, c);
    }
    void wipe() {
        const Colour c = colour();
        for (float x = 0; x < 20; ++x) {
            sheet_.line(x, 0, x, 13, c);
            sheet_.line(31 - x, 23, 31 - x, 12, c);
        }
    }

    Sheet& sheet_;
    std::mt19937 random_;
};

TEST(Surface, ShowsWhatWasPaintedLast) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        Sheet sheet;
        Painter painter(sheet, seed);
        for (int stroke = 1; stroke <= 40; ++stroke) {
            painter.stroke();
            if (stroke % 2 != 0) continue;
            ASSERT_EQ(sheet.difference(), "") << "seed " << seed << ", stroke " << stroke;
        }
        sheet.form.surface.tidy();
        ASSERT_EQ(sheet.difference(), "") << "seed " << seed << ", tidied";
    }
}

TEST(Surface, StaysTheSameWhenItTidiesItselfUp) {
    Sheet sheet;
    std::mt19937 random(7);
    const auto draw = [&random] { return static_cast<float>(random() % 14) * 2; };
    for (int i = 0; i < 2500; ++i)
        sheet.picture(static_cast<Picture>(1 + i % 40), draw(), draw(), 2.5f, 3);
    EXPECT_LT(sheet.form.surface.list.size(), 600u);
    EXPECT_EQ(sheet.difference(), "");
}

TEST(Surface, ASlideAndAWipeLeaveNoTrail) {
    Sheet sheet;
    for (float top = 0; top < 400; top += 2) {
        sheet.picture(1, 4, top + 1, 6, 8);
        sheet.fill(4, top - 3, 10, top, 0x7000);
    }
    EXPECT_LT(sheet.form.surface.list.size(), 10u);
    EXPECT_EQ(sheet.difference(), "");
    for (float x = 0; x <= 800; ++x) {
        sheet.line(x, 0, x, 301, 0x5);
        sheet.line(800 - x, 600, 800 - x, 300, 0x5);
    }
    EXPECT_LT(sheet.form.surface.list.size(), 10u);
    EXPECT_EQ(sheet.difference(), "");
}

TEST(Surface, EndsAreIncluded) {
    Sheet sheet;
    sheet.backColor(0);
    const Form& form = sheet.form;
    Line(sheet.form, 10, 10, 12, 14, 0x99, LineStyle::BF);
    struct {
        float x, y;
        bool painted;
    } const points[] = {{10, 10, true},  {12, 14, true},    {12.9f, 14.9f, true}, {9.9f, 12, false},
                        {13, 12, false}, {11, 9.9f, false}, {11, 15, false}};
    for (const auto& [x, y, painted] : points)
        EXPECT_EQ(Point(form, x, y) == 0x99, painted) << x << ' ' << y;
    PaintPicture(sheet.form, 5, 20, 10, 4, 6);
    EXPECT_EQ(Point(form, 20, 10) >> 16, 5);
    EXPECT_EQ(Point(form, 23.9f, 15.9f) >> 16, 5);
    EXPECT_EQ(Point(form, 24, 12), 0) << "a picture is as wide as it is told";
    EXPECT_EQ(Point(form, 22, 16), 0);
}

}  // namespace
