// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/surface.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

bool contains(const Box& outer, const Box& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

bool overlap(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// The two boxes together are one box.
bool joins(const Box& a, const Box& b) {
    if (a.top == b.top && a.bottom == b.bottom) return a.left <= b.right && b.left <= a.right;
    return a.left == b.left && a.right == b.right && a.top <= b.bottom && b.top <= a.bottom;
}

bool sameFill(const Painted& a, const Painted& b) {
    return a.picture == b.picture && a.colour == b.colour && a.picture == picture::none;
}

Box hull(const Box& a, const Box& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

float area(const Box& box) {
    return (box.right - box.left) * (box.bottom - box.top);
}

/// A box that the two hide together, though not always the largest: it grows upwards and
/// downwards, as the trail of a sliding card does.
Box hiddenByBoth(const Box& hidden, const Box& added) {
    const bool touch = hidden.top <= added.bottom && added.top <= hidden.bottom;
    if (touch && added.left <= hidden.left && added.right >= hidden.right)
        return {hidden.left, std::min(hidden.top, added.top), hidden.right,
                std::max(hidden.bottom, added.bottom)};
    if (area(hidden) > area(added)) return hidden;
    if (touch && hidden.left <= added.left && hidden.right >= added.right)
        return {added.left, std::min(hidden.top, added.top), added.right,
                std::max(hidden.bottom, added.bottom)};
    return added;
}

/// The first pixel whose middle does not lie before an edge.
int edge(float units, double pixelsPerUnit) {
    const double place = units * pixelsPerUnit - 0.5;
    const int nearest = static_cast<int>(std::ceil(place));
    // A middle just before the edge may be the same number in single precision. Further away than
    // this it cannot be, and most are.
    constexpr double nextToIt = 1e-2;
    if (place - (nearest - 1) > nextToIt) return nearest;
    return middleOf(nearest - 1, pixelsPerUnit) >= units ? nearest - 1 : nearest;
}

}  // namespace

float middleOf(int pixel, double pixelsPerUnit) {
    return static_cast<float>((pixel + 0.5) / pixelsPerUnit);
}

int pixelAt(float units, double pixelsPerUnit) {
    return static_cast<int>(std::floor(units * pixelsPerUnit));
}

float pressOn(int pixel, double pixelsPerUnit) {
    return std::nextafter(middleOf(pixel, pixelsPerUnit), std::numeric_limits<float>::infinity());
}

PixelBox toPixels(const Box& box, const PixelGrid& grid) {
    return {edge(box.left, grid.x), edge(box.top, grid.y), edge(box.right, grid.x),
            edge(box.bottom, grid.y)};
}

PixelSize drawnSize(const Box& box, const PixelGrid& grid) {
    // The size comes out of single-precision sums; a trace less than a whole pixel is a whole one.
    const auto size = [](float units, double pixels) {
        return std::max(1, static_cast<int>(std::floor(units * pixels + 0.01)));
    };
    return {size(box.right - box.left, grid.x), size(box.bottom - box.top, grid.y)};
}

void Surface::settle() const {
    // From the newest down to the oldest. The kept ones gather at the end.
    Painted* kept = end_;
    Box hidden;  // by the kept ones
    for (const Painted* next = end_; next != fresh_.data();) {
        const Painted& entry = *--next;
        const Box& box = entry.box;
        if (contains(hidden, box)) continue;
        hidden = hiddenByBoth(hidden, box);
        if (kept != end_ && sameFill(*kept, entry) && joins(kept->box, box)) {
            kept->box = hull(kept->box, box);
        } else if (end_ - kept >= 2 && sameFill(kept[1], entry) && joins(kept[1].box, box) &&
                   (sameFill(*kept, entry) || !overlap(kept->box, box))) {
            // It comes to lie above the one between, of which it hides nothing.
            kept[1].box = hull(kept[1].box, box);
        } else {
            *--kept = entry;
        }
    }
    settled_.insert(settled_.end(), kept, end_);
    end_ = fresh_.data();
    if (settled_.size() >= tidyAt_) tidy();
}

void Surface::tidy() const {
    auto kept = settled_.end();
    for (auto next = kept; next != settled_.begin();) {
        const Painted entry = *--next;
        const bool hidden = std::any_of(kept, settled_.end(), [&](const Painted& above) {
            return contains(above.box, entry.box);
        });
        if (!hidden) *--kept = entry;
    }
    settled_.erase(settled_.begin(), kept);
    tidyAt_ = std::max(firstTidy, 2 * settled_.size());
}

const std::vector<Painted>& Surface::tidied() const {
    settle();
    tidy();
    return settled_;
}

const Painted* Surface::at(float x, float y) const {
    settle();
    for (auto entry = settled_.rbegin(); entry != settled_.rend(); ++entry) {
        const Box& box = entry->box;
        // Without short cuts: hardly any entry is the one, but each test alone is hard to foresee.
        const bool across = (x >= box.left) & (x < box.right);
        const bool down = (y >= box.top) & (y < box.bottom);
        if (across & down) return &*entry;
    }
    return nullptr;
}
