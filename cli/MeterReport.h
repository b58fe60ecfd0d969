// What there is to say of a growing jackpot, as it is printed.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cli/ChosenTable.h"
#include "core/whatif/Meter.h"

namespace cli {

struct MeterReport {
    std::size_t line = 0;
    int start = 0;       // coins for the full bet, which the meter starts from
    int coins = 0;       // where it stands
    bool asked = false;  // it was said where it stands
    double rise = 1;     // percent of what is played that it grows by
    double percent = 0;  // the return
    std::optional<double> breakEven;
    std::string whyNoTurns;  // as a sentence goes on behind the game; empty when there are some
    std::vector<TurningPoint> turningPoints;

    double Last() const;  // the turning points are those up to here

    // The meter for which it is said what ignoring them costs.
    double CostsAt() const { return asked ? coins : Last(); }

    // Until the meter is at the break-even; 0 when it is there, nothing when it never is.
    std::optional<std::int64_t> HandsToBreakEven() const;
};

std::string MetersAsText(const ChosenTable& chosen, double coin,
                         std::span<const MeterReport> meters, bool turningPoints);

// An object for one line, a list of them for several.
std::string MetersAsJson(const ChosenTable& chosen, std::span<const MeterReport> meters);

// A row for each turning point; for each line where the game has none to tell.
std::string MetersAsCsv(const ChosenTable& chosen, std::span<const MeterReport> meters);

}  // namespace cli
