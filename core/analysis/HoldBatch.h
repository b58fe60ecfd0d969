// The best holds of hands that have the same kinds, eight hands at a time. This file only buys
// time: it must always agree with AnalyzeHand, in the hold, the draws and the return to its last
// bit.
//
// 1. Every subset of a hand is worth what all hands that hold it are worth. For eight hands these
//    numbers are looked up by their classes, and inclusion and exclusion makes of them, all eight
//    at once, the worth of the 32 holds.
// 2. The returns are compared as single-precision numbers first. Nearly always one hold is ahead
//    by more than these can be wrong; the few others are compared exactly, ties included.
// 3. The draws of the best hold are counted line by line only for who asks. Totals add up the
//    weights of the hands that need the row of a class (DrawSums), and need each row just once.
#pragma once
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "core/analysis/DrawSums.h"
#include "core/analysis/SetWorths.h"
#include "core/analysis/SuitLayout.h"

// The kinds of a hand in rising order, and the position 0..4 of each of its cards.
struct HandKinds {
    std::array<std::uint8_t, kHandSize> kinds{};
    std::array<std::uint8_t, kHandSize> positions{};
};

// What settles a tie after standing pat, which wins every one.
enum class TieRule {
    kWinRate,    // the larger share of winning draws, then the lower mask
    kLowerMask,  // the lower mask
};

// What all batches of a game have in common.
struct BatchGame {
    const LineTables& tables;
    SetWorths worths;
    double coin;  // dollars
    TieRule tieRule;
    // The worths once more as 32-bit numbers, empty where they do not fit.
    std::vector<std::uint32_t> narrow;
    // By subset: what the worth of a hold is multiplied by to compare it. 0 for coins so odd that
    // all holds have to be compared exactly.
    std::array<float, kHolds> scales{};

    BatchGame(const LineTables& tables, const PayTable& table, int bet, double coin);
};

class HoldBatch {
  public:
    // The game must outlive the batch.
    explicit HoldBatch(const BatchGame& game) : game(game) {}

    // Finds the best hold of every hand of the layout, which must stay until the next call.
    void Find(const HandKinds& ofHands, const SuitLayout& suits);

    // These answer for a hand by its number in the layout.
    HoldMask Mask(std::size_t hand) const { return MaskOf(held[layout->columnOf[hand]]); }
    std::size_t CardsDrawn(std::size_t hand) const;
    double Return(std::size_t hand) const { return returns[layout->columnOf[hand]]; }  // dollars
    void CountLines(std::size_t hand, LineCounts& counts) const;

    // Whether two hands are played alike: the same cards are held, and the draws are the same.
    bool AreAlike(std::size_t a, std::size_t b) const;

    // Counts so many more hands that are like this one; AddDraws adds the draws of all of them.
    void Count(std::size_t hand, std::int64_t more) { weights[layout->columnOf[hand]] += more; }
    void AddDraws(std::int64_t factor, DrawSums& sums) const;

  private:
    void SetKinds(const HandKinds& ofHands);
    template <std::size_t... Subsets>
    void SetFirstRows(std::index_sequence<Subsets...> subsets);
    template <typename Number>
    void FindAll(const Number* worths);
    std::size_t Settle(std::size_t column, std::uint32_t candidates,
                       const std::array<std::int64_t, kHolds>& coins) const;
    double ReturnOf(std::size_t hold, std::int64_t coins) const;
    double WinRate(std::size_t column, std::size_t hold) const;
    HoldMask MaskOf(std::size_t hold) const;
    std::size_t Row(std::size_t column, std::size_t subset) const;
    void CountLinesOf(std::size_t column, std::size_t hold, LineCounts& counts) const;

    const BatchGame& game;
    HandKinds kinds;
    const SuitLayout* layout = nullptr;
    std::array<std::uint32_t, kHolds> firstRow{};  // by subset: of the classes of its kinds
    std::array<std::uint8_t, LineTables::kViews> laneOfView{};
    // By column.
    std::vector<std::uint8_t> held;  // the best hold, a subset
    std::vector<double> returns;     // its worth in dollars
    std::vector<std::int64_t> weights;
};
