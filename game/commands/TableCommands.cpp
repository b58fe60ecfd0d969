#include "game/commands/TableCommands.h"

#include <algorithm>

#include "core/store/ErrorLog.h"
#include "core/store/Session.h"
#include "core/text/Amount.h"
#include "game/engine/Dealing.h"
#include "game/engine/Money.h"
#include "game/flows/DoubleUp.h"
#include "game/flows/FixedHand.h"
#include "game/saving/SaveGame.h"
#include "game/table/ShowTable.h"

namespace {

// The caller shows it.
void EndDoubleUp(GameTable& table) {
    LeaveDoubleUp(table);
    table.engine.doubleUpOffered = false;
}

void Bet(GameTable& table, int coins) {
    GameEngine& engine = table.engine;
    if (!engine.handOver || FeaturePending(engine)) return;
    engine.settings.bet = coins;
    // The last win must not be marked with what it would pay for another bet.
    engine.finalLine = engine.dealtLine = -1;
    ShowAtRest(table);
}

std::int32_t LessButNotBelowZero(std::int32_t value, std::int64_t amount) {
    return std::max(0, AddCapped(value, -amount));
}

}  // namespace

void CashOut(GameTable& table) {
    EndDoubleUp(table);
    MachineSettings& settings = table.engine.settings;
    std::int32_t& dollarsIn = table.engine.statistics.sessionDollarsIn;
    const double dollars = settings.credits * settings.coin;
    const std::int32_t whole = WholeAmount(dollars);
    settings.creditsEntered = LessButNotBelowZero(settings.creditsEntered, whole);
    dollarsIn = LessButNotBelowZero(dollarsIn, whole);
    settings.credits = 0;
    table.sounds.Sound(Beep::kDefault);  // even when the sounds are off
    ShowAtRest(table, "Paid " + FormatDollars("%14.2f", dollars));
}

void ChooseCoin(GameTable& table, double coin) {
    GameEngine& engine = table.engine;
    MachineSettings& settings = engine.settings;
    if (coin == settings.coin || !(coin > 0)) return;
    EndDoubleUp(table);
    engine.creditHistory.LeaveCoin(NetCredits(engine.statistics, &Counter::session), settings.coin);
    settings.credits = WholeAmount(settings.credits * settings.coin / coin);
    settings.coin = coin;
    if (!engine.handOver) AnalyzeDealtHand(engine);  // its returns are in dollars
    ShowAtRest(table);
    // The coin without the credits that are counted in it, or the other way round, would be
    // another amount of money.
    table.saveDue = true;
    if (IsBetweenHands(engine)) SaveGame(table);
}

void ChooseSpeed(GameTable& table, Speed speed) { table.engine.settings.speed = speed; }

void ToggleSounds(GameTable& table) {
    table.engine.settings.sounds = !table.engine.settings.sounds;
}

void ToggleDoubleUp(GameTable& table) {
    table.engine.settings.doubleUp = !table.engine.settings.doubleUp;
    ShowAtRest(table);
}

// A message without an amount stays, since it may be one that is not the machine's own, such as
// "PRESS DEAL".
void ToggleShowDollar(GameTable& table) {
    const std::string before = MeterText(table);
    table.engine.settings.showDollar = !table.engine.settings.showDollar;
    const std::string now = MeterText(table);
    ShowAtRest(table, now == before ? table.scene.message : now);
}

void ChooseMode(GameTable& table, PlayMode mode) {
    GameEngine& engine = table.engine;
    engine.settings.mode = mode;
    engine.fixedHand = mode == PlayMode::kErrorLog;
    if (engine.fixedHand) {
        engine.replayIndex = 0;
        ShowAtRest(table);
    } else {
        ShowGameOver(table);
    }
}

void ToggleFixedHand(GameTable& table) {
    if (!table.engine.fixedHand) return AssignFixedHand(table);
    table.engine.fixedHand = false;
    ShowGameOver(table);
}

void BetOne(GameTable& table) {
    const int bet = table.engine.settings.bet;
    Bet(table, bet < table.engine.payTable.maxBet ? bet + 1 : 1);
}

void BetMax(GameTable& table) { Bet(table, table.engine.payTable.maxBet); }

void ResetAllStatistics(GameTable& table) {
    ResetStatisticsOnly(table);
    ForgetErrors(table);
}

void ResetStatisticsOnly(GameTable& table) {
    GameEngine& engine = table.engine;
    ResetStatistics(table.files.file, table.files.gamePath,
                    {engine.settings, engine.statistics, engine.payTable}, table.clock.Now());
    engine.creditHistory.Begin();
    ShowAtRest(table, kResetMessage);
    SaveNewSession(table);
}

void ForgetErrors(GameTable& table) {
    GameEngine& engine = table.engine;
    engine.replayIndex = 0;
    engine.statistics.nextError = 0;
    engine.statistics.playErrors = {};
    engine.statistics.bestReturns = engine.statistics.errorCosts = {};
    ReportSave(table, ClearErrorLog(table.files.file, table.files.gamePath, StatsSection(engine)));
}

bool TellIfErrorLogIsEmpty(GameTable& table) {
    if (table.engine.statistics.playErrors.total != 0) return false;
    table.player.Tell("Empty Error Log", "No errors in log", MessageIcon::kNone);
    return true;
}
