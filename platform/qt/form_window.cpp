// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/form_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <cmath>

#include "platform/events.h"
#include "platform/form.h"
#include "platform/qt/native_control.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/surface_view.h"

namespace {

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 48}) icon.addPixmap(QPixmap::fromImage(drawIcon(size)));
    return icon;
}

/// In large letters the style leaves too little room beside the mark of an entry, and shortens it.
void leaveRoom(QMenu& menu) {
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu] {
        menu.setMinimumWidth(0);
        menu.setMinimumWidth(menu.sizeHint().width() + menu.fontMetrics().height());
    });
}

}  // namespace

FormWindow::FormWindow(Runtime& runtime, Form& form, PictureCache& pictures)
    : runtime_(runtime), form_(form), view_(new SurfaceView(runtime, form, pictures, this)) {
    setWindowTitle(QString::fromStdString(form.Caption));
    setMinimumSize(320, 240);
    // For where a window is not maximised, or no longer.
    resize(screen()->availableSize() * 3 / 4);
    buildMenu();
    takeControls();
    view_->installEventFilter(this);
}

FormWindow::~FormWindow() = default;

void FormWindow::takeControls() {
    natives_.clear();
    for (Control* control : form_.controls)
        if (isNative(*control))
            natives_.push_back(std::make_unique<NativeControl>(runtime_, form_, *control, *view_));
}

void FormWindow::buildMenu() {
    if (form_.menu.empty()) return;
    menuBar_ = new QMenuBar(this);
    menuBar_->setNativeMenuBar(false);
    QMenu* menu = nullptr;
    for (const MenuEntry* entry : form_.menu) {
        const QString caption = QString::fromStdString(entry->Caption);
        if (entry->heading) {
            menu = menuBar_->addMenu(caption);
            leaveRoom(*menu);
            continue;
        }
        QAction* action = entry->topLevel ? menuBar_->addAction(caption) : menu->addAction(caption);
        action->setCheckable(entry->checkable);
        if (entry->checkable) checkable_.push_back({entry, action});
        connect(action, &QAction::triggered, this, [this, entry] {
            runtime_.queue.push_back({entry->source, Verb::Click, entry->index});
        });
    }
}

void FormWindow::layOut() {
    int top = 0;
    if (menuBar_) {
        // A whole number of screen pixels, so that the surface begins on one.
        const double ratio = devicePixelRatio();
        top = menuBar_->sizeHint().height();
        for (int tries = 0; tries < 8 && top * ratio != std::round(top * ratio); ++tries) ++top;
        menuBar_->setGeometry(0, 0, width(), top);
    }
    view_->setGeometry(0, top, width(), std::max(1, height() - top));
}

void FormWindow::present() {
    for (const auto& native : natives_) native->present();
    placeFocus();
    for (const auto& [entry, action] : checkable_) action->setChecked(entry->Checked);
    view_->present();
}

void FormWindow::comeForward(bool asIcon) {
    Qt::WindowStates states = windowState();
    if (form_.WindowState == maximised) states |= Qt::WindowMaximized;
    states.setFlag(Qt::WindowMinimized, asIcon);
    setWindowState(states);
    // Said once more, or a window that only the window manager has moved is placed anew.
    if (windowHandle() && states == Qt::WindowNoState) windowHandle()->setGeometry(geometry());
    show();
    if (asIcon) return;
    raise();
    activateWindow();
}

bool FormWindow::isAway() const {
    return isVisible() && isMinimized();
}

/// A button that comes up can be pressed from the keyboard at once; where there is none, the keys
/// are the surface's.
void FormWindow::placeFocus() {
    const QWidget* focused = focusWidget();
    if (focused && focused != view_ && focused->isVisible()) return;
    for (const auto& native : natives_)
        if (native->takeFocus()) return;
    if (focused != view_) view_->setFocus();
}

/// The game decides what closing means; it hears of it in its next round of events.
void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    runtime_.queue.push_back({form_.source, Verb::QueryUnload});
}

void FormWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange)
        form_.WindowState = isMinimized() ? minimised : isMaximized() ? maximised : 0;
    QWidget::changeEvent(event);
}

/// Drawing the icon takes a while: it comes after the first picture of the window.
bool FormWindow::eventFilter(QObject* view, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        view->removeEventFilter(this);
        QTimer::singleShot(0, this, [this] { setWindowIcon(programIcon()); });
    }
    return false;
}

void FormWindow::resizeEvent(QResizeEvent*) {
    layOut();
}
