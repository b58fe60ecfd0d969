// Folders for the files of a test, named after it and removed with it.
#pragma once
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

class TemporaryFolder {
  public:
    explicit TemporaryFolder(
        const std::filesystem::path& where = std::filesystem::temp_directory_path()) {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string("tolvane.") + test->test_suite_name() + "." + test->name() +
                           "." + std::to_string(getpid()) + "." + std::to_string(++made);
        std::ranges::replace(name, '/', '.');  // of a test with a parameter
        folder = where / name;
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string Path(std::string_view name = {}) const {
        return name.empty() ? folder.string() : (folder / name).string();
    }

    std::string Write(std::string_view name, std::string_view contents) const {
        std::ofstream(folder / name, std::ios::binary) << contents;
        return Path(name);
    }

    // "(missing)" for a file that is not there.
    std::string Read(std::string_view name) const {
        const std::ifstream file(folder / name, std::ios::binary);
        if (!file) return "(missing)";
        std::ostringstream contents;
        contents << file.rdbuf();
        return contents.str();
    }

    std::ptrdiff_t FileCount() const {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }

    // As if all that lies in it had been written a day ago.
    void MakeOld() const {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const auto now = std::filesystem::file_time_type::clock::now();
            std::filesystem::last_write_time(entry, now - std::chrono::hours(24));
        }
    }

  private:
    static inline int made = 0;
    std::filesystem::path folder;
};

// The administrator may write anything: while it lives, the test is somebody else.
class OrdinaryUser {
  public:
    OrdinaryUser() : bound(geteuid() != 0 || seteuid(kNobody) == 0) {}
    ~OrdinaryUser() { EXPECT_EQ(seteuid(getuid()), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    const bool bound;  // permissions bind this user

  private:
    static constexpr uid_t kNobody = 65534;
};
