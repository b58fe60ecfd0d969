#include "game/reports/SessionBand.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/odds/SessionLaw.h"

namespace {

constexpr double kRounding = 1e-9;

// Bets that are all the same have the square of their sum as often as their squares say.
std::optional<double> OneBet(double bets, double squares, double hands) {
    if (std::abs(squares * hands - bets * bets) > kRounding * bets * bets) return std::nullopt;
    return bets / hands;
}

}  // namespace

std::vector<BandPoint> SessionBand(const CreditHistory& history, const ExpectedPlay& expected,
                                   const PayTable& table, const std::function<bool()>& goesOn) {
    const auto stretches = static_cast<std::int64_t>(history.Stretches().size());
    if (stretches == 0) return {};
    const CreditHistory::Wagers& wagers = history.WagersUntil().back();
    const auto hands = static_cast<double>(history.Hands());
    const bool full = wagers.otherBets == 0;
    if (!full && wagers.fullBets != 0) return {};
    const auto bet = full ? OneBet(wagers.fullBets, wagers.fullSquares, hands)
                          : OneBet(wagers.otherBets, wagers.otherSquares, hands);
    if (!bet) return {};
    // Of bets below the full one, the pays are so many bets whatever they are.
    const int coins = full ? kFullBet : 1;
    const GainLaw gain = GainLawOf(expected.At(coins), table, coins);
    std::vector<BandPoint> band;
    const auto most = static_cast<std::int64_t>(kMostBandPoints);
    const std::int64_t points = std::min(stretches, most);
    for (std::int64_t point = 1; point <= points; ++point) {
        if (!goesOn()) return {};
        const std::int64_t played =
            std::min(stretches * point / points * history.HandsPerStretch(), history.Hands());
        const SessionAnswer answer = FindSessionLaw(gain, {played});
        if (!answer.law) return {};
        band.push_back(
            {played, answer.law->Quantile(0.05) * *bet, answer.law->Quantile(0.95) * *bet});
    }
    return band;
}
