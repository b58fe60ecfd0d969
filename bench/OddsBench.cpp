#include <benchmark/benchmark.h>

#include <string>

#include "core/analysis/LineTableCache.h"
#include "core/odds/LineChances.h"
#include "core/profile/ProfileFile.h"

namespace {

DealLaw JacksDeal(int lines, LineTableCache& tables) {
    ProfileFile file;
    const PayTable table =
        LoadPayTable({file, TOLVANE_DATA_FOLDER "/Tolvane.ini"}, {300, "Jacks or Better"}, "");
    const auto deal = FindDealLaw(table, kFullBet, lines, tables, [] { return true; });
    return deal.value_or(DealLaw());
}

// With the chances of all lines, as the window asks for them.
void Session(benchmark::State& state, const SessionWish& wish, const std::string& promise) {
    LineTableCache tables;
    const DealLaw deal = JacksDeal(1, tables);
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(FindSessionLaw(deal.gains, wish).law->ahead);
        benchmark::DoNotOptimize(FindLineChances(deal, wish, [] { return true; }));
    }
    state.SetLabel(promise);
}

// The analysis of the game is in it.
void SessionOfLines(benchmark::State& state, int lines, std::int64_t deals) {
    LineTableCache tables;
    while (state.KeepRunning()) {
        const DealLaw deal = JacksDeal(lines, tables);
        benchmark::DoNotOptimize(FindSessionLaw(deal.gains, {deals}).law->ahead);
    }
    state.SetLabel("2 s");
}

BENCHMARK_CAPTURE(Session, 100000_hands, {100'000}, "200 ms")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Session, 100000_hands_with_200_bets, {100'000, 200}, "200 ms")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Session, 10000_hands_with_200_bets_to_400_and_cash_back,
                  {10'000, 200, 400, 0.0025}, "200 ms")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SessionOfLines, 100_lines_1000_deals, 100, 1000)->Unit(benchmark::kMillisecond);

}  // namespace
