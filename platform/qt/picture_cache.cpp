// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/picture_cache.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>

#include "platform/qt/composition.h"

namespace {

/// Enough for all that one hand shows on a 4K screen.
constexpr qsizetype mostBytes = qsizetype{48} << 20;

QImage draw(const QString& name, int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QFile source(QStringLiteral(":/pictures/") + name + QStringLiteral(".svg"));
    if (!source.open(QIODevice::ReadOnly)) return image;
    QSvgRenderer renderer(composed(source.readAll(), image.size()));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, width, height));
    return image;
}

bool isCard(Picture picture) {
    return picture >= 1 && picture <= picture::back;
}

}  // namespace

const QImage& PictureCache::image(Picture picture, int width, int height) {
    const auto found = std::find_if(drawn_.begin(), drawn_.end(), [&](const Drawn& drawn) {
        return drawn.picture == picture && drawn.image.width() == width &&
               drawn.image.height() == height;
    });
    if (found != drawn_.end()) {
        drawn_.splice(drawn_.begin(), drawn_, found);
        return drawn_.front().image;
    }
    QImage image = draw(QString::fromStdString(picture::name(picture)), width, height);
    if (isCard(picture)) image.convertTo(QImage::Format_RGB32);
    bytes_ += image.sizeInBytes();
    drawn_.push_front({picture, std::move(image)});
    forgetOldest();
    return drawn_.front().image;
}

void PictureCache::clear() {
    drawn_.clear();
    bytes_ = 0;
}

void PictureCache::forgetOldest() {
    while (bytes_ > mostBytes && drawn_.size() > 1) {
        bytes_ -= drawn_.back().image.sizeInBytes();
        drawn_.pop_back();
    }
}

QImage drawIcon(int size) {
    return draw(QStringLiteral("icon"), size, size);
}
