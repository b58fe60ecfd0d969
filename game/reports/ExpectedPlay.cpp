#include "game/reports/ExpectedPlay.h"

#include <cmath>

ExpectedGain GainOf(const CreditHistory::Wagers& wagers, const ExpectedPlay& expected) {
    const double mean = wagers.fullBets * (expected.fullBet.meanReturn - 1) +
                        wagers.otherBets * (expected.otherBets.meanReturn - 1);
    const double variance = wagers.fullSquares * expected.fullBet.variance +
                            wagers.otherSquares * expected.otherBets.variance;
    return {mean, std::sqrt(variance)};
}
