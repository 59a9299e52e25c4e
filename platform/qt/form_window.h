// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "platform/form.h"
#include "platform/qt/surface_view.h"

class QAction;
class QMenuBar;
struct Runtime;

/// One control that the window system draws. Its widget is made when it is first shown.
class NativeControl {
public:
    NativeControl(Runtime&, Form&, Control&, SurfaceView&);
    ~NativeControl() { delete widget_; }
    NativeControl(const NativeControl&) = delete;
    NativeControl& operator=(const NativeControl&) = delete;

    /// Brings the widget up to the control's data.
    void present();
    /// Gives the keyboard to a button that is shown; false for anything else.
    bool takeFocus();

private:
    void make();
    void place();
    void fillIn();

    Runtime& runtime_;
    Form& form_;
    Control& control_;
    SurfaceView& view_;
    QWidget* widget_ = nullptr;  ///< a child of the view
    unsigned raised_ = 0;
};

/// The window of a form: its menu bar, its surface and its native controls.
class FormWindow : public QWidget {
public:
    FormWindow(Runtime&, Form&, PictureCache&);

    SurfaceView& view() { return *view_; }
    /// Shows at once what has changed since the last time.
    void present();
    /// Takes up the controls of a form that has been loaded anew.
    void takeControls();

protected:
    void closeEvent(QCloseEvent*) override;
    void changeEvent(QEvent*) override;
    void resizeEvent(QResizeEvent*) override;

private:
    struct Checkable {
        const MenuEntry* entry;
        QAction* action;
    };

    void buildMenu();
    void layOut();
    void focusFirstButton();

    Runtime& runtime_;
    Form& form_;
    QMenuBar* menuBar_ = nullptr;
    SurfaceView* view_;
    std::vector<std::unique_ptr<NativeControl>> natives_;
    std::vector<Checkable> checkable_;
};
