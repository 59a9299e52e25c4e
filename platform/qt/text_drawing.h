// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QFont>

#include "platform/controls.h"

class QPainter;
class QRect;

QColor toQt(Colour);

/// A sans serif at a size in points, made smaller where it would be taller than `height` pixels.
QFont sansSerif(float points, bool bold, double height);

/// The font, made smaller where a text in it would be broader than `width` pixels.
QFont fittedInto(double width, QFont, const QString& text);

/// Draws a label into a box of screen pixels, `ratio` of them to a pixel of the window system.
void drawLabel(QPainter&, const Label&, const QRect& box, double ratio);
