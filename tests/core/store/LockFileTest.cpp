#include "core/store/LockFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <optional>

#include "tests/core/profile/TemporaryFolder.h"

namespace {

using State = LockFile::State;

// Starts a process that takes the lock and keeps it until it is killed.
pid_t StartHolder(const std::string& folder) {
    std::array<int, 2> ready{};
    EXPECT_EQ(pipe(ready.data()), 0);
    const pid_t id = fork();
    if (id == 0) {
        const LockFile lock(folder);
        if (write(ready[1], lock.GetState() == State::kHeld ? "h" : "x", 1) == 1) pause();
        _exit(1);
    }
    char state = 0;
    EXPECT_EQ(read(ready[0], &state, 1), 1);
    EXPECT_EQ(state, 'h');
    close(ready[0]);
    close(ready[1]);
    return id;
}

void Kill(pid_t id) {
    kill(id, SIGKILL);
    waitpid(id, nullptr, 0);
}

TEST(LockFileTest, ASecondHolderIsToldWhoTheFirstIs) {
    const TemporaryFolder folder;
    std::optional<LockFile> first(folder.Path());
    EXPECT_EQ(first->GetState(), State::kHeld);
    EXPECT_EQ(first->Holder(), 0);
    const LockFile second(folder.Path());
    EXPECT_EQ(second.GetState(), State::kTaken);
    EXPECT_EQ(second.Holder(), getpid());
    first.reset();
    EXPECT_EQ(LockFile(folder.Path()).GetState(), State::kHeld);
    EXPECT_EQ(second.GetState(), State::kTaken);
}

TEST(LockFileTest, TheLockEndsWithAKilledProcess) {
    const TemporaryFolder folder;
    const pid_t other = StartHolder(folder.Path());
    EXPECT_EQ(LockFile(folder.Path()).GetState(), State::kTaken);
    EXPECT_EQ(LockFile(folder.Path()).Holder(), other);
    Kill(other);
    EXPECT_EQ(LockFile(folder.Path()).GetState(), State::kHeld);
}

TEST(LockFileTest, AStartedProgramDoesNotInheritTheLock) {
    const TemporaryFolder folder;
    std::array<int, 2> closedByExec{};
    ASSERT_EQ(pipe2(closedByExec.data(), O_CLOEXEC), 0);
    std::optional<LockFile> lock(folder.Path());
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
    EXPECT_EQ(LockFile(folder.Path()).GetState(), State::kHeld);
    Kill(sleeper);
}

TEST(LockFileTest, AFolderThatCannotBeWrittenRefuses) {
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0555));
    {
        const OrdinaryUser user;
        if (!user.bound) GTEST_SKIP() << "permissions do not bind here";
        EXPECT_EQ(LockFile(folder.Path()).GetState(), State::kRefused);
    }
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
    EXPECT_EQ(LockFile(folder.Path("missing")).GetState(), State::kRefused);
    std::filesystem::create_directory(folder.Path("Tolvane.lock"));
    EXPECT_EQ(LockFile(folder.Path()).GetState(), State::kRefused);
}

}  // namespace
