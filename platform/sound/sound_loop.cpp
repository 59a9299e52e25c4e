// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/sound_loop.h"

#include <algorithm>
#include <utility>

#include "platform/sound/memory_pools.h"

namespace {

using Time = SoundClock::time_point;

/// The libraries have one state for the whole process: a worker that was left behind while it
/// loaded something must be done with them before the next one begins.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::mutex librariesInUse;

Time now() {
    return SoundClock::now();
}

}  // namespace

void SoundLoop::wish(DeviceType type, SoundWish wish) {
    const std::lock_guard lock(mutex_);
    work_.of(type) = std::move(wish);
    stirred_ = true;
    changed_.notify_all();
}

void SoundLoop::withdraw(DeviceType type, std::uint64_t number) {
    const std::lock_guard lock(mutex_);
    if (work_.of(type).number != number) return;
    work_.of(type) = {};
    stirred_ = true;
    changed_.notify_all();
}

void SoundLoop::quit() {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    changed_.notify_all();
}

void SoundLoop::stir(bool Work::*flag) {
    const std::lock_guard lock(mutex_);
    work_.*flag = stirred_ = true;
    changed_.notify_all();
}

/// Under the lock: once `quit` has been called, nobody may be there to be told.
void SoundLoop::report(const SoundWish& wish, bool atEnd) {
    const std::lock_guard lock(mutex_);
    if (!ending_ && wish.report) wish.report(atEnd);
}

void SoundLoop::run() {
    const std::lock_guard alone(librariesInUse);
    while (std::optional<Work> work = nextWork()) {
        if (work->loaded) {
            melody_ = loading_.get();
            returnMemory();
        }
        if (work->lost) tendLoss(*work);
        tendWave(work->of(DeviceType::WaveAudio));
        tendMelody(work->of(DeviceType::Sequencer));
        tendSilence();
    }
    dropLoading();
    melody_ = {};
    device_.close();
}

std::optional<SoundLoop::Work> SoundLoop::nextWork() {
    const auto awake = [this] { return stirred_ || ending_; };
    const Time moment = std::min({melodyEnd_, giveUp_, waveEnd_, close_});
    std::unique_lock lock(mutex_);
    if (moment == never)
        changed_.wait(lock, awake);
    else
        changed_.wait_until(lock, moment, awake);
    if (ending_) return std::nullopt;
    stirred_ = false;
    Work work = work_;
    work_.lost = work_.loaded = false;
    return work;
}

/// What was heard has come to nothing; the next wish tries the device again.
void SoundLoop::tendLoss(Work& work) {
    if (!device_.isOpen()) return;
    dropLoading();
    const SoundWish &melody = work.of(DeviceType::Sequencer),
                    &wave = work.of(DeviceType::WaveAudio);
    if (stage_ != Stage::silent && melody.number == melodyNumber_) report(melody, false);
    if (waveEnd_ != never && wave.number == waveNumber_) report(wave, false);
    setMelody(Stage::silent);
    waveEnd_ = never;
    melody_ = {};
    device_.close();
}

void SoundLoop::dropLoading() {
    if (!loading()) return;
    loading_.get();
    const std::lock_guard lock(mutex_);
    work_.loaded = false;
}

void SoundLoop::tendMelody(const SoundWish& wish) {
    if (wish.number != melodyNumber_) obey(wish);
    if (stage_ == Stage::wanted) advance(wish);
    if (now() >= melodyEnd_) passEnd(wish);
    if (now() >= giveUp_) setMelody(Stage::silent);
    if (stage_ == Stage::silent) melody_ = {};
}

void SoundLoop::obey(const SoundWish& wish) {
    melodyNumber_ = wish.number;
    if (stage_ == Stage::ended && wish.goesOn) return goOn();
    // A melody that is stopped and started goes on where it was: each begins as a new one.
    device_.stopMelody();
    melody_ = {};
    setMelody(wish.number == 0 ? Stage::silent : Stage::wanted);
}

void SoundLoop::goOn() {
    setMelody(Stage::heard);
    melodyEnd_ = passed_;
    while (melodyEnd_ <= now()) melodyEnd_ += melody_.length;
}

/// One step from a melody that is wanted to one that is heard.
void SoundLoop::advance(const SoundWish& wish) {
    if (loading()) return;
    if (!device_.open()) return failMelody(wish);
    if (melody_.path != wish.path) return startLoading(wish.path);
    if (!melody_.music || !device_.playMelody(melody_)) return failMelody(wish);
    setMelody(Stage::heard);
    melodyEnd_ = now() + melody_.length;
}

void SoundLoop::startLoading(const std::filesystem::path& path) {
    melody_ = {};
    loading_ = std::async(std::launch::async, [this, path] {
        Melody melody = loadMelody(path);
        stir(&Work::loaded);
        return melody;
    });
}

void SoundLoop::passEnd(const SoundWish& wish) {
    passed_ = melodyEnd_;
    setMelody(Stage::ended);
    giveUp_ = passed_ + patience_.end;
    report(wish, true);
}

void SoundLoop::setMelody(Stage stage) {
    if (stage == Stage::silent) device_.stopMelody();
    stage_ = stage;
    melodyEnd_ = giveUp_ = never;
}

void SoundLoop::failMelody(const SoundWish& wish) {
    setMelody(Stage::silent);
    report(wish, false);
}

void SoundLoop::tendWave(const SoundWish& wish) {
    if (wish.number != waveNumber_) {
        waveNumber_ = wish.number;
        waveEnd_ = never;
        if (wish.number == 0)
            device_.stopWave();
        else if (!beginWave(wish))
            report(wish, false);
    } else if (now() >= waveEnd_) {
        waveEnd_ = never;
        report(wish, true);
    }
}

bool SoundLoop::beginWave(const SoundWish& wish) {
    if (!device_.open() || now() - wish.asked > patience_.stale) return false;
    const std::optional<SoundClock::duration> length = device_.playWave(wish.path);
    if (length) waveEnd_ = now() + *length;
    return length.has_value();
}

/// An open device wakes its thread many times a second, even to play nothing.
void SoundLoop::tendSilence() {
    const bool heard = stage_ != Stage::silent || loading() || waveEnd_ != never;
    if (heard || !device_.isOpen()) {
        close_ = never;
    } else if (close_ == never) {
        close_ = now() + patience_.silence;
    } else if (now() >= close_) {
        device_.close();
        close_ = never;
    }
}
