// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/native_control.h"

#include <QPushButton>
#include <cmath>

#include "platform/events.h"
#include "platform/form.h"
#include "platform/qt/option_bar.h"
#include "platform/qt/surface_view.h"
#include "platform/qt/text_drawing.h"
#include "platform/qt/text_panel.h"

namespace {

/// How much of a button its frame takes, left and right together.
constexpr int frameOfButton = 10;

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
        button = new OptionBar(static_cast<const OptionButton&>(control_), &view_);
    } else {
        auto* push = new QPushButton(&view_);
        push->setAutoDefault(true);
        button = push;
    }
    button->installEventFilter(&view_);
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
    fitText();
}

/// An option that the keys have chosen takes the focus, if a neighbour has it.
void NativeControl::choose(QAbstractButton& option, bool chosen) {
    if (chosen == option.isChecked()) return;
    option.setChecked(chosen);
    const auto* focused = qobject_cast<QAbstractButton*>(option.window()->focusWidget());
    if (chosen && focused && focused->isVisible()) option.setFocus();
}

void NativeControl::fillIn() {
    if (control_.kind == Kind::text) return;
    const bool option = control_.kind == Kind::option;
    const std::string& caption = option ? static_cast<const OptionButton&>(control_).Caption
                                        : static_cast<const Button&>(control_).Caption;
    auto* button = static_cast<QAbstractButton*>(widget_);
    if (option) choose(*button, static_cast<const OptionButton&>(control_).Value);
    if (const QString text = QString::fromStdString(caption); text != button->text()) {
        button->setText(text);
        fitText();
    }
}

/// Letters that stay inside, whatever size the system's own have.
void NativeControl::fitText() {
    if (control_.kind == Kind::text) {
        static_cast<TextPanel*>(widget_)->fit();
        return;
    }
    const bool option = control_.kind == Kind::option;
    const QString caption = static_cast<QAbstractButton*>(widget_)->text();
    const int room = option ? static_cast<OptionBar*>(widget_)->textPlace().width()
                            : widget_->width() - frameOfButton;
    const QFont font = sansSerif(option ? 10 : 9, false, widget_->height());
    widget_->setFont(fittedInto(room, font, caption));
}

void NativeControl::present() {
    if (!control_.Visible) {
        if (widget_ && widget_->isVisible()) widget_->hide();
        return;
    }
    if (!widget_) make();
    place();
    fillIn();
    if (widget_->isVisible() && control_.z == raised_) return;
    raised_ = control_.z;
    widget_->raise();
    widget_->show();
    // A text that opens or comes to the front is scrolled by the keys at once.
    if (control_.kind == Kind::text) widget_->setFocus();
}

bool NativeControl::takeFocus() {
    if (control_.kind != Kind::button || !control_.Visible) return false;
    widget_->setFocus();
    return true;
}
