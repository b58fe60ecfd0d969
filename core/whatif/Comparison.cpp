#include "core/whatif/Comparison.h"

#include <algorithm>
#include <map>
#include <utility>

#include "core/strategy/Grade.h"
#include "core/whatif/HoldWords.h"

namespace {

constexpr std::int64_t kHandsBetweenReports = 4096;

// The best hold, by its values first and then by those that settle ties.
std::size_t BestHold(const StartingHand& hand, const StartingHand& ties) {
    std::size_t best = 0;
    for (std::size_t held = 1; held < kSubsets; ++held) {
        if (std::pair(hand.values[held], ties.values[held]) >
            std::pair(hand.values[best], ties.values[best])) {
            best = held;
        }
    }
    return best;
}

class Comparer {
  public:
    explicit Comparer(const TwoTables& tables)
        : tables(tables),
          termsA(tables.LinesOfA(), tables.A()),
          termsB(tables.LinesOfB(), tables.B()) {}

    void Add(const StartingHand& a, const StartingHand& b) {
        comparison.hands += a.weight;
        comparison.bestOnA += static_cast<Worth>(a.best) * a.weight;
        comparison.bestOnB += static_cast<Worth>(b.best) * b.weight;
        const std::size_t heldA = BestHold(a, b);
        if (b.values[heldA] == b.best) return;
        const std::size_t heldB = BestHold(b, a);
        const Worth onA = static_cast<Worth>(a.best - a.values[heldB]) * a.weight;
        const Worth onB = static_cast<Worth>(b.best - b.values[heldA]) * a.weight;
        comparison.differentHands += a.weight;
        comparison.costOnA += onA;
        comparison.costOnB += onB;

        LookAtHand(termsA, a, LookAt::kHeldCards, looks);
        const std::string words = HoldWords(termsA, looks[heldA]);
        LookAtHand(termsB, b, LookAt::kHeldCards, looks);
        Class& found = classes[{words, HoldWords(termsB, looks[heldB])}];
        found.difference.hands += a.weight;
        found.difference.costOnA += onA;
        found.difference.costOnB += onB;
        const std::int64_t matters = b.best - b.values[heldA];
        if (matters <= found.most) return;
        found.most = matters;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            found.difference.example[i] = tables.LinesOfB().ToFace(b.cards[i]);
        }
    }

    PlayComparison Result() && {
        for (auto& [words, found] : classes) {
            std::tie(found.difference.a, found.difference.b) = words;
            comparison.classes.push_back(std::move(found.difference));
        }
        std::ranges::stable_sort(comparison.classes, std::greater(), &PlayDifference::costOnB);
        comparison.partsOfCoin = tables.Hands().PartsOfCoin();
        return std::move(comparison);
    }

    std::int64_t Hands() const { return comparison.hands; }

  private:
    struct Class {
        PlayDifference difference;
        std::int64_t most = -1;  // that one hand of it loses
    };

    const TwoTables& tables;
    Terms termsA;
    Terms termsB;
    HandLooks looks{};
    PlayComparison comparison;
    std::map<std::pair<std::string, std::string>, Class> classes;
};

}  // namespace

PlayComparison ComparePlay(const TwoTables& tables, const WhatIfProgress& progress) {
    Comparer comparer(tables);
    std::int64_t visited = 0;
    const bool all = tables.ForEach([&](const StartingHand& a, const StartingHand& b) {
        comparer.Add(a, b);
        if (++visited % kHandsBetweenReports != 0 || !progress) return true;
        return progress(static_cast<double>(comparer.Hands()) /
                        static_cast<double>(tables.Hands().Count()));
    });
    PlayComparison comparison = std::move(comparer).Result();
    comparison.cancelled = !all;
    return comparison;
}
