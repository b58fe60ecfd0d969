#include "game/reports/StatisticsReport.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "core/text/Amount.h"
#include "game/engine/GameEngine.h"
#include "game/reports/Quotient.h"

namespace {

constexpr std::int64_t kSecondsPerMinute = 60;
constexpr std::int64_t kMinutesPerHour = 60;
constexpr std::string_view kPercent = "%6.2f";
constexpr std::string_view kExact = "%-12.4f";

// One of the two columns: picks its copy of what is counted twice.
struct Column {
    bool session;

    std::int32_t Counter::*Copy() const { return session ? &Counter::session : &Counter::total; }
    std::int64_t Of(const Counter& counter) const { return counter.*Copy(); }
    double Of(const DollarSum& sum) const { return session ? sum.session : sum.total; }
    std::int64_t WinsOf(const PayLine& line) const {
        return session ? line.sessionWins : line.totalWins;
    }
};

// Both columns by one rule, value(Column).
template <typename Value>
std::string Cells(Value value) {
    return value(Column{true}) + '\t' + value(Column{false});
}

template <typename Value>
std::string Line(std::string_view label, Value value) {
    return std::string(label) + '\t' + Cells(value) + "\r\n";
}

std::string CountLine(std::string_view label, const Counter& counter) {
    return Line(label, [&](Column column) { return FormatCount(column.Of(counter)); });
}

// Toward zero. What binary fractions put a hair below a whole number is that number: 65 minutes are
// 1:05 hours, though (65 / 60.0 - 1) * 60 is less than 5. Past 1e18 the number is 1e18.
std::int64_t Truncated(double value) {
    constexpr double hair = 1e-7;
    constexpr double largest = 1e18;
    return static_cast<std::int64_t>(
        std::clamp(value + std::copysign(hair, value), -largest, largest));
}

// Minutes, because whole ones are exact and their share of an hour is not.
double MinutesPlayed(const Statistics& statistics, Column column, std::int64_t now) {
    const auto start = statistics.sessionStart;
    const auto session = static_cast<double>(now > start ? (now - start) / kSecondsPerMinute : 0);
    return column.session ? session : statistics.elapsedBase * kMinutesPerHour + session;
}

std::string TimeText(double playedMinutes) {
    const std::int64_t minutes = Truncated(playedMinutes);
    return std::to_string(minutes / kMinutesPerHour) + ':' +
           std::to_string(minutes % kMinutesPerHour);
}

std::string TimeLines(const Statistics& statistics, std::int64_t now) {
    const auto handsPerHour = [&](Column column) {
        const double hands = static_cast<double>(column.Of(statistics.handsPlayed));
        const double minutes = MinutesPlayed(statistics, column, now);
        return std::to_string(Truncated(Quotient(hands * kMinutesPerHour, minutes)));
    };
    return Line("Total Playing Time (hh:mm):",
                [&](Column column) { return TimeText(MinutesPlayed(statistics, column, now)); }) +
           Line("Hands Per Hour:", handsPerHour);
}

bool HasBonus(const PayTable& table) {
    return table.charlieBonus || table.redBlackBonus || table.spinBonus || table.targetBonus;
}

// A tie took nothing away: it counts among the picks won, but not in their percentage.
std::string DoubleUpLines(const Statistics& statistics) {
    const auto notLost = [&](Column column) {
        return column.Of(statistics.doubleUpTries) - column.Of(statistics.doubleUpsLost);
    };
    const auto percentWon = [&](Column column) {
        const auto kept = notLost(column);
        const auto won = kept == 0 ? 0 : kept - column.Of(statistics.doubleUpsTied);
        return FormatDecimals(kPercent, Quotient(won, column.Of(statistics.doubleUpTries)) * 100);
    };
    return CountLine("Dbl Up Attempts:", statistics.doubleUpTries) +
           Line("Dbl Up Attempts Won:",
                [&](Column column) { return FormatCount(notLost(column)); }) +
           CountLine("Dbl Up Attempts Lost:", statistics.doubleUpsLost) +
           CountLine("Dbl Up Attempts Tied:", statistics.doubleUpsTied) +
           Line("Pct Dbl Up Attempts Won:", percentWon);
}

std::string PayoutLines(const Statistics& statistics) {
    const auto netGain = [&](Column column) {
        return FormatCount(NetCredits(statistics, column.Copy()));
    };
    const auto share = [&](Column column, std::int64_t credits) {
        return FormatDecimals(kPercent,
                              Quotient(credits, column.Of(statistics.creditsPlayed)) * 100);
    };
    return Line("Net Gain:", netGain) +
           Line("Pct Payout w/o Bonus:",
                [&](Column column) { return share(column, column.Of(statistics.creditsWon)); }) +
           Line("Pct Payout w/Bonus:", [&](Column column) {
               return share(column, CreditsReturned(statistics, column.Copy()));
           });
}

std::string ErrorCountLines(const Statistics& statistics) {
    const auto percentCorrect = [&](Column column) {
        const auto hands = column.Of(statistics.handsPlayed);
        return Quotient(hands - column.Of(statistics.playErrors), hands) * 100;
    };
    const auto percentErrors = [&](Column column) {
        return column.Of(statistics.playErrors) == 0 ? 0 : 100 - percentCorrect(column);
    };
    return CountLine("Play Errors:", statistics.playErrors) +
           Line("Pct Correct Plays:",
                [&](Column column) { return FormatDecimals(kExact, percentCorrect(column)); }) +
           Line("Pct Play Errors:",
                [&](Column column) { return FormatDecimals(kExact, percentErrors(column)); });
}

std::string ErrorCostLines(const Statistics& statistics, double coin) {
    const auto best = [&](Column column) { return column.Of(statistics.bestReturns); };
    const auto cost = [&](Column column) { return column.Of(statistics.errorCosts); };
    const auto yours = [&](Column column) { return best(column) - cost(column); };
    const auto percentReturn = [&](Column column) {
        return FormatDecimals("%-9.4f", Quotient(yours(column), best(column)) * 100);
    };
    const auto coins = [&](Column column) {
        return FormatDecimals(kExact, best(column) == 0 ? 0 : Quotient(cost(column), coin));
    };
    const auto dollars = [](auto sum) {
        return [sum](Column column) { return FormatDecimals(kExact, sum(column)); };
    };
    return Line("Best Play Return ($):", dollars(best)) + Line("Your Return ($):", dollars(yours)) +
           Line("Cost of Play Errors ($):", dollars(cost)) + Line("Pct Return:", percentReturn) +
           Line("Cost in Coins:", coins);
}

std::string LineCell(const GameEngine& engine, std::size_t line, StatisticsDisplay display,
                     Column column) {
    const Statistics& statistics = engine.statistics;
    const auto wins = column.WinsOf(engine.payTable.lines[line]);
    if (display == StatisticsDisplay::kHands) return FormatCount(wins);
    if (wins <= 0) return "0";
    if (display == StatisticsDisplay::kFrequency)
        return "1:" + FormatDecimals("%-9.2f", Quotient(column.Of(statistics.handsPlayed), wins));
    const std::int64_t pay =
        LineUnitPay(engine.payTable, static_cast<int>(line), engine.settings.bet);
    return FormatDecimals("%-6.2f", Quotient(pay * wins, column.Of(statistics.creditsWon)) * 100);
}

}  // namespace

