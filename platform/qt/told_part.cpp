// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/told_part.h"

#include <utility>

#include "platform/qt/surface_view.h"

ToldPart::ToldPart(SurfaceView& view, Told told) : view_(view), told_(std::move(told)) {}

bool ToldPart::isOf(const Told& other) const {
    return told_.source == other.source && told_.index == other.index;
}

bool ToldPart::isRinged() const {
    return view_.hasFocus() && told_.place == view_.ringed();
}

void ToldPart::notify(QAccessible::Event happened) {
    QAccessibleEvent event(this, happened);
    QAccessible::updateAccessibility(&event);
}

void ToldPart::change(const Told& now) {
    const Told before = std::exchange(told_, now);
    if (before.marked != now.marked) {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
    if (before.name != now.name) notify(QAccessible::NameChanged);
    if (before.place != now.place) notify(QAccessible::LocationChanged);
}

QWindow* ToldPart::window() const {
    return view_.window()->windowHandle();
}

QRect ToldPart::rect() const {
    const QRect place = view_.toWidget(told_.place);
    return {view_.mapToGlobal(place.topLeft()), place.size()};
}

QAccessibleInterface* ToldPart::parent() const {
    return QAccessible::queryAccessibleInterface(&view_);
}

QString ToldPart::text(QAccessible::Text what) const {
    return what == QAccessible::Name ? QString::fromStdString(told_.name) : QString();
}

QAccessible::Role ToldPart::role() const {
    switch (told_.role) {
        // As static text all labels of the sheet would be read at once wherever the focus moves.
        case Told::Role::card:
        case Told::Role::label:
            return QAccessible::ListItem;
        case Told::Role::picture:
            return QAccessible::Graphic;
    }
    return QAccessible::NoRole;
}

QAccessible::State ToldPart::state() const {
    QAccessible::State state;
    state.invisible = !view_.isVisible();
    if (told_.role != Told::Role::card) return state;
    state.focusable = true;
    state.focused = isRinged();
    state.checkable = true;
    state.checked = told_.marked;
    return state;
}

void* ToldPart::interface_cast(QAccessible::InterfaceType type) {
    const bool acts = type == QAccessible::ActionInterface && told_.role == Told::Role::card;
    return acts ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList ToldPart::actionNames() const {
    return {pressAction()};
}

void ToldPart::doAction(const QString& name) {
    if (name == pressAction()) view_.press(told_.place);
}
