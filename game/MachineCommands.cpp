#include "game/MachineCommands.h"

#include <algorithm>
#include <limits>

#include "core/text/Amount.h"

namespace {

// Toward zero, at most the largest credit count; an amount in nickels may fall short of the whole
// number that it stands for by less than a rounding, and that must not cost a credit.
std::int32_t WholeCredits(double amount) {
    constexpr double kLargest = std::numeric_limits<std::int32_t>::max();
    constexpr double kRounding = 1e-12;
    return static_cast<std::int32_t>(std::clamp(amount * (1 + kRounding), 0.0, kLargest));
}

std::int32_t LessButNotBelowZero(std::int32_t value, std::int64_t amount) {
    return std::max(0, AddCapped(value, -amount));
}

}  // namespace

void EnterDollars(GameEngine& engine, int dollars) {
    if (dollars < 1 || dollars > kMostDollars) return;
    MachineSettings& settings = engine.settings;
    settings.dollarIn = dollars;
    settings.credits = AddCapped(settings.credits, WholeCredits(dollars / settings.coin));
    settings.creditsEntered = AddCapped(settings.creditsEntered, dollars);
    engine.statistics.sessionDollarsIn = AddCapped(engine.statistics.sessionDollarsIn, dollars);
}

std::string CashOut(GameEngine& engine) {
    MachineSettings& settings = engine.settings;
    const double dollars = settings.credits * settings.coin;
    const std::int32_t whole = WholeCredits(dollars);
    settings.creditsEntered = LessButNotBelowZero(settings.creditsEntered, whole);
    engine.statistics.sessionDollarsIn =
        LessButNotBelowZero(engine.statistics.sessionDollarsIn, whole);
    settings.credits = 0;
    return "Paid " + FormatDollars("%14.2f", dollars);
}

void ChangeCoin(GameEngine& engine, double coin) {
    if (!(coin > 0)) return;
    MachineSettings& settings = engine.settings;
    engine.creditHistory.LeaveCoin(NetCredits(engine.statistics, &Counter::session), settings.coin);
    settings.credits = WholeCredits(settings.credits * settings.coin / coin);
    settings.coin = coin;
}

void BetOne(GameEngine& engine) {
    int& bet = engine.settings.bet;
    bet = bet < engine.payTable.maxBet ? bet + 1 : 1;
}

void BetMax(GameEngine& engine) { engine.settings.bet = engine.payTable.maxBet; }

void ChoosePlayMode(GameEngine& engine, PlayMode mode) {
    engine.settings.mode = mode;
    engine.fixedHand = mode == PlayMode::kErrorLog;
    if (engine.fixedHand) {
        engine.replayIndex = 0;
    } else {
        EnterGameOver(engine);
    }
}

void EnterGameOver(GameEngine& engine) {
    engine.held = {};
    engine.readyToDeal = engine.handOver = true;
    if (engine.dealtLine >= 0 && engine.finalLine < 0) engine.finalLine = engine.dealtLine;
}
