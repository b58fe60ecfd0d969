#include <benchmark/benchmark.h>

#include "core/cards/Deck.h"

namespace {

void ShufflePass(benchmark::State& state) {
    Deck deck;
    deck.Build({});
    while (state.KeepRunning()) {
        deck.Shuffle(1);
        benchmark::DoNotOptimize(deck.order[0]);
    }
}

BENCHMARK(ShufflePass)->Name("ShufflePass/52_cards");

}  // namespace
