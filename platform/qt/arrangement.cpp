// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/arrangement.h"

#include <QList>
#include <algorithm>
#include <cmath>

Shape shapeAt(QPointF middle, QSizeF size, double scale, bool round) {
    QRectF box({0, 0}, size * scale);
    box.moveCenter(middle);
    return {box, round};
}

double distance(const Shape& one, const Shape& other) {
    const double radius = (one.round ? one.box.width() / 2 : 0);
    const double otherRadius = (other.round ? other.box.width() / 2 : 0);
    const auto core = [](const Shape& s) {
        return s.round ? QRectF(s.box.center(), QSizeF(0, 0)) : s.box;
    };
    const QRectF a = core(one), b = core(other);
    const double across = std::max(a.left(), b.left()) - std::min(a.right(), b.right());
    const double down = std::max(a.top(), b.top()) - std::min(a.bottom(), b.bottom());
    if (across <= 0 && down <= 0 && !one.round && !other.round) return std::max(across, down);
    return std::hypot(std::max(across, 0.0), std::max(down, 0.0)) - radius - otherRadius;
}

bool areApart(const std::vector<Shape>& all, double gap) {
    for (auto one = all.begin(); one != all.end(); ++one)
        if (std::any_of(one + 1, all.end(),
                        [&](const Shape& other) { return distance(*one, other) < gap; }))
            return false;
    return true;
}

bool Room::isFreeFor(const std::vector<Shape>& all) const {
    return std::all_of(all.begin(), all.end(), [&](const Shape& one) {
        return std::all_of(taken.begin(), taken.end(),
                           [&](const Shape& other) { return distance(one, other) >= 1; });
    });
}

namespace {

/// From the middle of one sign to that of the next, n of them in a length.
double pitch(double length, int n, double sign, bool toTheEnds) {
    const double gap = (length - n * sign) / (n + 1);
    if (gap >= 0 && !toTheEnds) return sign + gap;
    return n > 1 ? (length - sign) / (n - 1) : 0;
}

}  // namespace

std::vector<QPointF> places(const Way& way, const QRectF& field, QSizeF sign) {
    const int lines = static_cast<int>(way.rows.size());
    const int widest = way.direction == Way::diagonal
                           ? lines
                           : *std::max_element(way.rows.begin(), way.rows.end());
    const bool upright = way.direction == Way::standing;
    const double across =
        pitch(field.width(), upright ? lines : widest, sign.width(), way.toTheEnds);
    const double down =
        pitch(field.height(), upright ? widest : lines, sign.height(), way.toTheEnds);
    std::vector<QPointF> middles;
    for (int line = 0; line < lines; ++line) {
        const int count = way.rows[static_cast<std::size_t>(line)];
        for (int i = 0; i < count; ++i) {
            const double aside = line - (lines - 1) / 2.0;
            // The diagonal that has no index at its ends.
            const double along = way.direction == Way::diagonal ? -aside : i - (count - 1) / 2.0;
            middles.push_back(field.center() + (upright ? QPointF(aside * across, along * down)
                                                        : QPointF(along * across, aside * down)));
        }
    }
    return middles;
}

std::vector<Way> waysToSet(const QByteArray& rows, QSizeF index, bool apart) {
    std::vector<Way> ways;
    const QList<QByteArray> all = rows.split('|');
    for (const QByteArray& one : all) {
        std::vector<int> counts;
        const QList<QByteArray> numbers = one.split(' ');
        for (const QByteArray& number : numbers) counts.push_back(number.toInt());
        const bool single = std::all_of(counts.begin(), counts.end(), [](int n) { return n == 1; });
        for (const auto direction : {Way::lying, Way::standing, Way::diagonal}) {
            if (direction == Way::diagonal && (!single || apart)) continue;
            // A diagonal reaches into the upper part of a card, all that is seen of it in a fan.
            const double liking =
                (&one == &all.first() ? 1 : 0.85) * (direction == Way::diagonal ? 1.006 : 1);
            if (apart) {
                // One above the other rather than side by side.
                ways.push_back(
                    {counts, direction, {0, 0}, true, direction == Way::lying ? 1 : 0.75});
                continue;
            }
            for (const bool toTheEnds : {false, true})
                for (const QSizeF part : {QSizeF(0, 0), QSizeF(0.5, 0), QSizeF(0, 0.5),
                                          QSizeF(0.5, 0.5), QSizeF(1, 0), QSizeF(0, 1)})
                    ways.push_back({counts, direction,
                                    QSizeF(part.width() * (index.width() - fieldInset),
                                           part.height() * (index.height() - fieldInset)),
                                    toTheEnds, liking});
        }
    }
    return ways;
}

Setting largestSetting(const std::vector<Way>& ways, const QRectF& field, QSizeF sign, double most,
                       const std::function<bool(const Setting&)>& fits) {
    Setting best;
    double liked = 0;
    for (const Way& way : ways) {
        const QRectF room = inside(field, way.inset);
        const auto at = [&](double scale) {
            return Setting{scale, places(way, room, sign * scale)};
        };
        const double limit =
            std::min({room.width() / sign.width(), room.height() / sign.height(), most});
        // A little larger, or the one that is named first.
        const double toBeat = liked * 1.005 / way.liking;
        if (toBeat > limit || (liked > 0 && !fits(at(toBeat)))) continue;
        best = at(largest(toBeat, limit, [&](double scale) { return fits(at(scale)); }));
        liked = best.scale * way.liking;
    }
    return best;
}

Bundle bundleIn(QSizeF cell, QSizeF sign, double least, double widest) {
    Bundle best;
    for (double lean = least; lean < widest; lean += 0.02) {
        const QSizeF size(sign.height() * std::sin(lean) + sign.width() * std::cos(lean),
                          sign.height() * std::cos(lean) + sign.width() * std::sin(lean));
        const double scale = std::min(cell.width() / size.width(), cell.height() / size.height());
        const Bundle tried{scale, lean, size * scale};
        if (tried.area() > best.area()) best = tried;
    }
    return best;
}

QRectF inside(const QRectF& field, QSizeF inset) {
    return field.adjusted(inset.width(), inset.height(), -inset.width(), -inset.height());
}
