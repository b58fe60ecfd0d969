// Programs that are killed while they save. A kill stands for every end that gives no warning but
// the power cut, which the tests cannot make.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <thread>

#include "tests/core/profile/TemporaryFolder.h"
#include "tests/core/store/CrashState.h"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

// A running CrashChild; the file's saves are counted from 1, over all children.
class Saver {
  public:
    explicit Saver(const std::string& path) {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        std::string program = TOLVANE_CRASH_CHILD;
        std::string argument = path;
        const std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
        if (posix_spawn(&id, program.c_str(), &actions, nullptr, arguments.data(), environ) != 0) {
            id = -1;
        }
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        told = ends[0];
    }
    ~Saver() { close(told); }
    Saver(const Saver&) = delete;
    Saver& operator=(const Saver&) = delete;

    // False when the child has ended, or could not be started.
    bool WaitForSaves(int count) {
        const auto start = Clock::now();
        for (int done = 0; done < count;) {
            const std::int32_t before = acknowledged;
            if (!Hear()) return false;
            if (acknowledged != before) ++done;
        }
        period = (Clock::now() - start) / count;
        return true;
    }

    // What it has told last is heard even so. False when it had ended by itself.
    bool Kill() {
        if (id <= 0) return false;  // not started; a negative id would name other processes
        kill(id, SIGKILL);
        int status = 0;
        waitpid(id, &status, 0);
        while (Hear()) {
        }
        return WIFSIGNALED(status);
    }

    std::int32_t acknowledged = 0;
    std::int32_t begun = 0;
    Clock::duration period{};  // of one save

  private:
    bool Hear() {
        std::int32_t number = 0;
        if (read(told, &number, sizeof number) != sizeof number) return false;
        if (number > 0) begun = number;
        if (number < 0) acknowledged = -number;
        return true;
    }

    pid_t id = -1;
    int told = -1;
};

// The file as a program that nobody killed leaves it.
std::string ContentsOfSave(std::int32_t n) {
    const TemporaryFolder folder;
    ProfileFile file;
    EXPECT_TRUE(SaveNumber(file, folder.Write("game.qdx", ""), n));
    return folder.Read("game.qdx");
}

// In memory a save takes microseconds, and kills fall on every step of it; on the disk most of them
// fall on waiting for the disk.
struct Plan {
    const char* name;
    bool inMemory;
    int saves;               // over all rounds, at least
    unsigned savesPerRound;  // at most, before the kill
};

void PrintTo(const Plan& plan, std::ostream* out) { *out << plan.name; }

class CrashTest : public testing::TestWithParam<Plan> {};

TEST_P(CrashTest, AKilledProgramLeavesTheLastSaveOrTheOneBefore) {
    const Plan& plan = GetParam();
    const bool inMemory = plan.inMemory && fs::is_directory("/dev/shm");
    const TemporaryFolder folder(inMemory ? "/dev/shm" : fs::temp_directory_path());
    const std::string path = folder.Write("game.qdx", "");
    std::mt19937 random(20);
    std::int32_t stored = 0;
    int rounds = 0;
    const auto start = Clock::now();
    for (; stored < plan.saves; ++rounds) {
        Saver saver(path);
        const int saves = 1 + static_cast<int>(random() % plan.savesPerRound);
        ASSERT_TRUE(saver.WaitForSaves(saves)) << "a save failed, or " TOLVANE_CRASH_CHILD;
        std::this_thread::sleep_for(saver.period * static_cast<int>(random() % 1000) / 500);
        ASSERT_TRUE(saver.Kill()) << "a save failed";
        stored = ProfileFile().GetInt("main", "Credits", 0, path);
        ASSERT_GE(stored, saver.acknowledged);
        ASSERT_LE(stored, saver.begun);
        ASSERT_TRUE(folder.Read("game.qdx") == ContentsOfSave(stored)) << path;
    }
    const auto leftovers = folder.FileCount() - 1;
    EXPECT_LE(leftovers, rounds);
    folder.MakeOld();
    ProfileFile file;
    EXPECT_TRUE(SaveNumber(file, path, stored + 1));
    EXPECT_EQ(folder.FileCount(), 1) << "the next program clears up";
    const std::chrono::duration<double> seconds = Clock::now() - start;
    std::printf("%d saves and %d kills in %.1f s, %td files left half-written\n", stored, rounds,
                seconds.count(), leftovers);
}

constexpr Plan kPlans[] = {{"InMemory", true, 10'000, 60}, {"OnDisk", false, 300, 10}};
INSTANTIATE_TEST_SUITE_P(Saves, CrashTest, testing::ValuesIn(kPlans),
                         [](const auto& plan) { return plan.param.name; });

}  // namespace
