// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "platform/player.h"

class SoundWorker;

/// Hands a task to the game's thread, from any thread, and wakes that thread if it waits. The task
/// may come late, or never: one that finds its player gone does nothing.
using RunInGame = std::function<void(std::function<void()> task)>;

/// A player of MIDI melodies or of waves on the machine's sound device, by SDL2_mixer, all of it on
/// a thread of its own that starts with the first `play`. Of each kind one can be heard at a time:
/// the one started last.
///
/// The unit of position and length is one playing of the file: 0 up to the end, then 1. What cannot
/// be played, for want of a sound device or of anything else, calls `ended` with its position still
/// 0; the next `play` tries again. A melody that is played again as it has ended goes on without a
/// gap; `from` is always the beginning.
class SdlPlayer : public Player {
public:
    /// `runInGame` must work as long as any player lives.
    SdlPlayer(DeviceType, RunInGame runInGame);
    ~SdlPlayer() override;

    bool open(const std::string& path) override;
    void play(std::int32_t from) override;
    void close() override;
    std::int32_t position() const override { return atEnd_ ? 1 : 0; }
    std::int32_t length() const override { return file_.empty() ? 0 : 1; }

private:
    void withdraw();
    void reported(std::uint64_t wish, bool atEnd);

    DeviceType type_;
    RunInGame runInGame_;
    std::filesystem::path file_;  ///< empty while nothing is open
    std::uint64_t wish_ = 0;      ///< the last one, 0 while nothing is to be heard
    bool atEnd_ = false;
    std::shared_ptr<SoundWorker> worker_;
    std::shared_ptr<SdlPlayer*> self_;  ///< a report on its way finds out here if it is too late
};
