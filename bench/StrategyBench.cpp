#include <benchmark/benchmark.h>

#include <string>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "core/strategy/Grade.h"
#include "core/strategy/Search.h"

namespace {

PayTable Shipped(const std::string& game) {
    ProfileFile file;
    const std::string path = TOLVANE_DATA_FOLDER "/Tolvane.ini";
    return LoadPayTable({file, path}, {GameIdFromName({file, path}, game), game}, "");
}

// A chart whose rows are all tried; how long it is matters little.
void GradeAChart(benchmark::State& state, const std::string& game) {
    const PayTable table = Shipped(game);
    const LineTables tables(table);
    const StartingHands hands(tables, table);
    const Terms terms(tables, table);
    Row highCard;
    highCard.base = Base::kHighCards;
    highCard.count = 1;
    const Chart chart = {highCard, Row()};
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(GradeChart(hands, terms, chart).hands);
    }
    state.SetLabel("500 ms");
}

void FindStandardChart(benchmark::State& state, const std::string& game) {
    const PayTable table = Shipped(game);
    const LineTables tables(table);
    const StartingHands hands(tables, table);
    const Terms terms(tables, table);
    std::size_t rows = 0;
    while (state.KeepRunning()) {
        rows = FindChart(hands, terms, table, kStandardChart).chart.size();
    }
    state.SetLabel("5 s; " + std::to_string(rows) + " lines");
}

BENCHMARK_CAPTURE(GradeAChart, 52_cards, "Jacks or Better")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(GradeAChart, deuces_wild, "Deuces Wild")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindStandardChart, 52_cards, "Jacks or Better")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindStandardChart, deuces_wild, "Deuces Wild")->Unit(benchmark::kMillisecond);

}  // namespace
