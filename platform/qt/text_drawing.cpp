// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/text_drawing.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <cmath>

namespace {

#ifdef Q_OS_WIN
/// The one of that name is made of dots there, in a few sizes.
constexpr QLatin1String family("Segoe UI");
#else
constexpr QLatin1String family("MS Sans Serif");
#endif

double pixelsPerPoint() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return (screen ? screen->logicalDotsPerInchY() : 96) / 72;
}

}  // namespace

QColor toQt(Colour colour) {
    return QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
}

QFont sansSerif(float points, bool bold, double height) {
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    font.setBold(bold);
    const double wanted = static_cast<double>(points) * pixelsPerPoint();
    const double fitting = height * 0.8;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(std::min(wanted, fitting)))));
    return font;
}

QFont fittedInto(double width, QFont font, const QString& text) {
    const double wanted = QFontMetricsF(font).horizontalAdvance(text);
    if (wanted > width)
        font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * width / wanted)));
    return font;
}

namespace {

/// Under the figures of a caption in the middle, not under the blank that leads them.
void underline(QPainter& painter, const QRectF& place, const QString& caption) {
    const QFontMetricsF metrics(painter.font());
    const double figures = metrics.horizontalAdvance(caption.trimmed());
    const double right = place.center().x() + metrics.horizontalAdvance(caption) / 2;
    const double base = place.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    painter.fillRect(QRectF(right - figures, base + metrics.underlinePos(), figures,
                            std::max(1.0, metrics.lineWidth())),
                     painter.pen().color());
}

}  // namespace

void drawLabel(QPainter& painter, const Label& label, const QRect& box, double ratio) {
    painter.fillRect(box, toQt(label.BackColor));
    painter.save();
    painter.translate(box.topLeft());
    painter.scale(ratio, ratio);
    const QRectF place(0, 0, box.width() / ratio, box.height() / ratio);
    const QString caption = QString::fromStdString(label.Caption);
    // In a narrow window the labels beside it would cut off its ends.
    painter.setFont(
        fittedInto(place.width(), sansSerif(label.FontSize, label.bold, place.height()), caption));
    painter.setPen(toQt(label.ForeColor));
    painter.drawText(place, Qt::AlignCenter | Qt::TextDontClip | Qt::TextSingleLine, caption);
    if (label.underlined) underline(painter, place, caption);
    painter.restore();
}
