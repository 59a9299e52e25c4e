// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/composition.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <vector>

#include "platform/qt/arrangement.h"
#include "platform/qt/svg_tag.h"

namespace {

constexpr double mostTiles = 1000;  ///< in a quarter of the box

class Composition {
public:
    Composition(QSizeF design, QSizeF box) : design_(design), box_(box) {
        const QRectF all({0, 0}, box);
        field_ = all.adjusted(fieldInset, fieldInset, -fieldInset, -fieldInset);
        inFrame_ = all.adjusted(frameInset, frameInset, -frameInset, -frameInset);
        // It moves a little inwards as the box grows, so that a selected card's frame spares it.
        index_ = indexSize + QSizeF(0.08 * (box.width() - design.width()),
                                    0.045 * (box.height() - design.height()));
        QRectF last({0, 0}, index_);
        last.moveBottomRight(all.bottomRight());
        room_.taken = {Shape{QRectF({0, 0}, index_)}, Shape{last}};
    }

    /// What stands in the place of one of our own tags; nothing for any other tag.
    std::optional<QByteArray> inPlaceOf(const QByteArray& tag) {
        if (tag.startsWith("<g stand=")) return standing(tag);
        if (open_ > 0 && tag.startsWith("<g")) ++open_;
        if (open_ > 0 && tag == "</g>") --open_;
        if (tag.startsWith("<rect ") && open_ > 0) return grown(tag);
        if (leftOut(tag)) return QByteArray();
        if (tag.startsWith("<signs ")) return signs(tag);
        if (tag.startsWith("<crossed ")) return crossed(tag);
        if (tag.startsWith("<ornament ")) return ornaments(tag);
        if (tag.startsWith("<tiles ")) return tiles(tag);
        return std::nullopt;
    }

private:
    bool leftOut(const QByteArray& tag) const;
    QByteArray standing(const QByteArray& tag);
    QByteArray grown(const QByteArray& tag) const;
    QByteArray signs(const QByteArray& tag);
    QByteArray crossed(const QByteArray& tag);
    static QByteArray drawn(const Bundle& bundle, const QByteArray& tag, QPointF middle);
    QByteArray ornaments(const QByteArray& tag);
    QByteArray tiles(const QByteArray& tag) const;

    QPointF spot(const QByteArray& at) const;
    void take(const Shape& shape);

