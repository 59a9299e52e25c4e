// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/surface.h"

#include <algorithm>
#include <cmath>

namespace {

/// How many of the newest entries a new one is compared with. A step of a slide and a step of the
/// wipe both look alike to their last two steps, which are at most four entries back.
constexpr std::size_t reach = 4;

bool contains(const Box& outer, const Box& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

bool overlap(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// Takes off the upper or lower end of what is seen of a picture, where the new box hides it over
/// its whole width.
void trim(Box& seen, const Box& hiding) {
    if (hiding.left > seen.left || hiding.right < seen.right) return;
    if (hiding.top <= seen.top && hiding.bottom > seen.top) seen.top = hiding.bottom;
    if (hiding.bottom >= seen.bottom && hiding.top < seen.bottom) seen.bottom = hiding.top;
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

int edge(float units, double pixels) {
    return static_cast<int>(std::floor(units * pixels + 0.5));
}

}  // namespace

PixelBox toPixels(const Box& box, const PixelGrid& grid) {
    return {edge(box.left, grid.x), edge(box.top, grid.y), edge(box.right, grid.x),
            edge(box.bottom, grid.y)};
}

PixelBox pictureToPixels(const Box& box, const PixelGrid& grid) {
    // The size comes out of single-precision sums; a trace less than a whole pixel is a whole one.
    const auto size = [](float units, double pixels) {
        return static_cast<int>(std::floor(units * pixels + 0.01));
    };
    const PixelBox place = toPixels(box, grid);
    return {place.left, place.top, place.left + size(box.right - box.left, grid.x),
            place.top + size(box.bottom - box.top, grid.y)};
}

bool Surface::continueFill(const Painted& added) {
    if (added.picture != picture::none || list.empty()) return false;
    Painted& newest = list.back();
    const bool same = sameFill(newest, added);
    if (same && joins(newest.visible, added.box)) {
        newest.box = newest.visible = hull(newest.visible, added.box);
        return true;
    }
    if (list.size() < 2) return false;
    Painted& below = list[list.size() - 2];
    if (!sameFill(below, added) || !joins(below.visible, added.box)) return false;
    // The box comes to lie below the newest entry, which must not hide a part of it then.
    if (!same && overlap(newest.visible, added.box)) return false;
    below.box = below.visible = hull(below.visible, added.box);
    return true;
}

void Surface::add(const Painted& added) {
    if (continueFill(added)) return;
    const std::size_t lowest = list.size() > reach ? list.size() - reach : 0;
    for (std::size_t i = list.size(); i > lowest; --i) {
        Painted& below = list[i - 1];
        if (!overlap(added.visible, below.visible)) continue;
        if (contains(added.visible, below.visible)) {
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(i - 1));
        } else {
            trim(below.visible, added.visible);
        }
    }
    // What was hidden wholly is gone now, so a fill may find its like below the newest entry.
    if (continueFill(added)) return;
    list.push_back(added);
    if (list.size() >= tidyAt_) tidy();
}

void Surface::tidy() {
    std::size_t kept = list.size();
    for (std::size_t i = list.size(); i > 0; --i) {
        const Painted entry = list[i - 1];
        const bool hidden = std::any_of(
            list.begin() + static_cast<std::ptrdiff_t>(kept), list.end(),
            [&](const Painted& above) { return contains(above.visible, entry.visible); });
        if (!hidden) list[--kept] = entry;
    }
    list.erase(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(kept));
    tidyAt_ = std::max<std::size_t>(512, 2 * list.size());
}

void Surface::clear() {
    list.clear();
}

const Painted* Surface::at(float x, float y) const {
    for (auto entry = list.rbegin(); entry != list.rend(); ++entry) {
        const Box& box = entry->visible;
        if (x >= box.left && x < box.right && y >= box.top && y < box.bottom) return &*entry;
    }
    return nullptr;
}
