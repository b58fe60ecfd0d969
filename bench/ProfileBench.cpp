#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "core/profile/ProfileFile.h"

namespace {

const std::string kShipped = TOLVANE_DATA_FOLDER "/Tolvane.ini";

void ReadProfileFile(benchmark::State& state) {
    while (state.KeepRunning()) {
        ProfileFile file;
        benchmark::DoNotOptimize(file.GetInt("main", "Ver", 0, kShipped));
    }
}

void ChangeAndWriteProfileFile(benchmark::State& state) {
    const auto copy = std::filesystem::temp_directory_path() / "tolvane-bench.ini";
    std::filesystem::copy_file(kShipped, copy, std::filesystem::copy_options::overwrite_existing);
    ProfileFile file;
    int value = 0;
    while (state.KeepRunning()) {
        file.WriteInt("Jacks or Better(0)", "HandsPlayed", ++value, copy.string());
        benchmark::DoNotOptimize(file.Flush());
    }
    std::filesystem::remove(copy);
}

BENCHMARK(ReadProfileFile)->Name("ReadProfileFile/pay_tables_of_42_games");
BENCHMARK(ChangeAndWriteProfileFile)->Name("ChangeAndWriteProfileFile/pay_tables_of_42_games");

}  // namespace
