// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QRadioButton>

#include "platform/controls.h"

/// An option button whose whole bar can be pressed. It draws itself in the colours that the game
/// gives it: those of a dark scheme cannot be told apart on them.
class OptionBar : public QRadioButton {
public:
    OptionBar(const OptionButton&, QWidget* parent);

    QSize minimumSizeHint() const override { return {1, 1}; }
    /// The room for its text.
    QRect textPlace() const;

protected:
    bool hitButton(const QPoint&) const override;
    void paintEvent(QPaintEvent*) override;

private:
    QColor ground() const;
    QRectF circle() const;
    void drawCircle(QPainter&) const;

    QColor back_, fore_;
};
