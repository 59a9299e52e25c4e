// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/sound_worker.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

#include "platform/qt/memory.h"
#include "platform/qt/sound_device.h"

namespace {

using Time = SoundClock::time_point;

constexpr Time never = Time::max();

/// The libraries have one state for the whole process: a worker that was left behind while it
/// loaded something must be done with them before the next one begins.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::mutex librariesInUse;

Time now() {
    return SoundClock::now();
}

}  // namespace

/// What the worker's thread and the others share. Both keep it alive.
class SoundWorker::Desk {
public:
    explicit Desk(const SoundPatience& patience) : patience_(patience) {}

    /// The thread, up to `quit`.
    void run();

    void wish(DeviceType, SoundWish);
    void withdraw(DeviceType, std::uint64_t number);
    void quit();

private:
    struct Work {
        std::array<SoundWish, 2> wishes;
        bool lost = false, loaded = false;

        SoundWish& of(DeviceType type) { return wishes[static_cast<std::size_t>(type)]; }
    };
    /// Of the melody: wanted but not ready, heard, heard on after its end has been reported.
    enum class Stage { silent, wanted, heard, ended };

    void stir(bool Work::*flag);
    void report(const SoundWish&, bool atEnd);
    std::optional<Work> nextWork();
    bool loading() const { return loading_.valid(); }

    void tendLoss(Work&);
    void dropLoading();
    void tendMelody(const SoundWish&);
    void obey(const SoundWish&);
    void goOn();
    void advance(const SoundWish&);
    void startLoading(const QString& path);
    void passEnd(const SoundWish&);
    void setMelody(Stage);
    void failMelody(const SoundWish&);
    void tendWave(const SoundWish&);
    bool beginWave(const SoundWish&);
    void tendSilence();

    std::mutex mutex_;  ///< guards these four; not held while the device is at work
    std::condition_variable changed_;
    Work work_;
    bool stirred_ = false, ending_ = false;

    // The rest is the thread's own.
    const SoundPatience patience_;
    SoundDevice device_{[this] { stir(&Work::lost); }};
    std::future<Melody> loading_;
    Melody melody_;
    Stage stage_ = Stage::silent;
    std::uint64_t melodyNumber_ = 0, waveNumber_ = 0;  ///< of the wishes seen last
    Time passed_{};                                    ///< when the melody's last end was reported
    Time melodyEnd_ = never, giveUp_ = never, waveEnd_ = never, close_ = never;
};

void SoundWorker::Desk::wish(DeviceType type, SoundWish wish) {
    const std::lock_guard lock(mutex_);
    work_.of(type) = std::move(wish);
    stirred_ = true;
    changed_.notify_all();
}

void SoundWorker::Desk::withdraw(DeviceType type, std::uint64_t number) {
    const std::lock_guard lock(mutex_);
    if (work_.of(type).number != number) return;
    work_.of(type) = {};
    stirred_ = true;
    changed_.notify_all();
}

void SoundWorker::Desk::quit() {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    changed_.notify_all();
}

void SoundWorker::Desk::stir(bool Work::*flag) {
    const std::lock_guard lock(mutex_);
    work_.*flag = stirred_ = true;
    changed_.notify_all();
}

/// Under the lock: once `quit` has been called, nobody may be there to be told.
void SoundWorker::Desk::report(const SoundWish& wish, bool atEnd) {
    const std::lock_guard lock(mutex_);
    if (!ending_ && wish.report) wish.report(atEnd);
}

void SoundWorker::Desk::run() {
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

std::optional<SoundWorker::Desk::Work> SoundWorker::Desk::nextWork() {
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
void SoundWorker::Desk::tendLoss(Work& work) {
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

void SoundWorker::Desk::dropLoading() {
    if (!loading()) return;
    loading_.get();
    const std::lock_guard lock(mutex_);
    work_.loaded = false;
}

void SoundWorker::Desk::tendMelody(const SoundWish& wish) {
    if (wish.number != melodyNumber_) obey(wish);
    if (stage_ == Stage::wanted) advance(wish);
    if (now() >= melodyEnd_) passEnd(wish);
    if (now() >= giveUp_) setMelody(Stage::silent);
    if (stage_ == Stage::silent) melody_ = {};
}

void SoundWorker::Desk::obey(const SoundWish& wish) {
    melodyNumber_ = wish.number;
    if (stage_ == Stage::ended && wish.goesOn) return goOn();
    // A melody that is stopped and started goes on where it was: each begins as a new one.
    device_.stopMelody();
    melody_ = {};
    setMelody(wish.number == 0 ? Stage::silent : Stage::wanted);
}

void SoundWorker::Desk::goOn() {
    setMelody(Stage::heard);
    melodyEnd_ = passed_;
    while (melodyEnd_ <= now()) melodyEnd_ += melody_.length;
}

/// One step from a melody that is wanted to one that is heard.
void SoundWorker::Desk::advance(const SoundWish& wish) {
    if (loading()) return;
    if (!device_.open()) return failMelody(wish);
    if (melody_.path != wish.path) return startLoading(wish.path);
    if (!melody_.music || !device_.playMelody(melody_)) return failMelody(wish);
    setMelody(Stage::heard);
    melodyEnd_ = now() + melody_.length;
}

void SoundWorker::Desk::startLoading(const QString& path) {
    melody_ = {};
    loading_ = std::async(std::launch::async, [this, path] {
        Melody melody = loadMelody(path);
        stir(&Work::loaded);
        return melody;
    });
}

void SoundWorker::Desk::passEnd(const SoundWish& wish) {
    passed_ = melodyEnd_;
    setMelody(Stage::ended);
    giveUp_ = passed_ + patience_.end;
    report(wish, true);
}

void SoundWorker::Desk::setMelody(Stage stage) {
    if (stage == Stage::silent) device_.stopMelody();
    stage_ = stage;
    melodyEnd_ = giveUp_ = never;
}

void SoundWorker::Desk::failMelody(const SoundWish& wish) {
    setMelody(Stage::silent);
    report(wish, false);
}

void SoundWorker::Desk::tendWave(const SoundWish& wish) {
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

bool SoundWorker::Desk::beginWave(const SoundWish& wish) {
    if (!device_.open() || now() - wish.asked > patience_.stale) return false;
    const std::optional<SoundClock::duration> length = device_.playWave(wish.path);
    if (length) waveEnd_ = now() + *length;
    return length.has_value();
}

/// An open device wakes its thread many times a second, even to play nothing.
void SoundWorker::Desk::tendSilence() {
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

std::shared_ptr<SoundWorker> SoundWorker::shared() {
    static std::weak_ptr<SoundWorker> present;
    std::shared_ptr<SoundWorker> worker = present.lock();
    if (!worker) present = worker = std::make_shared<SoundWorker>();
    return worker;
}

SoundWorker::SoundWorker(const SoundPatience& patience)
    : patience_(patience), desk_(std::make_shared<Desk>(patience)) {
    std::promise<void> done;
    finished_ = done.get_future();
    thread_ = std::thread([desk = desk_, done = std::move(done)]() mutable {
        desk->run();
        done.set_value();
    });
}

SoundWorker::~SoundWorker() {
    desk_->quit();
    if (finished_.wait_for(patience_.exit) == std::future_status::ready)
        thread_.join();
    else
        thread_.detach();
}

void SoundWorker::wish(DeviceType type, SoundWish wish) {
    desk_->wish(type, std::move(wish));
}

void SoundWorker::withdraw(DeviceType type, std::uint64_t number) {
    desk_->withdraw(type, number);
}
