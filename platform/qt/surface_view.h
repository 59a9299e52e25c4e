// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QRegion>
#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

#include "platform/form.h"
#include "platform/qt/ring.h"

class PictureCache;
struct Runtime;

/// The painted surface of a form and the controls that are drawn in front of it. It keeps the
/// surface as an image of the screen's own pixels and draws it anew from the surface's list when
/// the size changes.
class SurfaceView : public QWidget {
public:
    SurfaceView(Runtime&, Form&, PictureCache&, QWidget* parent);

    void painted(const Painted&);
    void cleared();
    /// Shows at once what has changed since the last time.
    void present();
    /// A box of screen pixels in the widget's coordinates, grown to whole ones.
    QRect toWidget(const PixelBox&) const;
    /// The press of the mouse in the middle of a box of screen pixels.
    void press(const PixelBox&);
    /// What is seen here, for a reader of the screen, and what the whole is called.
    std::vector<Told> told() const;
    QString name() const;
    /// From now on calls this whenever something has changed.
    void tellChanges(std::function<void()> tell) { tell_ = std::move(tell); }
    PixelBox ringed() const;  ///< the place in the ring; empty where there is none

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    /// Keys that belong to the game though a button on the surface has the focus.
    bool eventFilter(QObject* button, QEvent*) override;
    // It looks the same with the focus and without; a plain widget would paint itself anew.
    void focusInEvent(QFocusEvent*) override {}
    void focusOutEvent(QFocusEvent*) override {}
    bool event(QEvent*) override;

private:
    /// What was last shown of a drawn control.
    struct Shown {
        const Control* control;
        PixelBox box;
        Picture picture;
        std::string caption;
        Colour foreColor;
        bool operator==(const Shown&) const = default;
    };

    bool isFitted() const { return size_.isValid(); }
    void fitCanvas();
    void makeCanvas();
    void awaitFrame();
    void preparePictures() const;
    void redraw();
    void draw(const Painted&);
    std::vector<Shown> drawnNow() const;
    void findChangedControls();
    void drawControl(QPainter&, const Shown&) const;
    void pressPixel(int x, int y, int button);
    bool queueKey(const QKeyEvent&);

    Runtime& runtime_;
    Form& form_;
    PictureCache& pictures_;
    QSize size_;           ///< in the screen's own pixels
    double ratio_ = 1;     ///< of those to the widget's
    QImage canvas_;        ///< none where nothing is painted
    double redrawn_ = -1;  ///< when all that was painted was last drawn anew; the clock's seconds
    QRegion changed_;      ///< since it was last shown
    bool untold_ = false;  ///< of what was shown meanwhile a reader has not heard
    std::vector<Shown> shown_;
    Ring ring_;                   ///< as last shown
    std::function<void()> tell_;  ///< from the moment at which somebody asks what is seen
    QPoint mouseAtKey_;           ///< where the mouse was when a key was last pressed
};
