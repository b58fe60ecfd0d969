#include "game/engine/Money.h"

#include <algorithm>
#include <limits>

#include "core/text/Amount.h"

std::int32_t WholeAmount(double amount) {
    constexpr double kLargest = std::numeric_limits<std::int32_t>::max();
    constexpr double kRounding = 1e-12;
    return static_cast<std::int32_t>(std::clamp(amount * (1 + kRounding), 0.0, kLargest));
}

void EnterDollars(GameEngine& engine, int dollars) {
    if (dollars < 1 || dollars > kMostDollars) return;
    MachineSettings& settings = engine.settings;
    settings.dollarIn = dollars;
    settings.credits = AddCapped(settings.credits, WholeAmount(dollars / settings.coin));
    settings.creditsEntered = AddCapped(settings.creditsEntered, dollars);
    engine.statistics.sessionDollarsIn = AddCapped(engine.statistics.sessionDollarsIn, dollars);
}
