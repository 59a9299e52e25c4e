// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/svg_tag.h"

#include <QList>

QByteArray attribute(const QByteArray& tag, const char* name) {
    const QByteArray opening = ' ' + QByteArray(name) + "=\"";
    const auto start = tag.indexOf(opening);
    if (start < 0) return {};
    const auto from = start + opening.size();
    return tag.mid(from, tag.indexOf('"', from) - from);
}

double number(const QByteArray& text, double fallback) {
    return text.isEmpty() ? fallback : text.toDouble();
}

QSizeF sizeOf(const QByteArray& tag, const char* name) {
    const QList<QByteArray> sides = attribute(tag, name).split(' ');
    return sides.size() == 2 ? QSizeF(sides[0].toDouble(), sides[1].toDouble()) : QSizeF();
}

QByteArray inText(double value) {
    return QByteArray::number(value, 'f', 3);
}

QByteArray use(const QByteArray& name, QPointF middle, double scale, double turn, bool mirrored) {
    return "<use xlink:href=\"" + name + "\" transform=\"translate(" + inText(middle.x()) + ' ' +
           inText(middle.y()) + ") rotate(" + inText(turn) + ") scale(" +
           inText(mirrored ? -scale : scale) + ' ' + inText(scale) + ")\"/>";
}
