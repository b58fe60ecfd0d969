// All starting hands of a game, one of each class under the renaming of interchangeable suits, with
// the exact worth of its 32 holds. Worths are whole numbers: coins at the full bet, counted in
// parts of a coin so small that every hold's mean is whole.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/analysis/LineTables.h"
#include "core/paytable/PayTable.h"

__extension__ using Int128 = __int128;

// The holds of a hand have a bit for each card, 1 for the first of the cards below.
inline constexpr std::size_t kSubsets = 32;
inline constexpr std::size_t kAllCards = kSubsets - 1;

// Long work asks from time to time, with the share done, and ends at the answer false.
using Progress = std::function<bool(double done)>;

struct StartingHand {
    SortedCards cards{};
    std::int64_t weight = 0;                      // hands of the class
    std::array<std::int64_t, kSubsets> values{};  // parts of a coin, by hold
    std::int64_t best = 0;                        // parts of a coin, played as well as can be
    int line = -1;                                // that standing pat is paid on; -1 for none
};

class StartingHands {
  public:
    // Why no chart can be made of the table, as a sentence goes on behind its name; empty when one
    // can.
    static std::string WhyNot(const PayTable& table);

    // The tables are those of the pay table; both must outlive this. Only for tables that have no
    // reason against it.
    StartingHands(const LineTables& tables, const PayTable& table);

    // Parts in a coin: the least common multiple of the numbers of draws, or of what they are
    // counted by where a second draw or the order of the cards matters.
    std::int64_t PartsOfCoin() const { return parts; }

    // C(deck, 5), which is the sum of all weights.
    std::int64_t Count() const { return count; }

    const LineTables& Tables() const { return tables; }

    // Classes come in a fixed order. The visitor ends the run by false; it is true when all were
    // visited.
    using Visitor = std::function<bool(const StartingHand&)>;
    bool ForEach(const Visitor& visit) const;

  private:
    struct SuitClass {
        std::array<std::uint8_t, kHandSize> suits{};
        std::int64_t count = 0;
    };
    using Kinds = std::array<std::uint8_t, kHandSize>;

    std::vector<SuitClass> ClassesOf(const Kinds& kinds) const;
    void ComputeValues(StartingHand& hand) const;
    void ComputeSecondDraws(StartingHand& hand) const;
    void AddAcesInOrder(StartingHand& hand) const;
    std::int64_t AceGain(const StartingHand& hand, std::size_t held) const;
    std::int64_t GainBeside(const SortedCards& five) const;
    std::int64_t BestOverOrders(const StartingHand& hand) const;

    const LineTables& tables;
    const PayTable& table;
    SuitGroup group;
    int extras = 0;  // cards of the extra kind
    int aceLine = -1;
    bool ordered = false;
    std::int64_t parts = 0;
    std::int64_t count = 0;
    std::array<std::int64_t, kLanes> pays{};                // coins, by lane
    std::array<std::int64_t, kHandSize + 1> partsOfDraw{};  // parts of one draw, by cards drawn
    // The coins that all hands of a set are worth together, by size and class of the set.
    std::array<std::vector<std::int64_t>, kHandSize> worth;
};
