// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/form.h"

#include <algorithm>
#include <cmath>

#include "platform/backend.h"

namespace {

constexpr float outlineThickness = 2;

void paint(Form& form, Box box, Picture picture, Colour colour) {
    form.backend->painted(form, form.surface.add(box, picture, colour));
}

void fill(Form& form, Box box, Colour colour) {
    paint(form, box, picture::none, colour);
}

void outline(Form& form, const Box& box, Colour colour) {
    const auto [left, top, right, bottom] = box;
    const float pen = std::min({outlineThickness, (right - left) / 2, (bottom - top) / 2});
    fill(form, {left, top, right, top + pen}, colour);
    fill(form, {left, bottom - pen, right, bottom}, colour);
    fill(form, {left, top + pen, left + pen, bottom - pen}, colour);
    fill(form, {right - pen, top + pen, right, bottom - pen}, colour);
}

}  // namespace

void PaintPicture(Form& form, Picture picture, float x, float y, float width, float height) {
    paint(form, {x, y, x + width, y + height}, picture, 0);
}

void Line(Form& form, float x1, float y1, float x2, float y2, Colour colour, LineStyle style) {
    const Box box{std::min(x1, x2), std::min(y1, y2), std::max(x1, x2) + 1, std::max(y1, y2) + 1};
    if (style == LineStyle::B) {
        outline(form, box, colour);
    } else {
        fill(form, box, colour);
    }
}

Colour Point(const Form& form, float x, float y) {
    const PixelGrid& grid = form.grid;
    const int column = pixelAt(x, grid.x), row = pixelAt(y, grid.y);
    const Painted* top = form.surface.at(middleOf(column, grid.x), middleOf(row, grid.y));
    if (!top) return form.surface.backColor;
    if (top->picture == picture::none) return top->colour;
    const PixelBox place = toPixels(top->box, grid);
    const PixelSize drawn = drawnSize(top->box, grid);
    return form.backend->pixel(top->picture, drawn, std::min(column - place.left, drawn.width - 1),
                               std::min(row - place.top, drawn.height - 1));
}

void Cls(Form& form) {
    form.surface.clear();
    form.backend->cleared(form);
}

void BackColor(Form& form, Colour colour) {
    form.surface.backColor = colour;
    Cls(form);
}

bool isNative(const Control& control) {
    return control.kind != Kind::image && control.kind != Kind::label;
}

PixelBox pixelsOf(const Control& control, const PixelGrid& grid) {
    PixelBox box = toPixels(
        {control.Left, control.Top, control.Left + control.Width, control.Top + control.Height},
        grid);
    const auto onScreen = [&grid](int pixels) {
        return static_cast<int>(std::lround(pixels * grid.fixed));
    };
    if (control.fixedWidth != 0) box.right = box.left + onScreen(control.fixedWidth);
    if (control.fixedHeight != 0) box.bottom = box.top + onScreen(control.fixedHeight);
    return box;
}

const Control* controlAt(const Form& form, float x, float y) {
    const int column = pixelAt(x, form.grid.x), row = pixelAt(y, form.grid.y);
    const Control* found = nullptr;
    for (const Control* control : form.controls) {
        if (!control->Visible || isNative(*control)) continue;
        const PixelBox box = pixelsOf(*control, form.grid);
        const bool inside =
            column >= box.left && column < box.right && row >= box.top && row < box.bottom;
        if (inside && (!found || control->z >= found->z)) found = control;
    }
    return found;
}

std::vector<const Control*> drawnControls(const Form& form) {
    std::vector<const Control*> drawn;
    for (const Control* control : form.controls)
        if (control->Visible && !isNative(*control)) drawn.push_back(control);
    std::stable_sort(drawn.begin(), drawn.end(),
                     [](const Control* a, const Control* b) { return a->z < b->z; });
    return drawn;
}
