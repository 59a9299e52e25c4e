// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/picture_cache.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <atomic>
#include <future>
#include <thread>
#include <utility>

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

QImage drawPicture(Picture picture, QSize size) {
    QImage image =
        draw(QString::fromStdString(picture::name(picture)), size.width(), size.height());
    if (isCard(picture)) image.convertTo(QImage::Format_RGB32);
    return image;
}

}  // namespace

PictureCache::Place PictureCache::find(const Wanted& what) {
    return std::find_if(drawn_.begin(), drawn_.end(),
                        [&](const Drawn& drawn) { return drawn.what == what; });
}

const QImage& PictureCache::image(Picture picture, int width, int height) {
    const Wanted what{picture, QSize(width, height)};
    if (const auto found = find(what); found != drawn_.end())
        drawn_.splice(drawn_.begin(), drawn_, found);
    else
        keep({what, drawPicture(picture, what.size)});
    return drawn_.front().image;
}

void PictureCache::prepare(const std::vector<Wanted>& all) {
    std::vector<Drawn> missing;
    for (const Wanted& what : all) {
        const auto isIt = [&](const Drawn& drawn) { return drawn.what == what; };
        if (find(what) == drawn_.end() && std::ranges::none_of(missing, isIt))
            missing.push_back({what, {}});
    }
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < missing.size(); i = next++)
            missing[i].image = drawPicture(missing[i].what.picture, missing[i].what.size);
    };
    const auto atATime = std::min<std::size_t>(std::thread::hardware_concurrency(), missing.size());
    std::vector<std::future<void>> helpers;
    for (std::size_t i = 1; i < atATime; ++i) helpers.push_back(std::async(work));
    work();
    for (std::future<void>& helper : helpers) helper.get();
    for (Drawn& drawn : missing) keep(std::move(drawn));
}

void PictureCache::clear() {
    drawn_.clear();
    bytes_ = 0;
}

/// In front of all others; those that were not used for longest have to go.
void PictureCache::keep(Drawn drawn) {
    bytes_ += drawn.image.sizeInBytes();
    drawn_.push_front(std::move(drawn));
    while (bytes_ > mostBytes && drawn_.size() > 1) {
        bytes_ -= drawn_.back().image.sizeInBytes();
        drawn_.pop_back();
    }
}

QImage drawIcon(int size) {
    return draw(QStringLiteral("icon"), size, size);
}
