// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QSize>

/// Composes a picture for a box of any shape: the text of a picture, as velarda-compose leaves it,
/// becomes plain SVG whose view box has the shape of the box. Everything is drawn at one scale, the
/// largest at which the box still holds the picture's own view box; the room that is left over is
/// shared out as the source says:
///
///   <g stand="left top">    stands at these edges; at none it is centred. At two opposite ones its
///                           rectangles grow with the box; "fill" names all four.
///                           inwards="0.05 0.03": by such parts of the room away from the edges.
///   <signs rows="2 1 2|..." href="..." middle="..."/>
///                           so many signs in rows, or in columns, as large as they go without
///                           touching each other or the index in two corners. Of several ways
///                           the one with the largest signs is taken. The lower half is turned; an
///                           odd one in the middle may be another drawing. round="1": the signs are
///                           discs. apart="1": the outermost touch the field's ends, and nothing
///                           heeds the index.
///   <crossed bundles="1" href="..." upright="..." between="..."/>
///                           two signs along the diagonals, one upright in front of them; of two
///                           such bundles the second is turned, and a sign may lie between.
///   <ornament href="..." at="0.5 0.2|left 0.5" most="1" turn="90"/>
///                           is drawn, and once more turned round the middle, where the signs
///                           before it leave room at these parts of the field; "left" and "top" are
///                           the middle of what is free beside all signs.
///   <tiles href="..." step="13 17"/>
///                           repeats a drawing over the whole box, outwards from the middle.
///
/// from="0.7" and below="1.2" on any of these draw it in boxes of these shapes alone, width over
/// height. box is in pixels, both above 0.
QByteArray composed(const QByteArray& picture, QSize box);
