#include "game/reports/ErrorLogReport.h"

#include <string_view>

#include "core/text/Amount.h"
#include "core/text/Numbers.h"
#include "game/engine/Dealing.h"
#include "game/engine/GameEngine.h"
#include "game/engine/PlayErrorText.h"
#include "game/reports/Quotient.h"

namespace {

constexpr std::string_view kEnd = "\r\n";

constexpr std::string_view kExact = "%.4f";

// Of an entry; those of the summary have their thousands parted.
std::string Plain(double value) { return FormatDouble(kExact, value); }

std::string Amount(double value) { return FormatDecimals(kExact, value); }

std::string Line(std::string_view label, std::string_view value) {
    return std::string(label) + '\t' + std::string(value) + std::string(kEnd);
}

}  // namespace

bool HasLoggedError(const GameEngine& engine, const GameFiles& files, int index) {
    return index >= 0 && index < kErrorLogSize && !LoggedText(engine, files, index).empty();
}

ErrorLogEntry LoggedError(const GameEngine& engine, const GameFiles& files, int index) {
    return ParseEntry(LoggedText(engine, files, index));
}

std::string ErrorTitle(int index) { return "Error " + std::to_string(index + 1); }

std::string ErrorText(const GameEngine& engine, const ErrorLogEntry& entry) {
    const auto pattern = [&](HoldMask hold) {
        return HoldText(engine, entry.hand, entry.draws[0], hold);
    };
    const double cost = entry.bestReturn - entry.playerReturn;
    return Line("Best Play", pattern(entry.best)) + Line("Your Play", pattern(entry.player)) +
           std::string(kEnd) + Line("Best Return ($)", Plain(entry.bestReturn)) +
           Line("Your Return ($)", Plain(entry.playerReturn)) + Line("Cost ($)", Plain(cost)) +
           "Cost in Coin\t" + Plain(Quotient(cost, engine.settings.coin));
}

std::string ErrorSummary(const GameEngine& engine) {
    const Statistics& statistics = engine.statistics;
    const std::int64_t hands = statistics.handsPlayed.total;
    const std::int64_t errors = statistics.playErrors.total;
    const double best = statistics.bestReturns.total;
    const double cost = statistics.errorCosts.total;
    const auto percentOfHands = [&](std::int64_t number) {
        return FormatDecimals("%7.4f", Quotient(number, hands) * 100);
    };
    return Line("Hands Played", FormatCount(hands)) + Line("Errors", FormatCount(errors)) +
           Line("Pct Correct Plays", percentOfHands(hands - errors)) +
           Line("Pct Play Errors", percentOfHands(errors)) + Line("Best Return ($)", Amount(best)) +
           Line("Your Return ($)", Amount(best - cost)) + Line("Cost of Errors ($)", Amount(cost)) +
           Line("Pct Return", Amount(Quotient(best - cost, best) * 100)) +
           Line("Cost in Coin", Amount(Quotient(cost, engine.settings.coin)));
}
