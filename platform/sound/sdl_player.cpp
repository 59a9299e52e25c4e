// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sdl_player.h"

#include <utility>

#include "platform/sound/sound_file.h"
#include "platform/sound/sound_worker.h"

namespace {

std::uint64_t newWish() {
    static std::uint64_t last = 0;
    return ++last;
}

}  // namespace

SdlPlayer::SdlPlayer(DeviceType type, RunInGame runInGame)
    : type_(type), runInGame_(std::move(runInGame)), self_(std::make_shared<SdlPlayer*>(this)) {}

SdlPlayer::~SdlPlayer() {
    withdraw();
}

bool SdlPlayer::open(const std::string& path) {
    close();
    file_ = findSoundFile(pathOf(path));
    return !file_.empty();
}

void SdlPlayer::play(std::int32_t) {
    if (file_.empty()) return;
    if (!worker_) worker_ = SoundWorker::shared();
    wish_ = newWish();
    const auto report = [runInGame = runInGame_, self = std::weak_ptr(self_),
                         wish = wish_](bool atEnd) {
        runInGame([self, wish, atEnd] {
            if (const auto player = self.lock()) (*player)->reported(wish, atEnd);
        });
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
