// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The settings file: where it is, and that it stays whole while the process that writes it is
// killed, or the disk is full.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <csignal>
#include <random>

#include "platform/qt/settings_store.h"

namespace {

const std::string first = " 12 \r\n 2 \r\n 100 \r\n", second = " 3 \r\n 1 \r\n 80.25 \r\n";

/// VELARDA_KILLS=5000 tries longer.
int kills() {
    const int wanted = qEnvironmentVariableIntValue("VELARDA_KILLS");
    return wanted > 0 ? wanted : 300;
}

class SettingsFile : public testing::Test {
protected:
    void SetUp() override {
        qputenv("XDG_CONFIG_HOME", "/proc/none");
        ASSERT_TRUE(store_.write(first));
    }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder_;
    SettingsStore store_{folder_.path().toStdString()};
};

TEST_F(SettingsFile, IsTheUsersOwnWhereTheProgramsCannotBeWritten) {
    qputenv("XDG_CONFIG_HOME", folder_.filePath("home").toLocal8Bit());
    const SettingsStore users("/proc");
    EXPECT_EQ(users.read(), "");
    EXPECT_TRUE(users.write(second));
    EXPECT_EQ(users.read(), second);
    EXPECT_EQ(store_.read(), first) << "beside a program that can write its own";
}

TEST_F(SettingsFile, IsReadUpToALengthThatDoesNoHarm) {
    EXPECT_TRUE(store_.write(std::string(3'000'000, 'x')));
    EXPECT_LE(store_.read().size(), 4096u);
}

TEST_F(SettingsFile, IsTheOldOneOrTheNewOneWhenItsWriterIsKilled) {
    std::mt19937 chance(std::random_device{}());
    std::uniform_int_distribution<useconds_t> moment(0, 12000);
    int seen[2] = {};
    for (int i = 0; i < kills(); ++i) {
        const pid_t child = fork();
        ASSERT_NE(child, -1);
        if (child == 0)
            for (;;) store_.write(second), store_.write(first);
        usleep(moment(chance));
        int status = 0;
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it has ended by itself";
        const std::string text = store_.read();
        ASSERT_TRUE(text == first || text == second) << "after kill " << i << ": " << text;
        ++seen[text == second];
        ASSERT_LE(files().size(), 2) << "a leftover goes at the next time";
    }
    EXPECT_GT(seen[0], 0) << "no kill came while it wrote the new one";
    EXPECT_GT(seen[1], 0) << "no kill came while it wrote the old one";
    EXPECT_TRUE(store_.write(second));
    EXPECT_EQ(files(), QStringList{"config.crv"});
}

TEST_F(SettingsFile, StaysWholeWhenTheDiskIsFull) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    for (const rlim_t room : {rlim_t{0}, rlim_t{7}}) {
        const rlimit full{room, usual.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
        const bool written = store_.write(second);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &usual), 0);
        EXPECT_FALSE(written) << "with room for " << room << " bytes";
        EXPECT_EQ(store_.read(), first);
        EXPECT_EQ(files(), QStringList{"config.crv"});
    }
}

}  // namespace
