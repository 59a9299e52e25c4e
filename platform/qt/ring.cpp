// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/ring.h"

#include <QPainter>
#include <algorithm>

#include "platform/form.h"

namespace {

constexpr double reach = 4.5;  ///< units beyond the card; the next one is six away
constexpr int thinnest = 3;    ///< pixels
constexpr QColor brightBlue(90, 210, 255);

/// Fills what lies between the edge of a box, `outside` pixels smaller on each side, and the box
/// that is `thickness` pixels smaller still.
void frame(QPainter& painter, const QRect& box, int outside, int thickness, const QColor& colour) {
    const QRect outer = box.adjusted(outside, outside, -outside, -outside);
    const QRect inner = outer.adjusted(thickness, thickness, -thickness, -thickness);
    for (const QRect& part : QRegion(outer).subtracted(inner)) painter.fillRect(part, colour);
}

}  // namespace

Ring ringOf(const Form& form) {
    const Box& card = form.ring;
    if (card.right <= card.left) return {};
    const double pixelsPerUnit = std::min(form.grid.x, form.grid.y);
    const int thickness = std::max(thinnest, static_cast<int>(reach * pixelsPerUnit));
    const auto [left, top, right, bottom] = toPixels(card, form.grid);
    return {{left - thickness, top - thickness, right + thickness, bottom + thickness}, thickness};
}

void drawRing(QPainter& painter, const Ring& ring) {
    if (ring.thickness == 0) return;
    const auto [left, top, right, bottom] = ring.edge;
    const QRect edge(left, top, right - left, bottom - top);
    const int line = ring.thickness / 3;
    frame(painter, edge, 0, ring.thickness, Qt::black);
    frame(painter, edge, line, ring.thickness - 2 * line, brightBlue);
}
