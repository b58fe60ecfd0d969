#include "game/reports/GameReport.h"

#include <algorithm>
#include <string_view>

#include "core/profile/ProfileFile.h"
#include "core/store/AnalysisCache.h"
#include "game/engine/GameEngine.h"

namespace {

constexpr std::size_t kValueSize = 255;
constexpr std::string_view kColumns =
    "\tPayout\tDraw 0\tDraw 1\tDraw 2\tDraw 3\tDraw 4\tDraw 5\tTotal Best Play\tTotal All "
    "Possible\tOdds\t% of Return\tVariance\r\n";

// The analysis of one table.
class Figures {
  public:
    Figures(const GameEngine& engine, const ProfileOnDisk& cache)
        : cache(cache), section(StatsSection(engine)) {}

    std::string Of(std::string_view key, std::string_view otherwise = "0") const {
        return cache.file.GetString(section, key, otherwise, kValueSize, cache.path);
    }

    std::string OfLine(std::size_t line) const { return Of("Payline" + std::to_string(line)); }

  private:
    const ProfileOnDisk& cache;
    std::string section;
};

std::string AsCells(std::string value) {
    std::ranges::replace(value, ';', '\t');
    return value;
}

std::string AnalysisText(const GameEngine& engine, const Figures& figures) {
    const auto cells = [&](std::string_view key) { return AsCells(figures.Of(key)); };
    std::string text = "Game:\t" + engine.settings.gameName + "\r\n";
    text += "Coin\t$" + cells("Coin") + "\r\n\r\n";
    text += "Exp Ret ($)\t" + cells("ER") + "\r\n";
    text += "Break Even ($)\t" + cells("Cost") + "\r\n";
    text += "Game Payout\t" + cells("Payout%") + "%\r\n";
    text += "Variance\t" + cells("Var") + "\r\n\r\n";
    text += kColumns;
    text += "Starting Hands\t\t" + cells("InitHands") + "\r\n";
    text += "Final Hands\t\t" + cells("Final") + "\r\n\r\n";
    const auto& lines = engine.payTable.lines;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        text += lines[line].description + '\t' + AsCells(figures.OfLine(line)) + "\r\n";
    }
    text += "NOTHING\t" + cells("Nothing") + "\r\n\r\n";
    return text +
           "** Click \"Run Analysis\" button to re-run analysis or create summary/detail files. **";
}

// Not LineCoinPay, which goes by the full bet even where that pays less for a coin: these pays
// stand beside no figures of the full bet.
int PayPerCoin(const PayLine& line) {
    const bool paysMore = std::int64_t{line.payout} * kFullBet < line.maxPayout;
    return paysMore ? line.maxPayout / kFullBet : line.payout;
}

std::string PaysText(const GameEngine& engine) {
    std::string text = "Game:\t" + engine.settings.gameName + "\r\n\r\n";
    for (const PayLine& line : engine.payTable.lines) {
        text += line.description + '\t' + std::to_string(PayPerCoin(line)) + "\r\n";
    }
    return text +
           "\r\n** Analysis has not been run for this game and/or pay table. **\r\n"
           "** Click \"Run Analysis\" button to run analysis. **";
}

LineShare ShareOf(const std::string& description, const StoredLine& line) {
    LineShare share;
    share.description = description;
    share.percentReturn = line.percentReturn;
    share.variance = line.variance;
    return share;
}

void ComputeShares(std::vector<LineShare>& shares) {
    double allReturn = 0;
    double allVariance = 0;
    for (const LineShare& share : shares) {
        allReturn += share.percentReturn;
        allVariance += share.variance;
    }
    for (LineShare& share : shares) {
        if (allReturn > 0) share.returnShare = share.percentReturn / allReturn * 100;
        if (allVariance > 0) share.varianceShare = share.variance / allVariance * 100;
    }
}

}  // namespace

bool IsAnalyzed(const GameEngine& engine, const ProfileOnDisk& cache) {
    return HasAnalysis(cache, StatsSection(engine));
}

std::string AnalysisWarning(const GameEngine& engine, const ProfileOnDisk& cache) {
    using enum AnalysisStanding;
    const std::string section = StatsSection(engine);
    switch (StandingOf(cache, section, engine.payTable)) {
        case kStopped: {
            const int percent = ReadStamp(cache, section).stoppedAt.value_or(0);
            return "Analysis stopped at " + std::to_string(percent) +
                   " %: not the return of the game";
        }
        case kOtherPays:
            return "Figures of other pays: the pay table has been changed since the analysis";
        case kUnknownPays:
            return "Figures perhaps of other pays: an earlier release kept them, and not of which "
                   "pays they are";
        case kNone:
        case kWhole:
            break;
    }
    return "";
}

std::string GameReport(const GameEngine& engine, const ProfileOnDisk& cache) {
    if (!IsAnalyzed(engine, cache)) return PaysText(engine);
    return AnalysisText(engine, Figures(engine, cache));
}

std::vector<LineShare> LineShares(const GameEngine& engine, const ProfileOnDisk& cache) {
    const auto& lines = engine.payTable.lines;
    const auto analysis = ReadAnalysis(cache, StatsSection(engine), lines.size());
    if (!analysis) return {};
    std::vector<LineShare> shares;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        shares.push_back(ShareOf(lines[line].description, analysis->lines[line]));
    }
    shares.push_back(ShareOf("NOTHING", analysis->nothing));
    ComputeShares(shares);
    return shares;
}
