// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/end_signals.h"

#include <windows.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <utility>

namespace {

/// Hears that the user logs off, or that the machine is shut down. Each window is told; the first
/// word is enough. The system may end the process at any moment after it.
class SessionEnd : public QObject, public QAbstractNativeEventFilter {
public:
    explicit SessionEnd(std::function<void()> asked) : asked_(std::move(asked)) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto& told = *static_cast<const MSG*>(message);
        const bool ends = told.message == WM_ENDSESSION && told.wParam != FALSE;
        if (ends && !std::exchange(heard_, true)) asked_();
        return false;
    }

private:
    std::function<void()> asked_;
    bool heard_ = false;
};

}  // namespace

EndSignals::EndSignals(std::function<void()> asked)
    : listener_(std::make_unique<SessionEnd>(std::move(asked))) {}

EndSignals::~EndSignals() = default;
