// The analysis cache: a section for each table analysed, with the figures as AnalysisFiles.h writes
// them, and behind them when and of which pays they are. docs/analysis-files.md has the keys.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/store/AnalysisFiles.h"

// 16 hexadecimal digits for all that decides the figures of a table: the lines in their order with
// their pays, the wild cards, the deck, the type. Names, bets and wins do not matter to it, nor the
// order of ranks in a list.
std::string PaysHash(const PayTable& table);

// Which analysis the figures are of.
struct AnalysisStamp {
    std::optional<std::int64_t> date{};  // seconds since 1970; none = kept by an earlier release
    std::string pays{};                  // PaysHash; empty = likewise
    std::optional<int> stoppedAt{};      // 0..99 percent of the hands, of a run that was cancelled
};

// Of a run that has ended now.
AnalysisStamp StampOf(const GameTotals& totals, const PayTable& table, double coin,
                      std::int64_t now);

// Replaces the keys of a table's section ("%s(%i)") in the cache, which is begun with its folder
// where there is none; the caller flushes. Like all changes to a profile file, dropped when the
// file cannot be read.
void WriteToCache(const std::vector<AnalysisEntry>& entries, const AnalysisStamp& stamp,
                  const std::string& section, const ProfileOnDisk& cache);

// A row: a pay line, or the hands that pay nothing. Numbers that are missing or below 0 read as 0.
struct StoredLine {
    std::array<double, kDraws> finalHands{};  // by the cards drawn
    double summary = 0;                       // on one footing, see GameTotals
    double percentReturn = 0;                 // in percent of the wager, to two decimals
    double variance = 0;                      // per coin, to four decimals
};

struct StoredAnalysis {
    AnalysisStamp stamp;
    double coin = 0;  // dollars
    double payoutPercent = 0;
    double variance = 0;  // per coin
    std::array<double, kDraws> initHands{};
    double initHandsTotal = 0;
    std::array<double, kDraws> finalHands{};
    double denominator = 0;
    std::vector<StoredLine> lines;
    StoredLine nothing;

    // Of a row, 0..1.
    double Probability(const StoredLine& row) const {
        return denominator > 0 ? row.summary / denominator : 0;
    }
    // That a hand draws so many cards and ends on the row.
    double Probability(const StoredLine& row, std::size_t drawn) const;
};

// Whether the section holds an analysis, of whatever pays.
bool HasAnalysis(const ProfileOnDisk& cache, const std::string& section);

// Nothing when it does not.
std::optional<StoredAnalysis> ReadAnalysis(const ProfileOnDisk& cache, const std::string& section,
                                           std::size_t lineCount);

enum class AnalysisStanding {
    kNone,         // never analysed
    kWhole,        // these are the figures of the table
    kStopped,      // of a part of its hands
    kOtherPays,    // of pays that the table has not any more
    kUnknownPays,  // of an earlier release, which did not keep of which pays
};

// How what the cache has of a section stands to a table.
AnalysisStanding StandingOf(const ProfileOnDisk& cache, const std::string& section,
                            const PayTable& table);
AnalysisStanding StandingOf(const AnalysisStamp& stamp, const PayTable& table);

// Whether a run that was cancelled would take the place of a whole analysis: one of the table's
// pays, or one of an earlier release, which may be.
bool HoldsWhole(const ProfileOnDisk& cache, const std::string& section, const PayTable& table);

AnalysisStamp ReadStamp(const ProfileOnDisk& cache, const std::string& section);