    QSizeF design_, box_;
    QRectF field_, inFrame_;  ///< what a card has for its signs, and with the frame's room
    QSizeF index_;            ///< in the top left corner, from the card's edges
    Room room_;
    QRectF signsBox_;  ///< round all signs
    QSizeF grown_;     ///< of the rectangles in the group that is being read
    int open_ = 0;     ///< groups, from the one that stands somewhere
};

bool Composition::leftOut(const QByteArray& tag) const {
    const double shape = box_.width() / box_.height();
    return shape < number(attribute(tag, "from"), 0) ||
           shape >= number(attribute(tag, "below"), HUGE_VAL);
}

QByteArray Composition::standing(const QByteArray& tag) {
    const QByteArray stand = attribute(tag, "stand");
    const bool fill = stand == "fill";
    const QSizeF spare = box_ - design_;
    const QSizeF inwards = sizeOf(tag, "inwards").isValid() ? sizeOf(tag, "inwards") : QSizeF(0, 0);
    const auto moved = [&](const char* first, const char* last, double room, double part) {
        if (fill || stand.contains(first)) return part * room;
        return stand.contains(last) ? room - part * room : room / 2;
    };
    const auto both = [&](const char* first, const char* last) {
        return fill || (stand.contains(first) && stand.contains(last));
    };
    grown_ = {both("left", "right") ? spare.width() : 0,
              both("top", "bottom") ? spare.height() : 0};
    open_ = 1;
    if (leftOut(tag)) return "<g display=\"none\">";
    return "<g transform=\"translate(" +
           inText(moved("left", "right", spare.width(), inwards.width())) + ' ' +
           inText(moved("top", "bottom", spare.height(), inwards.height())) + ")\">";
}

QByteArray Composition::grown(const QByteArray& tag) const {
    QByteArray out = tag;
    const auto grow = [&](const char* name, double by) {
        const QByteArray old = attribute(tag, name);
        const QByteArray before = ' ' + QByteArray(name) + "=\"";
        out.replace(before + old + '"', before + inText(old.toDouble() + by) + '"');
    };
    grow("width", grown_.width());
    grow("height", grown_.height());
    return out;
}

QByteArray Composition::signs(const QByteArray& tag) {
    const QSizeF size = sizeOf(tag, "href-size"), other = sizeOf(tag, "middle-size");
    const bool apart = attribute(tag, "apart") == "1", round = attribute(tag, "round") == "1";
    const auto isMiddle = [&](std::size_t i, std::size_t count) {
        return other.isValid() && 2 * i + 1 == count;
    };
    // Another drawing in the middle may be longer than the rest, but not than the field.
    const auto ofMiddle = [&](double scale) {
        return std::min({scale, field_.width() / other.width(), field_.height() / other.height()});
    };
    const auto shapes = [&](const Setting& setting) {
        std::vector<Shape> all;
        all.reserve(setting.middles.size());
        for (const QPointF& place : setting.middles)
            all.push_back(isMiddle(all.size(), setting.middles.size())
                              ? shapeAt(place, other, ofMiddle(setting.scale), round)
                              : shapeAt(place, size, setting.scale, round));
        return all;
    };
    const double most = number(attribute(tag, "most"), HUGE_VAL);
    const Setting best = largestSetting(
        waysToSet(attribute(tag, "rows"), index_, apart), apart ? inFrame_ : field_, size, most,
        [&](const Setting& tried) {
            return apart ? areApart(shapes(tried), -0.01)
                         : areApart(shapes(tried), leastGap) && room_.isFreeFor(shapes(tried));
        });
    QByteArray out;
    for (const QPointF& place : best.middles) {
        const QPointF from = place - field_.center();
        const bool turned = from.y() > 0.1 || (from.y() > -0.1 && from.x() > 0.1);
        const bool middle = other.isValid() && from.manhattanLength() < 0.1;
        out += use(attribute(tag, middle ? "middle" : "href"), place,
                   middle ? ofMiddle(best.scale) : best.scale, turned ? 180 : 0);
    }
    for (const Shape& shape : shapes(best)) take(shape);
    return out;
}

void Composition::take(const Shape& shape) {
    room_.taken.push_back(shape);
    signsBox_ |= shape.box;
}

QByteArray Composition::drawn(const Bundle& bundle, const QByteArray& tag, QPointF middle) {
    const QByteArray first = attribute(tag, "href"), other = attribute(tag, "other");
    const QByteArray upright = attribute(tag, "upright");
    const double degrees = bundle.lean * 180 / std::numbers::pi;
    QByteArray out = use(first, middle, bundle.scale, degrees, true) +
                     use(other.isEmpty() ? first : other, middle, bundle.scale, -degrees);
    if (upright.isEmpty()) return out;
    const double fitting = 1.06 * bundle.size.height() / sizeOf(tag, "upright-size").height();
    return out + use(upright, middle, std::min(bundle.scale, fitting));
}

QByteArray Composition::crossed(const QByteArray& tag) {
    const QSizeF sign = sizeOf(tag, "href-size"), lying = sizeOf(tag, "between-size");
    const double widest = attribute(tag, "upright").isEmpty() ? 0.87 : 0.6;
    const bool two = attribute(tag, "bundles") == "2";
    // In radians. Less cannot be counted at a glance; one bundle has longer signs.
    const double least = two ? 0.32 : 0.2;
    const QPointF centre = field_.center();
    Bundle best;
    QPointF first = centre;
    double between = 0, turn = 0;
    for (const bool beside : {false, true})
        for (const bool narrowed : {true, false}) {
            QRectF field = inside(field_, narrowed ? QSizeF(index_.width() - fieldInset, 0)
                                                   : QSizeF(0, index_.height() - fieldInset));
            const double length = beside ? field_.height() : field_.width();
            const double scale = lying.isValid() ? std::min(1.3, length / lying.height()) : 0;
            const double strip = lying.isValid() ? lying.width() * scale + 6 : 5;
            if (two && beside) field.setRight(centre.x() - strip / 2);
            if (two && !beside) field.setBottom(centre.y() - strip / 2);
            const Bundle tried = bundleIn(field.size(), sign, least, widest);
            if (tried.area() <= best.area()) continue;
            best = tried;
            first = field.center();
            between = scale;
            turn = beside ? 0 : 90;
        }
    take(shapeAt(first, best.size, 1));
    take(shapeAt(2 * centre - first, best.size, 1));
    QByteArray one = drawn(best, tag, first);
    if (!two) return one;
    QByteArray out = one + "<g transform=\"rotate(180 " + inText(centre.x()) + ' ' +
                     inText(centre.y()) + ")\">" + one + "</g>";
    if (lying.isValid()) out += use(attribute(tag, "between"), centre, between, turn);
    return out;
}

QPointF Composition::spot(const QByteArray& at) const {
    const QList<QByteArray> parts = at.split(' ');
    return {parts[0] == "left" ? (field_.left() + signsBox_.left()) / 2
                               : field_.left() + parts[0].toDouble() * field_.width(),
            parts[1] == "top" ? (field_.top() + signsBox_.top()) / 2
                              : field_.top() + parts[1].toDouble() * field_.height()};
}

QByteArray Composition::ornaments(const QByteArray& tag) {
    const double turn = number(attribute(tag, "turn"), 0);
    const double most = number(attribute(tag, "most"), 1);
    const double least = number(attribute(tag, "least"), 0.6);
    QSizeF size = sizeOf(tag, "href-size");
    if (turn == 90 || turn == 270) size.transpose();
    const QByteArray name = attribute(tag, "href");
    const QPointF centre = field_.center();
    QByteArray out;
    std::vector<Shape> set;
    const QList<QByteArray> all = attribute(tag, "at").split('|');
    for (const QByteArray& at : all) {
        const QPointF place = spot(at);
        const auto fits = [&](double scale) {
            const Shape shape = shapeAt(place, size, scale);
            return field_.contains(shape.box) && room_.isFreeFor({shape});
        };
        const double scale = largest(0, most, fits);
        if (scale < least) continue;
        out += use(name, place, scale, turn);
        set.push_back(shapeAt(place, size, scale));
        if (std::hypot(place.x() - centre.x(), place.y() - centre.y()) < 1) continue;
        out += use(name, 2 * centre - place, scale, turn + 180);
        set.push_back(shapeAt(2 * centre - place, size, scale));
    }
    room_.taken.insert(room_.taken.end(), set.begin(), set.end());
    return out;
}

QByteArray Composition::tiles(const QByteArray& tag) const {
    const QSizeF step = sizeOf(tag, "step");
    const QPointF centre(box_.width() / 2, box_.height() / 2);
    const double columns = std::ceil(centre.x() / step.width());
    const double rows = std::ceil(centre.y() / step.height());
    // In a window a few pixels high they would be thousands that nobody sees.
    if (columns * rows > mostTiles) return {};
    const int across = static_cast<int>(columns), down = static_cast<int>(rows);
    QByteArray out;
    for (int row = -down; row <= down; ++row)
        for (int column = -across; column <= across; ++column)
            out += use(attribute(tag, "href"),
                       centre + QPointF(column * step.width(), row * step.height()), 1);
    return out;
}

}  // namespace

QByteArray composed(const QByteArray& picture, QSize box) {
    const auto root = picture.indexOf("<svg"), inside = picture.indexOf('>', root) + 1;
    const QList<QByteArray> view =
        attribute(picture.mid(root, inside - root), "viewBox").split(' ');
    const QSizeF design(view[2].toDouble(), view[3].toDouble());
    const double scale = std::min(box.width() / design.width(), box.height() / design.height());
    const QSizeF units = QSizeF(box) / scale;
    QByteArray out =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
        "viewBox=\"0 0 " +
        inText(units.width()) + ' ' + inText(units.height()) + "\">";
    Composition composition(design, units);
    for (auto at = inside; at < picture.size();) {
        const auto tag = picture.indexOf('<', at);
        if (tag < 0) break;
        const auto after = picture.indexOf('>', tag) + 1;
        const QByteArray text = picture.mid(tag, after - tag);
        const auto instead = composition.inPlaceOf(text);
        out += picture.mid(at, tag - at) + instead.value_or(text);
        at = after;
    }
    return out;
}
