#include "core/store/LockFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <optional>

#include "tests/core/profile/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using State = LockFile::State;

LockFile Lock(const TemporaryFolder& folder) { return LockFile::OfDataFolder(folder.Path()); }

TEST(LockFileTest, ASecondHolderIsToldWhoTheFirstIs) {
    const TemporaryFolder folder;
    std::optional<LockFile> first(Lock(folder));
    EXPECT_EQ(first->GetState(), State::kHeld);
    const LockFile second = Lock(folder);
    EXPECT_EQ(second.GetState(), State::kTaken);
    const LockFile::Holder& holder = second.HeldBy();
    EXPECT_EQ(holder.process, getpid());
    std::array<char, 100> machine{};
    gethostname(machine.data(), machine.size());
    EXPECT_EQ(holder.Text(), "process " + std::to_string(getpid()) + " of " +
                                 getpwuid(geteuid())->pw_name + " on " + machine.data());
    EXPECT_EQ(LockFile::Holder().Text(), "another user");
    first.reset();
    EXPECT_EQ(Lock(folder).GetState(), State::kHeld);
}

TEST(LockFileTest, AStartedProgramDoesNotInheritTheLock) {
    const TemporaryFolder folder;
    std::array<int, 2> closedByExec{};
    ASSERT_EQ(pipe2(closedByExec.data(), O_CLOEXEC), 0);
    std::optional<LockFile> lock(Lock(folder));
    const pid_t sleeper = fork();
    if (sleeper == 0) {
        execlp("sleep", "sleep", "60", nullptr);
        _exit(1);
    }
    close(closedByExec[1]);
    char nothing = 0;
    EXPECT_EQ(read(closedByExec[0], &nothing, 1), 0);
    close(closedByExec[0]);
    lock.reset();
    EXPECT_EQ(Lock(folder).GetState(), State::kHeld);
    kill(sleeper, SIGKILL);
    waitpid(sleeper, nullptr, 0);
}

TEST(LockFileTest, AFolderThatCannotBeWrittenIsNotTheSameAsALockThatCannotBeMade) {
    const TemporaryFolder folder;
    fs::permissions(folder.Path(), fs::perms(0555));
    {
        const OrdinaryUser user;
        if (!user.bound) GTEST_SKIP() << "permissions do not bind here";
        EXPECT_EQ(Lock(folder).GetState(), State::kRefused);
    }
    fs::permissions(folder.Path(), fs::perms(0755));
    EXPECT_EQ(LockFile::OfDataFolder(folder.Path("missing")).GetState(), State::kRefused);
    fs::create_directory(folder.Path("Tolvane.lock"));
    EXPECT_EQ(Lock(folder).GetState(), State::kNotKnown);
    fs::remove(folder.Path("Tolvane.lock"));
    folder.Write("precious", "text");
    fs::create_symlink(folder.Path("precious"), folder.Path("Tolvane.lock"));
    EXPECT_EQ(Lock(folder).GetState(), State::kNotKnown);
    EXPECT_EQ(folder.Read("precious"), "text");
}

TEST(LockFileTest, AGameFileHasOneLockByAllItsNamesWhichGoesWithIt) {
    const TemporaryFolder folder;
    const std::string game = folder.Write("game.qdx", "");
    fs::create_directory(folder.Path("other"));
    fs::create_symlink(game, folder.Path("other/link.qdx"));
    {
        const LockFile lock = LockFile::OfGameFile(folder.Path("other/link.qdx"));
        EXPECT_EQ(lock.GetState(), State::kHeld);
        EXPECT_EQ(LockFile::OfGameFile(game).GetState(), State::kTaken);
        EXPECT_EQ(LockFile::OfGameFile(folder.Path("new.qdx")).GetState(), State::kHeld);
        EXPECT_EQ(folder.FileCount(), 3) << "the game, the folder and the lock";
    }
    EXPECT_EQ(folder.FileCount(), 2);
}

}  // namespace
