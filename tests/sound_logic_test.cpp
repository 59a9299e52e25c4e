// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The two sound devices: their commands, and when the game gives which.

#include "tests/script.h"

namespace {

using script::Play;
using State = MMControl::State;

/// What a player was told, in the order of telling.
struct Log {
    std::string text;
    std::int32_t position = 0, length = 1000;
    bool works = true;
};

class LoggedPlayer : public Player {
public:
    explicit LoggedPlayer(Log& log) : log_(log) {}
    bool open(const std::string& path) override {
        log_.text += "open " + path + '\n';
        return log_.works;
    }
    void play(std::int32_t from) override { log_.text += "play " + std::to_string(from) + '\n'; }
    void close() override { log_.text += "close\n"; }
    std::int32_t position() const override { return log_.position; }
    std::int32_t length() const override { return log_.length; }

private:
    Log& log_;
};

/// A device by itself, with a player that writes down what it is told.
struct Device : Play {
    Log log;
    MMControl control;
    Device() {
        control.source = Source::MMC1;
        control.FileName = "a.mid";
        control.player = std::make_unique<LoggedPlayer>(log);
    }
    /// What the player was told during these commands.
    std::string give(std::initializer_list<const char*> commands) {
        log.text.clear();
        for (const char* command : commands) Command(g, control, command);
        return log.text;
    }
};

TEST(Device, DoesNothingWhileClosed) {
    Device d;
    EXPECT_EQ(d.give({"Play", "Close", "Stop", "play", "close", "Pause", ""}), "");
    EXPECT_EQ(d.control.state, State::closed);
    EXPECT_EQ(Position(d.control), 0);
    EXPECT_EQ(Length(d.control), 0);
}

TEST(Device, TakesCommandsInAnyCase) {
    Device d;
    EXPECT_EQ(d.give({"oPeN"}), "open a.mid\n");
    EXPECT_EQ(d.control.state, State::open);
    EXPECT_EQ(d.give({"PLAY"}), "play 0\n");
    EXPECT_EQ(d.control.state, State::playing);
    EXPECT_EQ(d.give({"Close"}), "close\n");
    EXPECT_EQ(d.control.state, State::closed);
}

TEST(Device, GoesOnUnlessItIsSentBack) {
    Device d;
    d.give({"open"});
    d.control.From = 250;
    EXPECT_EQ(d.give({"play"}), "play 250\n");
    EXPECT_EQ(d.give({"play"}), "") << "a melody that runs goes on";
    d.control.From = 0;
    EXPECT_EQ(d.give({"play", "play"}), "play 0\n") << "From counts for one play";
    d.control.player->ended();
    EXPECT_EQ(d.give({"play"}), "play 0\n") << "it has come to its end";
}

TEST(Device, AMissingFileLeavesItClosed) {
    Device d;
    d.log.works = false;
    EXPECT_EQ(d.give({"open", "play", "close"}), "open a.mid\n");
    EXPECT_EQ(d.control.state, State::closed);
    d.log.works = true;
    EXPECT_EQ(d.give({"open", "play"}), "open a.mid\nplay 0\n");
}

TEST(Device, RewindsAtItsEndAndOnlyThere) {
    Device d;
    d.backend.time.user = nullptr;
    Game& g = d.g;
    g.MMC1.player = std::make_unique<LoggedPlayer>(d.log);
    Command(g, g.MMC1, "Open");
    Command(g, g.MMC1, "Play");
    d.log.text.clear();
    d.log.position = 999;
    g.queue.push_back({Source::MMC1, Verb::Done});
    rtcDoEvents(g);
    EXPECT_EQ(d.log.text, "") << "the end of some other command";
    d.log.position = 1000;
    g.queue.push_back({Source::MMC1, Verb::Done});
    rtcDoEvents(g);
    EXPECT_EQ(d.log.text, "play 0\n");
    g.queue.push_back({Source::MMC1, Verb::StopCompleted});
    rtcDoEvents(g);
    EXPECT_EQ(g.MMC1.From, 0);
}

/// Ends the melody when it has played through, as a player does; the clock tells.
void endMelodies(Play& p, int& ended) {
    MMControl& music = p.g.MMC1;
    if (music.state != State::playing || Position(music) != Length(music)) return;
    ++ended;
    music.player->ended();
}

TEST(Music, StartsWithTheFirstHandAndGoesOn) {
    Play p(1, "3,2,100");
    p.backend.melodySeconds = 1e6;
    std::int32_t second = -1;
    double begun = -1;
    p.then([&] { return p.choosing(); },
           [&] {
               EXPECT_EQ(p.g.MMC1.state, State::open) << "open, but not to be heard yet";
               EXPECT_EQ(p.backend.melody, "/velarda/music/Go4yrgun.mid");
           });
    p.watch = [&](Moment moment) {
        if (moment != Moment::dealt) return;
        EXPECT_EQ(p.g.MMC1.state, State::playing);
        if (begun < 0) begun = p.now();
        if (p.seen(moment) == 2) second = Position(p.g.MMC1);
    };
    p.then([&] { return p.seen(Moment::dealt) == 2; });
    p.run();
    EXPECT_NEAR(second, (p.now() - begun) * 1000, 2) << "not started over again";
    EXPECT_EQ(p.g.MMC1.state, State::closed);
}

TEST(Music, LoopsFromItsBeginning) {
    Play p(1, "3,2,100");
    p.backend.melodySeconds = 20;
    int ended = 0;
    p.look = [&] { endMelodies(p, ended); };
    p.watch = [&](Moment) {
        if (ended == 0) return;
        EXPECT_EQ(p.g.MMC1.state, State::playing);
    };
    p.then([&] { return ended == 3; });
    p.then([&] { return p.g.MMC1.state == State::playing && p.picking(); });
    p.run();
    EXPECT_EQ(ended, 3);
}

TEST(Music, ChangesInTheMiddleOfAHand) {
    Play p(1, "0,2,100");
    MMControl& music = p.g.MMC1;
    p.then([&] { return p.started; },
           [&] {
               EXPECT_EQ(music.state, State::closed);
               p.menu(p.g.canzoni(9));
           });
    p.then([&] { return p.g.brano == 9; },
           [&] {
               EXPECT_EQ(music.state, State::playing) << "it begins with the choice";
               EXPECT_EQ(p.backend.melody, "/velarda/music/Easycity.MID");
           });
    p.then([&] { return p.now() > 60; },
           [&] {
               EXPECT_GT(Position(music), 10000);
               p.menu(p.g.canzoni(9));
           });
    p.then([&] { return Position(music) == 0; },
           [&] {
               EXPECT_EQ(music.state, State::playing)
                   << "the same entry starts it from the beginning";
               p.menu(p.g.canzoni(4));
           });
    p.then([&] { return p.g.brano == 4; },
           [&] {
               EXPECT_EQ(p.backend.melody, "/velarda/music/Sevilana.MID");
               p.menu(p.g.canzoni(0));
           });
    p.then([&] { return p.g.brano == 0; },
           [&] {
               EXPECT_EQ(music.state, State::closed);
               EXPECT_EQ(p.backend.melody, "");
               EXPECT_EQ(p.backend.settings.substr(0, 5), " 0 \r\n");
           });
    p.then([&] { return p.seen(Moment::dealt) == 2; });
    p.run();
    EXPECT_EQ(p.backend.melody, "") << "the next hand opens none";
}

TEST(CardSound, IsStartedForEachCard) {
    Play p;
    int before = 0;
    p.watch = [&](Moment moment) {
        if (moment == Moment::turn) before = p.backend.cardSounds;
        if (moment != Moment::decided && moment != Moment::carriedOut) return;
        EXPECT_EQ(p.backend.cardSounds, before + 1);
    };
    p.runHands(2);
    EXPECT_EQ(p.backend.cardSounds, 72);
}

TEST(CardSound, StartsAgainWhileTheLastOneRuns) {
    Play p;
    p.g.MMCw.deviceType = DeviceType::WaveAudio;
    Log log;
    p.g.MMCw.player = std::make_unique<LoggedPlayer>(log);
    p.runHands(1);
    std::string expected = "open /velarda/carta.wav\n";
    for (int card = 1; card <= 36; ++card) expected += "play 0\n";
    EXPECT_EQ(log.text, expected + "close\n");
}

TEST(Sound, MayBeMissing) {
    Play silent(4), loud(4);
    silent.backend.soundWorks = false;
    std::vector<int> played[2];
    int run = 0;
    for (Play* p : {&silent, &loud}) {
        p->watch = [&played, p, &run](Moment moment) {
            if (moment == Moment::decided) played[run].push_back(p->g.cartaGiocata);
        };
        p->then([p] { return p->picking(); }, [p] { p->menu(p->g.canzoni(2)); });
        p->runHands(2);
        ++run;
    }
    EXPECT_EQ(played[0], played[1]);
    EXPECT_EQ(silent.backend.cardSounds, 0);
    EXPECT_EQ(silent.g.MMC1.state, State::closed);
    EXPECT_EQ(silent.backend.settings.substr(0, 5), " 2 \r\n") << "the choice is kept";
    EXPECT_TRUE(silent.g.canzoni(2).Checked);
}

}  // namespace
