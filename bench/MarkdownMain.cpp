// Runs the benchmarks and prints their times as the table that stands in the README.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <iostream>
#include <string>

namespace {

std::string Readable(double seconds) {
    constexpr std::array<const char*, 4> kUnits = {"s", "ms", "µs", "ns"};
    std::size_t unit = 0;
    for (; unit + 1 < kUnits.size() && seconds < 1; ++unit) seconds *= 1000;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.3g %s", seconds, kUnits[unit]);
    return text.data();
}

// A row for each benchmark: its name with blanks for underscores, processor time, and its label.
class MarkdownReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& context) override {
        PrintBasicContext(&std::cerr, context);
        std::cout << "| what | time | promise |\n|---|---|---|\n";
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            // One that measures its time itself has measured the processor's.
            const bool own = run.run_name.time_type == "manual_time";
            std::string name = own ? run.run_name.function_name : run.benchmark_name();
            for (char& c : name) {
                if (c == '_') c = ' ';
            }
            const double time = own ? run.real_accumulated_time : run.cpu_accumulated_time;
            const double seconds = time / static_cast<double>(run.iterations);
            std::cout << "| " << name << " | " << Readable(seconds) << " | " << run.report_label
                      << " |" << std::endl;
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    MarkdownReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
