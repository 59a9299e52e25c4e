// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The settings file while the process that writes it is killed, or the disk is full. A child
// process writes; the test looks at the files that it leaves.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
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

class Faults : public testing::Test {
protected:
    void SetUp() override {
        qputenv("XDG_CONFIG_HOME", "/proc/none");
        ASSERT_TRUE(store_.write(first));
    }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder_;
    SettingsStore store_{folder_.path().toStdString()};
};

TEST_F(Faults, AKilledWriterLeavesTheOldFileOrTheNewOneAndNoOther) {
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
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        const std::string text = store_.read();
        ASSERT_TRUE(text == first || text == second) << "after kill " << i << ": " << text;
        ++seen[text == second];
        ASSERT_LE(files().size(), 2) << "a leftover goes at the next time";
    }
    EXPECT_TRUE(seen[0] > 0 && seen[1] > 0) << "the kills came while it was writing";
    EXPECT_TRUE(store_.write(second));
    EXPECT_EQ(files(), QStringList{"config.crv"});
}

TEST_F(Faults, AFullDiskLeavesTheOldFile) {
    for (const rlim_t room : {rlim_t{0}, rlim_t{7}}) {
        const pid_t child = fork();
        ASSERT_NE(child, -1);
        if (child == 0) {
            const rlimit limit{room, room};
            std::signal(SIGXFSZ, SIG_IGN);
            if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(2);
            _exit(store_.write(second) ? 1 : 0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "room for " << room;
        EXPECT_EQ(store_.read(), first);
        EXPECT_EQ(files(), QStringList{"config.crv"});
    }
}

}  // namespace
