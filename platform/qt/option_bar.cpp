// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/option_bar.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "platform/qt/text_drawing.h"

namespace {

constexpr int margin = 3;  ///< between the bar's edge and the circle, and beside the text
constexpr double largestCircle = 16;  ///< pixels of the window system

}  // namespace

OptionBar::OptionBar(const OptionButton& option, QWidget* parent)
    : QRadioButton(parent), back_(toQt(option.BackColor)), fore_(toQt(option.ForeColor)) {
    setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

bool OptionBar::hitButton(const QPoint& place) const {
    return rect().contains(place);
}

QColor OptionBar::ground() const {
    if (isDown()) return back_.darker(125);
    return underMouse() ? back_.darker(110) : back_;
}

QRectF OptionBar::circle() const {
    const double size = std::clamp(height() - 2.0, 1.0, largestCircle);
    const QRect place(margin, 0, qCeil(size), height());
    const QPointF middle = QRectF(QStyle::visualRect(layoutDirection(), rect(), place)).center();
    return QRectF(middle.x() - size / 2, middle.y() - size / 2, size, size);
}

QRect OptionBar::textPlace() const {
    const int taken = 2 * margin + qCeil(circle().width());
    const QRect place = rect().adjusted(taken, 0, -margin, 0);
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

void OptionBar::drawCircle(QPainter& painter) const {
    const double pen = std::max(1.0, circle().width() / 10);
    const QRectF ring = circle().adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(fore_, pen));
    painter.setBrush(Qt::white);
    painter.drawEllipse(ring);
    if (!isChecked()) return;
    const double inset = circle().width() / 4;
    painter.setPen(Qt::NoPen);
    painter.setBrush(fore_);
    painter.drawEllipse(circle().adjusted(inset, inset, -inset, -inset));
}

void OptionBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ground());
    painter.setPen(fore_);
    painter.drawText(textPlace(), Qt::AlignVCenter | Qt::AlignLeading | Qt::TextDontClip, text());
    if (hasFocus()) painter.drawRect(rect().adjusted(0, 0, -1, -1));
    drawCircle(painter);
}
