// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/text.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <cmath>

namespace {

double pixelsPerPoint() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return (screen ? screen->logicalDotsPerInchY() : 96) / 72;
}

}  // namespace

QColor toQt(Colour colour) {
    return QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
}

QFont sansSerif(float points, bool bold, double height) {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setBold(bold);
    const double wanted = static_cast<double>(points) * pixelsPerPoint();
    const double fitting = height * 0.8;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(std::min(wanted, fitting)))));
    return font;
}

void drawLabel(QPainter& painter, const Label& label, const QRect& box, double ratio) {
    painter.fillRect(box, toQt(label.BackColor));
    painter.save();
    painter.translate(box.topLeft());
    painter.scale(ratio, ratio);
    const QRectF place(0, 0, box.width() / ratio, box.height() / ratio);
    painter.setFont(sansSerif(label.FontSize, label.bold, place.height()));
    painter.setPen(toQt(label.ForeColor));
    painter.drawText(place, Qt::AlignCenter | Qt::TextDontClip | Qt::TextSingleLine,
                     QString::fromStdString(label.Caption));
    painter.restore();
}
