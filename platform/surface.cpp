// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/surface.h"

#include <algorithm>
#include <cmath>

namespace {

/// How many of the newest entries a new one is compared with. A step of a slide and a step of the
/// wipe both look alike to their last two steps, which are at most four entries back.
constexpr int reach = 4;

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

bool joinsAcross(const Box& a, const Box& b) {
    return a.top == b.top && a.bottom == b.bottom && a.left <= b.right && b.left <= a.right;
}

bool joinsDown(const Box& a, const Box& b) {
    return a.left == b.left && a.right == b.right && a.top <= b.bottom && b.top <= a.bottom;
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

void Surface::add(const Painted& entry) {
    Painted added = entry;
    int looked = 0;
    for (std::size_t i = list.size(); i > 0 && looked < reach; --i, ++looked) {
        Painted& below = list[i - 1];
        if (contains(added.visible, below.visible)) {
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(i - 1));
            continue;
        }
        const bool fills = added.picture == picture::none && below.picture == picture::none;
        if (fills && added.colour == below.colour &&
            (joinsAcross(added.visible, below.visible) || joinsDown(added.visible, below.visible))) {
            // The two are one box. It may take the lower one's place only as long as nothing
            // between them is hidden by the new part, which would then come out again.
            const bool free = std::none_of(
                list.begin() + static_cast<std::ptrdiff_t>(i), list.end(),
                [&](const Painted& between) { return overlap(between.visible, added.visible); });
            if (free) {
                below.box = below.visible = hull(below.visible, added.visible);
                return;
            }
        }
        trim(below.visible, added.visible);
    }
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
