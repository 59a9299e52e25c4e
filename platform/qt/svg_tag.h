// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QPointF>
#include <QSizeF>

// Reading and writing single tags of an SVG text.

/// The value of an attribute inside one tag, empty where the tag has none.
QByteArray attribute(const QByteArray& tag, const char* name);

/// The number that a text is; the fallback for an empty one.
double number(const QByteArray& text, double fallback);

/// An attribute of two numbers; not valid where the tag has none.
QSizeF sizeOf(const QByteArray& tag, const char* name);

QByteArray inText(double value);

/// Draws what was defined as `name` ("#coppa") with its middle at a place; turn is in degrees.
QByteArray use(const QByteArray& name, QPointF middle, double scale, double turn = 0,
               bool mirrored = false);