std::string StatisticsHands(const GameEngine& engine, std::int64_t now) {
    const Statistics& statistics = engine.statistics;
    const auto percentWon = [&](Column column) {
        const auto won = column.Of(statistics.handsWon);
        return FormatDecimals(kPercent, Quotient(won, column.Of(statistics.handsPlayed)) * 100);
    };
    std::string text = "\tSession\tGame\r\n\r\n";
    text += CountLine("Hands Won:", statistics.handsWon);
    text += CountLine("Hands Played:", statistics.handsPlayed);
    text += Line("Pct Hands Won:", percentWon);
    text += TimeLines(statistics, now);
    if (HasBonus(engine.payTable)) text += CountLine("Bonus Attempts:", statistics.bonusTries);
    return text + DoubleUpLines(statistics);
}

std::string StatisticsCredits(const GameEngine& engine) {
    const Statistics& statistics = engine.statistics;
    const auto entered = [&](Column column) {
        const int dollars =
            column.session ? statistics.sessionDollarsIn : engine.settings.creditsEntered;
        return FormatCount(Truncated(Quotient(dollars, engine.settings.coin)));
    };
    std::string text = Line("Credits Entered:", entered);
    text += CountLine("Credits Won:", statistics.creditsWon);
    if (HasBonus(engine.payTable)) text += CountLine("Bonus Credits Won:", statistics.bonusCredits);
    text += CountLine("Dbl Up Credits Won:", statistics.doubleUpCredits);
    text += CountLine("Dbl Up Credits Lost:", statistics.doubleUpCreditsLost);
    text += CountLine("Credits Played:", statistics.creditsPlayed);
    return text + PayoutLines(statistics);
}

std::string StatisticsErrors(const GameEngine& engine) {
    return ErrorCountLines(engine.statistics) +
           ErrorCostLines(engine.statistics, engine.settings.coin);
}

std::string StatisticsLines(const GameEngine& engine, StatisticsDisplay display) {
    std::string text =
        engine.settings.gameName + "\tSession\tGame\r\n" + std::string(24, '=') + "\r\n";
    for (std::size_t line = 0; line < engine.payTable.lines.size(); ++line) {
        text += engine.payTable.lines[line].description + '\t' +
                Cells([&](Column column) { return LineCell(engine, line, display, column); }) +
                "\t\r\n";
    }
    return text;
}
