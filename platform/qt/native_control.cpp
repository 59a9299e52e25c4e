// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/native_control.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <cmath>

#include "platform/events.h"
#include "platform/form.h"
#include "platform/qt/surface_view.h"
#include "platform/qt/text.h"

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

/// A text that is read and scrolled, and that answers a click.
class TextPanel : public QPlainTextEdit {
public:
    TextPanel(Runtime& runtime, const TextBox& box, QWidget* parent)
        : QPlainTextEdit(parent), runtime_(runtime), source_(box.source) {
        setPlainText(QString::fromStdString(box.Text));
        setReadOnly(true);
        setTextInteractionFlags(Qt::NoTextInteraction);
        setWordWrapMode(QTextOption::WordWrap);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(box.scrollBar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
        setTabStopDistance(fontMetrics().horizontalAdvance('0') * 14);
        setContextMenuPolicy(Qt::NoContextMenu);
        setAccessibleName(QString::fromStdString(box.name));
        QPalette colours = palette();
        colours.setColor(QPalette::Base, toQt(box.BackColor));
        colours.setColor(QPalette::Text, Qt::black);
        setPalette(colours);
        viewport()->setCursor(Qt::ArrowCursor);
    }

protected:
    /// Events of the text itself come here; the scroll bar keeps its own.
    void mousePressEvent(QMouseEvent*) override { click(); }
    /// The keys scroll; a caret would only blink, and wake the program each time.
    void keyPressEvent(QKeyEvent* event) override {
        const auto action = scrolling(event->key());
        if (event->key() == Qt::Key_Escape) {
            click();
        } else if (action == QScrollBar::SliderNoAction) {
            event->ignore();
        } else {
            verticalScrollBar()->triggerAction(action);
        }
    }
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent*) override {}

private:
    void click() { runtime_.queue.push_back({source_, Verb::Click}); }

    Runtime& runtime_;
    Source source_;
};

/// Draws the circle of an option button no higher than the button: on a small screen with large
/// text it would be cut.
class FittingCircle : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        const int usual = QProxyStyle::pixelMetric(metric, option, widget);
        if (metric != PM_ExclusiveIndicatorWidth && metric != PM_ExclusiveIndicatorHeight)
            return usual;
        return widget ? std::min(usual, widget->height()) : usual;
    }
};

void setColours(QRadioButton& button, const OptionButton& option) {
    QPalette colours = button.palette();
    button.setBackgroundRole(QPalette::Window);
    colours.setColor(QPalette::Window, toQt(option.BackColor));
    colours.setColor(QPalette::WindowText, toQt(option.ForeColor));
    button.setPalette(colours);
    button.setAutoFillBackground(true);
}

}  // namespace

NativeControl::NativeControl(Runtime& runtime, Form& form, Control& control, SurfaceView& view)
    : runtime_(runtime), form_(form), control_(control), view_(view) {}

NativeControl::~NativeControl() {
    delete widget_;
}

void NativeControl::make() {
    if (control_.kind == Kind::text) {
        widget_ = new TextPanel(runtime_, static_cast<const TextBox&>(control_), &view_);
        return;
    }
    QAbstractButton* button = nullptr;
    if (control_.kind == Kind::option) {
        auto* radio = new QRadioButton(&view_);
        auto* style = new FittingCircle;
        style->setParent(radio);
        radio->setStyle(style);
        setColours(*radio, static_cast<const OptionButton&>(control_));
        button = radio;
    } else {
        auto* push = new QPushButton(&view_);
        push->setAutoDefault(true);
        button = push;
    }
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [this] { clickOn(runtime_, form_, control_); });
    widget_ = button;
}

void NativeControl::place() {
    QRect place = view_.toWidget(pixelsOf(control_, form_.grid));
    // Controls of one height in units shall have one height and letters of one size, wherever
    // their edges are rounded to.
    const double height = static_cast<double>(control_.Height) * form_.grid.y / form_.grid.fixed;
    if (control_.kind != Kind::text)
        place.setHeight(std::max(1, static_cast<int>(std::lround(height))));
    if (widget_->geometry() == place) return;
    widget_->setGeometry(place);
    if (control_.kind != Kind::text)
        widget_->setFont(sansSerif(control_.kind == Kind::option ? 10 : 9, false, height));
}

void NativeControl::fillIn() {
    if (control_.kind == Kind::button) {
        const auto& button = static_cast<const Button&>(control_);
        static_cast<QPushButton*>(widget_)->setText(QString::fromStdString(button.Caption));
    } else if (control_.kind == Kind::option) {
        const auto& option = static_cast<const OptionButton&>(control_);
        auto* radio = static_cast<QRadioButton*>(widget_);
        radio->setText(QString::fromStdString(option.Caption));
        radio->setChecked(option.Value);
    }
}

void NativeControl::present() {
    if (!control_.Visible) {
        if (widget_ && widget_->isVisible()) widget_->hide();
        return;
    }
    if (!widget_) make();
    place();
    fillIn();
    if (control_.z != raised_) widget_->raise();
    raised_ = control_.z;
    if (widget_->isVisible()) return;
    widget_->show();
    // A text that opens is scrolled by the keys at once.
    if (control_.kind == Kind::text) widget_->setFocus();
}

bool NativeControl::takeFocus() {
    if (control_.kind != Kind::button || !control_.Visible) return false;
    widget_->setFocus();
    return true;
}
