// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

class QAbstractButton;
class QWidget;
class SurfaceView;
struct Control;
struct Form;
struct Runtime;

/// One control that the window system draws. Its widget is made when it is first shown.
class NativeControl {
public:
    NativeControl(Runtime&, Form&, Control&, SurfaceView&);
    ~NativeControl();
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
    static void choose(QAbstractButton& option, bool chosen);
    void fitText();

    Runtime& runtime_;
    Form& form_;
    Control& control_;
    SurfaceView& view_;
    QWidget* widget_ = nullptr;  ///< a child of the view
    unsigned raised_ = 0;
};
