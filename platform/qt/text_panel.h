// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QPlainTextEdit>

#include "platform/controls.h"

struct Runtime;

/// A text that is read and scrolled, and that answers a click. It looks the same in every colour
/// scheme: what stands on the game's colour has the game's colours.
class TextPanel : public QPlainTextEdit {
public:
    TextPanel(Runtime&, const TextBox&, QWidget* parent);

    /// Makes the letters of a text that cannot be scrolled so small that all of it is seen.
    void fit();

protected:
    // Events of the text itself come here; the scroll bar keeps its own.
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent*) override {}
    void keyPressEvent(QKeyEvent*) override;
    void showEvent(QShowEvent*) override;

private:
    void setColours(const QColor& paper);
    bool fits(const QFont&) const;
    void setColumns();
    void click();

    Runtime& runtime_;
    Source source_;
};
