// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <memory>
#include <vector>

#include "platform/backend.h"
#include "platform/qt/announcer.h"
#include "platform/qt/form_window.h"
#include "platform/qt/picture_cache.h"

struct Runtime;

/// The desktop backend: real windows, the system's clock, the settings file. A QApplication must
/// live as long as it does.
class Desktop : public Backend {
public:
    Desktop();

    /// Must be called before the game starts: where events are queued.
    void attach(Runtime& runtime) { runtime_ = &runtime; }
    /// The window of a form, made when it is first needed.
    FormWindow& window(Form&);
    /// Queues a close request of the table, as from outside the windows.
    void askToClose(Form&);

    void wait(double until) override;
    void present() override;
    double clock() override;
    std::uint64_t seed() override;
    std::string programFolder() override;
    std::string readSettings() override;
    void writeSettings(const std::string&) override;
    void show(Form&) override;
    void hide(Form&) override;
    void painted(Form&, const Painted&) override;
    void cleared(Form&) override;
    Colour pixel(Picture, PixelSize, int x, int y) override;
    std::unique_ptr<Player> player(DeviceType) override;
    bool listening() override;
    void announce(const std::string&) override;

protected:
    Runtime* runtime_ = nullptr;

private:
    FormWindow* existing(const Form&) const;

    PictureCache pictures_;
    QElapsedTimer clock_;
    struct Opened {
        const Form* form;
        std::unique_ptr<FormWindow> window;
    };
    std::vector<Opened> windows_;  ///< in the order in which they were first needed
    FormWindow* front_ = nullptr;  ///< the one shown last
    Announcer announcer_;
};
