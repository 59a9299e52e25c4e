// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <memory>
#include <vector>

class NativeControl;
class PictureCache;
class QAction;
class QMenuBar;
class SurfaceView;
struct Form;
struct MenuEntry;
struct Runtime;

/// The window of a form: its menu bar, its surface and its native controls.
class FormWindow : public QWidget {
public:
    FormWindow(Runtime&, Form&, PictureCache&);
    ~FormWindow() override;

    SurfaceView& view() { return *view_; }
    /// Shows at once what has changed since the last time.
    void present();
    /// Shows it in front, maximised if the form asks for it, else as the player left it; or
    /// minimised, to become that when it is put back.
    void comeForward(bool asIcon);
    /// True while the player has it minimised.
    bool isAway() const;
    /// Takes up the controls of a form that has been loaded anew.
    void takeControls();

protected:
    void closeEvent(QCloseEvent*) override;
    void changeEvent(QEvent*) override;
    bool eventFilter(QObject* view, QEvent*) override;
    void resizeEvent(QResizeEvent*) override;

private:
    struct Checkable {
        const MenuEntry* entry;
        QAction* action;
    };

    void buildMenu();
    void layOut();
    void placeFocus();

    Runtime& runtime_;
    Form& form_;
    QMenuBar* menuBar_ = nullptr;
    SurfaceView* view_;
    std::vector<std::unique_ptr<NativeControl>> natives_;
    std::vector<Checkable> checkable_;
};
