#include <benchmark/benchmark.h>

#include <string>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "core/whatif/Comparison.h"
#include "core/whatif/Meter.h"

namespace {

// With the pays of full house and flush, lines 3 and 4.
PayTable Shipped(const std::string& game, int fullHouse, int flush) {
    ProfileFile file;
    const std::string path = TOLVANE_DATA_FOLDER "/Tolvane.ini";
    PayTable table = LoadPayTable({file, path}, {GameIdFromName({file, path}, game), game}, "");
    if (flush == 0) return table;
    table.lines[3].maxPayout = fullHouse * kFullBet;
    table.lines[4].maxPayout = flush * kFullBet;
    return table;
}

// The tables are part of it.
void ComparePlayOf(benchmark::State& state) {
    const PayTable jacks = Shipped("Jacks or Better", 9, 5);
    const PayTable bonus = Shipped("Bonus Poker", 0, 0);
    std::int64_t hands = 0;
    while (state.KeepRunning()) hands = ComparePlay(TwoTables(jacks, bonus)).differentHands;
    state.SetLabel("0.3 s; " + std::to_string(hands) + " hands differ");
}

void FindTurningPoints(benchmark::State& state) {
    const PayTable jacks = Shipped("Jacks or Better", 8, 5);
    std::size_t points = 0;
    while (state.KeepRunning()) points = MeterCurve(jacks, 0, 4000, 8000).TurningPoints().size();
    state.SetLabel("1 s; " + std::to_string(points) + " of them");
}

BENCHMARK(ComparePlayOf)
    ->Name("ComparePlay/9_5_Jacks_and_8_5_Bonus")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FindTurningPoints)
    ->Name("TurningPoints/8_5_Jacks_to_twice_the_jackpot")
    ->Unit(benchmark::kMillisecond);

}  // namespace
