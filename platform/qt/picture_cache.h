// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <list>
#include <vector>

#include "platform/pictures.h"

/// The program's pictures, drawn from their vector sources at the sizes that are asked for. A
/// picture is read when it is first needed; the images used last are kept.
class PictureCache {
public:
    /// The picture at a size in pixels of the screen, both above 0. Faces and the back are opaque.
    const QImage& image(Picture, int width, int height);

    /// One picture at a size in pixels of the screen.
    struct Wanted {
        Picture picture;
        QSize size;
        bool operator==(const Wanted&) const = default;
    };
    /// Draws those that are not there yet, as many at a time as there are processors.
    void prepare(const std::vector<Wanted>&);

    /// Drops all images, as when the sizes asked for will be others from now on.
    void clear();

private:
    struct Drawn {
        Wanted what;
        QImage image;
    };
    using Place = std::list<Drawn>::iterator;

    Place find(const Wanted&);
    void keep(Drawn);

    std::list<Drawn> drawn_;  ///< the one used last in front
    qsizetype bytes_ = 0;
};

/// The program's icon at a size in pixels.
QImage drawIcon(int size);
