// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/text_panel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "platform/events.h"
#include "platform/qt/text_drawing.h"

namespace {

QScrollBar::SliderAction scrolling(int key) {
    switch (key) {
        case Qt::Key_Up:
            return QScrollBar::SliderSingleStepSub;
        case Qt::Key_Down:
            return QScrollBar::SliderSingleStepAdd;
        case Qt::Key_PageUp:
            return QScrollBar::SliderPageStepSub;
        case Qt::Key_PageDown:
        case Qt::Key_Space:
            return QScrollBar::SliderPageStepAdd;
        case Qt::Key_Home:
            return QScrollBar::SliderToMinimum;
        case Qt::Key_End:
            return QScrollBar::SliderToMaximum;
        default:
            return QScrollBar::SliderNoAction;
    }
}

}  // namespace

TextPanel::TextPanel(Runtime& runtime, const TextBox& box, QWidget* parent)
    : QPlainTextEdit(parent), runtime_(runtime), source_(box.source) {
    setPlainText(QString::fromStdString(box.Text));
    setReadOnly(true);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(box.scrollBar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAccessibleName(QString::fromStdString(box.name));
    setColours(toQt(box.BackColor));
    viewport()->setCursor(Qt::ArrowCursor);
    setColumns();
}

/// A palette made of the paper's colour gives the scroll bar its shades, too.
void TextPanel::setColours(const QColor& paper) {
    QPalette colours(paper.darker(115));
    colours.setColor(QPalette::Base, paper);
    colours.setColor(QPalette::Text, Qt::black);
    setPalette(colours);
}

/// The second column of a table begins where the longest entry of the first has ended.
void TextPanel::setColumns() {
    int widest = 0;
    for (const QString& line : toPlainText().split('\n'))
        if (const auto tab = line.indexOf('\t'); tab >= 0)
            widest = std::max(widest, fontMetrics().horizontalAdvance(line.left(tab)));
    setTabStopDistance(widest + fontMetrics().horizontalAdvance(QStringLiteral("00")));
}

bool TextPanel::fits(const QFont& font) const {
    const int edge = frameWidth() + qCeil(document()->documentMargin());
    const QRect room = rect().adjusted(edge, edge, -edge, -edge);
    const QRect needed = QFontMetrics(font).boundingRect(room, Qt::TextWordWrap, toPlainText());
    return needed.height() <= room.height() && needed.width() <= room.width();
}

void TextPanel::fit() {
    if (verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) return;
    QFont fitting = QApplication::font();
    int size = QFontInfo(fitting).pixelSize();
    while (size > 1 && !fits(fitting)) fitting.setPixelSize(--size);
    setFont(fitting);
}

void TextPanel::mousePressEvent(QMouseEvent*) {
    click();
}

/// The keys scroll; a caret would only blink, and wake the program each time.
void TextPanel::keyPressEvent(QKeyEvent* event) {
    const auto action = scrolling(event->key());
    if (action == QScrollBar::SliderNoAction) {
        event->ignore();
    } else {
        verticalScrollBar()->triggerAction(action);
    }
}

/// It is read from its top, wherever it was left the last time.
void TextPanel::showEvent(QShowEvent* event) {
    QPlainTextEdit::showEvent(event);
    verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
}

void TextPanel::click() {
    runtime_.queue.push_back({source_, Verb::Click});
}
