// Feeds every file named on the command line (of a folder, every file below it) to a fuzz target,
// so that what the fuzzer once found is tested by every compiler. Fails when there is nothing to
// feed.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int Replay(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string input(std::istreambuf_iterator<char>(file), {});
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);  // the last name seen is the one that crashed
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    return 1;
}

int ReplayAll(const std::filesystem::path& path) {
    if (!std::filesystem::is_directory(path)) return Replay(path);
    int inputs = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) inputs += Replay(entry.path());
    }
    return inputs;
}

}  // namespace

int main(int argc, char** argv) {
    int inputs = 0;
    for (const char* path : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
        if (std::filesystem::exists(path)) inputs += ReplayAll(path);
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
