// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/desktop.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QMetaObject>
#include <QTimer>
#include <chrono>
#include <cmath>
#include <functional>
#include <random>
#include <utility>

#include "platform/events.h"
#include "platform/form.h"
#include "platform/qt/settings_store.h"
#include "platform/qt/short_sleep.h"
#include "platform/qt/surface_view.h"
#include "platform/qt/told_surface.h"
#include "platform/sound/sdl_player.h"

namespace {

constexpr double longestSleep = 3600;  ///< seconds, well inside what a timer holds
/// A timer counts whole milliseconds. What is left of a frame is slept out, or each would last up
/// to a millisecond too long.
constexpr double shortestAlarm = 0.001;

/// From any thread. It is done in `processEvents`, which it wakes.
void runInGame(std::function<void()> task) {
    QMetaObject::invokeMethod(qApp, std::move(task), Qt::QueuedConnection);
}

}  // namespace

Desktop::Desktop() {
    frameSeconds = 1.0 / 60;
    wipeSeconds = 0.5;
    clock_.start();
    tellSurfaces();
}

FormWindow* Desktop::existing(const Form& form) const {
    for (const auto& [owner, window] : windows_)
        if (owner == &form) return window.get();
    return nullptr;
}

FormWindow& Desktop::window(Form& form) {
    if (FormWindow* window = existing(form)) return *window;
    windows_.push_back({&form, std::make_unique<FormWindow>(*runtime_, form, pictures_)});
    return *windows_.back().window;
}

void Desktop::askToClose(Form& form) {
    runtime_->queue.push_back({form.source, Verb::QueryUnload});
}

void Desktop::wait(double until) {
    const std::size_t before = runtime_->queue.size();
    if (until <= clock()) {
        QCoreApplication::processEvents();
        return;
    }
    QTimer alarm;
    while (runtime_->queue.size() == before) {
        const double left = std::min(until - clock(), longestSleep);
        if (left <= 0) return;
        if (left < shortestAlarm) {
            sleepShortly(left);
            return;
        }
        if (!std::isinf(until)) {
            alarm.setTimerType(Qt::PreciseTimer);
            alarm.start(static_cast<int>(left / shortestAlarm));
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void Desktop::present() {
    for (const auto& [form, window] : windows_)
        if (window->isVisible()) window->present();
    if (front_) announcer_.say(front_->view());
}

double Desktop::clock() {
    return static_cast<double>(clock_.nsecsElapsed()) * 1e-9;
}

std::uint64_t Desktop::seed() {
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    return static_cast<std::uint64_t>(now) ^ std::uint64_t{std::random_device{}()} << 32;
}

/// A build has its files beside the program. An installed program has them where its prefix keeps
/// the data of games, which is sought from the program's own place: a prefix may be moved.
std::string Desktop::programFolder() {
    const QString beside = QCoreApplication::applicationDirPath();
    const QString shared = QDir::cleanPath(beside + QStringLiteral("/../share/games/velarda"));
    const QString file = QStringLiteral("config.crv");
    const bool installed = !QDir(beside).exists(file) && QDir(shared).exists(file);
    return (installed ? shared : beside).toStdString();
}

std::string Desktop::readSettings() {
    return SettingsStore(programFolder()).read();
}

void Desktop::writeSettings(const std::string& text) {
    SettingsStore(programFolder()).write(text);
}

/// A window comes to the front by the later ones being hidden: not every window system lets a
/// program raise its own, and so nothing flickers in between.
void Desktop::show(Form& form) {
    FormWindow& shown = window(form);
    // A player who has put the game away is not to be disturbed by the next window.
    const bool away = front_ && front_->isAway();
    front_ = &shown;
    shown.takeControls();
    shown.comeForward(away);
    for (auto later = windows_.rbegin(); later->form != &form; ++later) later->window->hide();
}

void Desktop::hide(Form& form) {
    if (FormWindow* window = existing(form)) window->hide();
}

void Desktop::painted(Form& form, const Painted& entry) {
    if (FormWindow* window = existing(form)) window->view().painted(entry);
}

void Desktop::cleared(Form& form) {
    if (FormWindow* window = existing(form)) window->view().cleared();
}

Colour Desktop::pixel(Picture picture, PixelSize size, int x, int y) {
    const QRgb rgb = pictures_.image(picture, size.width, size.height).pixel(x, y);
    return qRed(rgb) | qGreen(rgb) << 8 | qBlue(rgb) << 16;
}

std::unique_ptr<Player> Desktop::player(DeviceType type) {
    return std::make_unique<SdlPlayer>(type, runInGame);
}

bool Desktop::listening() {
    return QAccessible::isActive();
}

void Desktop::announce(const std::string& sentence) {
    announcer_.add(sentence);
}
