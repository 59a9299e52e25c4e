// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QPointF>
#include <QRectF>
#include <functional>
#include <vector>

// How the signs of a card are set in a field, in the units of its drawing.

inline constexpr double fieldInset = 8;     ///< from the edge of a card to what stands in its frame
inline constexpr double frameInset = 4;     ///< and to the middle of the frame's strong line
inline constexpr double leastGap = 2;       ///< between two signs
inline constexpr QSizeF indexSize(26, 28);  ///< kept free in two corners of a slim card

/// What keeps others away: a box, or the disc that it holds.
struct Shape {
    QRectF box;
    bool round = false;
};

/// A drawing of that size at a scale.
Shape shapeAt(QPointF middle, QSizeF size, double scale, bool round = false);

/// Between the edges of the two; below 0 where they overlap.
double distance(const Shape&, const Shape&);

/// Whether no two of them are nearer than that.
bool areApart(const std::vector<Shape>&, double gap);

/// What is no longer free on a card.
struct Room {
    std::vector<Shape> taken;
    bool isFreeFor(const std::vector<Shape>&) const;
};

/// One way to set signs.
struct Way {
    std::vector<int> rows;  ///< how many in each
    enum Direction { lying, standing, diagonal } direction;
    QSizeF inset;    ///< of the field, clear of the index
    bool toTheEnds;  ///< the outermost touch the field's ends; else all gaps are equal
    double liking;   ///< how much a way counts that is as large as another
};

/// The middles of all signs of a size, row by row or column by column.
std::vector<QPointF> places(const Way&, const QRectF& field, QSizeF sign);

/// The ways that "2 1 2|5" names: lying, standing and, of single signs, on the diagonal that has no
/// index at its ends. What stands apart goes to the field's ends and heeds no index.
std::vector<Way> waysToSet(const QByteArray& rows, QSizeF index, bool apart);

/// A scale from `least`, which is known to fit, to `most`: the largest that fits, where all below
/// it do so as well.
template <class Fits>
double largest(double least, double most, Fits fits) {
    if (fits(most)) return most;
    double low = least, high = most;
    for (int i = 0; i < 14; ++i) (fits((low + high) / 2) ? low : high) = (low + high) / 2;
    return low;
}

/// Signs in their places, all at one scale.
struct Setting {
    double scale = 0;
    std::vector<QPointF> middles;
};

/// Of all ways the one that is liked best for its size, with the largest signs that fit.
Setting largestSetting(const std::vector<Way>&, const QRectF& field, QSizeF sign, double most,
                       const std::function<bool(const Setting&)>& fits);

/// Signs that cross each other.
struct Bundle {
    double scale = 0;
    double lean = 0;  ///< from the upright, in radians
    QSizeF size;
    double area() const { return size.isValid() ? size.width() * size.height() : 0; }
};

/// Two signs along the diagonals of a cell, so long and so wide apart as fills it best; least and
/// widest are in radians.
Bundle bundleIn(QSizeF cell, QSizeF sign, double least, double widest);

/// A field without so much on either side.
QRectF inside(const QRectF& field, QSizeF inset);
