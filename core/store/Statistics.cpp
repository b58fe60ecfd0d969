#include "core/store/Statistics.h"

#include <algorithm>
#include <limits>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "core/store/ErrorLog.h"

namespace {

constexpr std::array<CounterKey, 12> kCounterKeys = {{
    {"CreditsPlayed", &Statistics::creditsPlayed},
    {"CreditsWon", &Statistics::creditsWon},
    {"HandsPlayed", &Statistics::handsPlayed},
    {"HandsWon", &Statistics::handsWon},
    {"DblUpCredits", &Statistics::doubleUpCredits},
    {"BonusCredits", &Statistics::bonusCredits},
    {"DblUpCreditsLost", &Statistics::doubleUpCreditsLost},
    {"DblUpTrys", &Statistics::doubleUpTries},
    {"DblUpsLost", &Statistics::doubleUpsLost},
    {"DblUpsTied", &Statistics::doubleUpsTied},
    {"BonusTrys", &Statistics::bonusTries},
    {"PlayErrors", &Statistics::playErrors},
}};

struct SumKey {
    std::string_view key;
    DollarSum Statistics::*sum;
};

constexpr std::array<SumKey, 2> kSumKeys = {{
    {"BestER", &Statistics::bestReturns},
    {"ErrCost", &Statistics::errorCosts},
}};

std::string Numbered(std::string_view name, std::size_t number) {
    return std::string(name) + std::to_string(number);
}

CardCode CardOfDeck(std::int32_t code, int deckSize) {
    return code >= 0 && code < deckSize ? code : kNoCard;
}

void ClearSessionCopies(Statistics& statistics) {
    for (const auto& [key, counter] : kCounterKeys) (statistics.*counter).session = 0;
    for (const auto& [key, sum] : kSumKeys) (statistics.*sum).session = 0;
    statistics.sessionDollarsIn = 0;
}

}  // namespace

std::int32_t AddCapped(std::int32_t value, std::int64_t amount) {
    constexpr std::int64_t smallest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    // Any amount past twice the range leads out of it from wherever it starts.
    const auto step = std::clamp(amount, 2 * smallest, 2 * largest + 1);
    return static_cast<std::int32_t>(std::clamp(value + step, smallest, largest));
}

void Counter::Add(std::int64_t amount) {
    session = AddCapped(session, amount);
    total = AddCapped(total, amount);
}

void DollarSum::Add(double dollars) {
    session += dollars;
    total += dollars;
}

std::int64_t CreditsReturned(const Statistics& statistics, std::int32_t Counter::*copy) {
    std::int64_t credits = 0;
    for (const Counter* won :
         {&statistics.creditsWon, &statistics.bonusCredits, &statistics.doubleUpCredits}) {
        credits += won->*copy;
    }
    return credits - statistics.doubleUpCreditsLost.*copy;
}

std::int64_t NetCredits(const Statistics& statistics, std::int32_t Counter::*copy) {
    return CreditsReturned(statistics, copy) - statistics.creditsPlayed.*copy;
}

std::span<const CounterKey> CounterKeys() { return kCounterKeys; }

void ClearSession(Statistics& statistics, PayTable& table) {
    ClearSessionCopies(statistics);
    for (auto& line : table.lines) line.sessionWins = 0;
}

void LoadStatistics(const ProfileOnDisk& game, const std::string& section, int deckSize,
                    Statistics& statistics) {
    ClearSessionCopies(statistics);
    for (const auto& [key, counter] : kCounterKeys) {
        (statistics.*counter).total = game.file.GetLong(section, key, 0, game.path);
    }
    for (const auto& [key, sum] : kSumKeys) {
        (statistics.*sum).total = game.file.GetDouble(section, key, 0.0, game.path);
    }
    const Statistics defaults;
    const auto card = [&](std::string_view name, std::size_t i, CardCode otherwise) {
        return CardOfDeck(game.file.GetInt(section, Numbered(name, i), otherwise, game.path),
                          deckSize);
    };
    for (std::size_t i = 0; i < statistics.setCards.size(); ++i) {
        statistics.setCards[i] = card("SetCard", i, defaults.setCards[i]);
        statistics.setDraws[i] = card("SetDraw", i, defaults.setDraws[i]);
    }
    statistics.nextError =
        std::clamp(game.file.GetInt(section, "NextError", 0, game.path), 0, kErrorLogSize);
}

void WriteStatistics(const ProfileOnDisk& game, const std::string& section,
                     const Statistics& statistics, const PayTable& table) {
    const auto write = [&](std::string_view key, std::int32_t value) {
        game.file.WriteLong(section, key, value, game.path);
    };
    for (const auto& [key, counter] : kCounterKeys) write(key, (statistics.*counter).total);
    for (const auto& [key, sum] : kSumKeys) {
        game.file.WriteDouble(section, key, (statistics.*sum).total, "%-12.4f", game.path);
    }
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        write(Numbered("PayLine", i) + "Won", table.lines[i].totalWins);
    }
    for (std::size_t i = 0; i < statistics.setCards.size(); ++i) {
        write(Numbered("SetCard", i), statistics.setCards[i]);
    }
    for (std::size_t i = 0; i < statistics.setDraws.size(); ++i) {
        write(Numbered("SetDraw", i), statistics.setDraws[i]);
    }
    write("NextError", statistics.nextError);
}
