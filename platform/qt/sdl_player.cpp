// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/sdl_player.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <utility>

#include "platform/qt/sound_files.h"
#include "platform/qt/sound_worker.h"

namespace {

std::uint64_t newWish() {
    static std::uint64_t last = 0;
    return ++last;
}

}  // namespace

SdlPlayer::SdlPlayer(DeviceType type) : type_(type), self_(std::make_shared<SdlPlayer*>(this)) {}

SdlPlayer::~SdlPlayer() {
    withdraw();
}

bool SdlPlayer::open(const std::string& path) {
    close();
    file_ = findSoundFile(QString::fromStdString(path));
    return !file_.isEmpty();
}

void SdlPlayer::play(std::int32_t) {
    if (file_.isEmpty()) return;
    if (!worker_) worker_ = SoundWorker::shared();
    wish_ = newWish();
    const auto report = [self = std::weak_ptr(self_), wish = wish_](bool atEnd) {
        const auto deliver = [self, wish, atEnd] {
            if (const auto player = self.lock()) (*player)->reported(wish, atEnd);
        };
        QMetaObject::invokeMethod(qApp, deliver, Qt::QueuedConnection);
    };
    const bool goesOn = std::exchange(atEnd_, false);
    worker_->wish(type_, {wish_, file_, goesOn, SoundClock::now(), report});
}

void SdlPlayer::close() {
    withdraw();
    file_.clear();
}

void SdlPlayer::withdraw() {
    if (wish_ != 0) worker_->withdraw(type_, std::exchange(wish_, 0));
    atEnd_ = false;
}

/// An end that another command has overtaken is none any more.
void SdlPlayer::reported(std::uint64_t wish, bool atEnd) {
    if (wish != wish_) return;
    atEnd_ = atEnd;
    if (ended) ended();
}
