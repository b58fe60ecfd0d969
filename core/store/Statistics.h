// What is counted while a game is played, and the section of a game file that keeps it. Each table
// of each game has a section of its own, TableSection, which holds its error log as well.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/cards/Hand.h"
#include "core/profile/ProfileFile.h"

struct PayTable;

// The sum, or the 32-bit number nearest to it.
std::int32_t AddCapped(std::int32_t value, std::int64_t amount);

// The session copy begins at 0 with every session; the total is kept in the game file.
struct Counter {
    std::int32_t session = 0;
    std::int32_t total = 0;

    // Counts in both copies, by AddCapped; a negative amount takes back.
    void Add(std::int64_t amount);

    bool operator==(const Counter&) const = default;
};

struct DollarSum {
    double session = 0;
    double total = 0;

    void Add(double dollars);

    bool operator==(const DollarSum&) const = default;
};

struct Statistics {
    Counter creditsPlayed;
    Counter creditsWon;  // on pay lines
    Counter handsPlayed;
    Counter handsWon;
    Counter doubleUpCredits;
    Counter bonusCredits;
    Counter doubleUpCreditsLost;
    Counter doubleUpTries;
    Counter doubleUpsLost;
    Counter doubleUpsTied;
    Counter bonusTries;
    Counter playErrors;
    DollarSum bestReturns;              // of the best holds of all checked hands
    DollarSum errorCosts;               // of all play errors
    std::int32_t sessionDollarsIn = 0;  // dollars entered
    std::int32_t nextError = 0;         // entries in the error log, 0..kErrorLogSize
    HandCards setCards{0, 1, 2, 3, 4};  // the fixed hand; kNoCard = dealt at random
    HandCards setDraws{5, 6, 7, 8, 9};  // its replacement cards
    double elapsedBase = 0;             // hours played before the session, as stored when it began
    std::int64_t sessionStart = 0;      // seconds since the epoch
    double sessionHours = 0;            // as of the last save

    bool operator==(const Statistics&) const = default;
};

// All credits won, with bonuses and double ups, less those that double ups lost: of the session or
// of the total (&Counter::session, &Counter::total).
std::int64_t CreditsReturned(const Statistics& statistics, std::int32_t Counter::*copy);

// CreditsReturned less the credits played.
std::int64_t NetCredits(const Statistics& statistics, std::int32_t Counter::*copy);

struct CounterKey {
    std::string_view key;  // of the total
    Counter Statistics::*counter;
};

// The twelve counters in the order in which they are stored.
std::span<const CounterKey> CounterKeys();

// Zeroes the session copies and the wins of the lines in the session; the clock is left alone.
void ClearSession(Statistics& statistics, PayTable& table);

// Reads a section: the totals, the number of logged errors and the fixed hand; the session copies
// become 0 and the clock is left alone. Missing keys give 0 and the first ten cards of the deck.
// Cards that are not in a deck of that size become kNoCard, a number of errors outside
// 0..kErrorLogSize the nearest in it; the rest is taken as stored. The wins of the lines are read
// by LoadPayTable.
void LoadStatistics(const ProfileOnDisk& game, const std::string& section, int deckSize,
                    Statistics& statistics);

// Writes all keys but the time played, the wins of the table's lines with them.
void WriteStatistics(const ProfileOnDisk& game, const std::string& section,
                     const Statistics& statistics, const PayTable& table);
