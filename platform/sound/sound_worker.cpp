// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sound_worker.h"

#include <utility>

#include "platform/sound/sound_loop.h"

std::shared_ptr<SoundWorker> SoundWorker::shared() {
    static std::weak_ptr<SoundWorker> present;
    std::shared_ptr<SoundWorker> worker = present.lock();
    if (!worker) present = worker = std::make_shared<SoundWorker>();
    return worker;
}

SoundWorker::SoundWorker(const SoundPatience& patience)
    : patience_(patience), loop_(std::make_shared<SoundLoop>(patience)) {
    std::promise<void> done;
    finished_ = done.get_future();
    thread_ = std::thread([loop = loop_, done = std::move(done)]() mutable {
        loop->run();
        done.set_value();
    });
}

SoundWorker::~SoundWorker() {
    loop_->quit();
    if (finished_.wait_for(patience_.exit) == std::future_status::ready)
        thread_.join();
    else
        thread_.detach();
}

void SoundWorker::wish(DeviceType type, SoundWish wish) {
    loop_->wish(type, std::move(wish));
}

void SoundWorker::withdraw(DeviceType type, std::uint64_t number) {
    loop_->withdraw(type, number);
}
