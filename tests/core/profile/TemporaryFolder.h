// A folder for the files of one test, named after it and removed with it.
#pragma once
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

class TemporaryFolder {
  public:
    TemporaryFolder() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() /
                 (std::string("tolvane.") + test->test_suite_name() + "." + test->name() + "." +
                  std::to_string(getpid()));
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

  private:
    std::filesystem::path folder;
};
