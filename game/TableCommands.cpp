#include "game/TableCommands.h"

#include "core/analysis/ErrorLog.h"
#include "core/store/Session.h"
#include "game/Dealing.h"
#include "game/DoubleUp.h"
#include "game/FixedHand.h"
#include "game/HandFlow.h"
#include "game/MachineCommands.h"
#include "game/SaveGame.h"
#include "game/WinDisplay.h"

namespace {

void EndDoubleUp(GameTable& table) {
    LeaveDoubleUp(table);
    if (table.engine.doubleUpOffered) WithdrawDoubleUp(table);
}

// A repaint must not mark the last win again, with what it would pay for another bet.
void TakeMarkOff(GameTable& table) {
    ClearLine(table, table.engine.finalLine);
    table.engine.finalLine = table.engine.dealtLine = -1;
}

bool CanBet(const GameEngine& engine) { return engine.handOver && !FeaturePending(engine); }

}  // namespace

void CashOutCommand(GameTable& table) {
    EndDoubleUp(table);
    const std::string paid = CashOut(table.engine);
    table.sounds.Sound(Beep::kDefault);  // even when the sounds are off
    ShowCredits(table);
    table.display.ShowMessage(paid);
}

void ChooseCoin(GameTable& table, double coin) {
    if (coin == table.engine.settings.coin) return;
    EndDoubleUp(table);
    ChangeCoin(table.engine, coin);
    if (!table.engine.handOver) AnalyzeDealtHand(table.engine);  // its returns are in dollars
    table.display.ShowCoin(table.engine.settings.coin);
    ShowBet(table);
    ShowCredits(table);
    // The coin without the credits that are counted in it, or the other way round, would be
    // another amount of money.
    table.saveDue = true;
    if (IsBetweenHands(table.engine)) SaveGame(table, false);
}

void ChooseSpeed(GameTable& table, Speed speed) { table.engine.settings.speed = speed; }

void ToggleSounds(GameTable& table) {
    table.engine.settings.sounds = !table.engine.settings.sounds;
}

void ToggleDoubleUp(GameTable& table) {
    const bool shown = CanDoubleUp(table.engine);
    table.engine.settings.doubleUp = !table.engine.settings.doubleUp;
    if (CanDoubleUp(table.engine) != shown) table.display.ShowDoubleUpButton(!shown);
}

// A message without an amount stays, since it may be one that is not the machine's own, such as
// "PRESS DEAL".
void ToggleShowDollar(GameTable& table) {
    const std::string message = MeterText(table);
    table.engine.settings.showDollar = !table.engine.settings.showDollar;
    ShowBet(table);
    if (MeterText(table) != message) ShowMeters(table);
    ShowCredits(table);
}

void ChooseMode(GameTable& table, PlayMode mode) {
    ChoosePlayMode(table.engine, mode);
    if (mode != PlayMode::kErrorLog) {
        ShowGameOver(table);
    } else if (table.engine.handOver || !IsPickEm(table.engine)) {
        return;  // all as it is until the next deal; but piles in play lose AutoHold's labels
    }
    table.display.Repaint();
}

void ToggleFixedHand(GameTable& table) {
    if (!table.engine.fixedHand) {
        AssignFixedHand(table);
        return;
    }
    table.engine.fixedHand = false;
    ShowGameOver(table);
    table.display.Repaint();
}

void BetOneCommand(GameTable& table) {
    if (!CanBet(table.engine)) return;
    TakeMarkOff(table);
    BetOne(table.engine);
    ShowBet(table);
}

void BetMaxCommand(GameTable& table) {
    if (!CanBet(table.engine)) return;
    TakeMarkOff(table);
    BetMax(table.engine);
    ShowBet(table);
}

void ResetStatisticsCommand(GameTable& table) {
    ResetStatisticsOnly(table);
    ClearErrorLogCommand(table);
}

void ResetStatisticsOnly(GameTable& table) {
    GameEngine& engine = table.engine;
    ResetStatistics(table.files.file, table.files.gamePath,
                    {engine.settings, engine.statistics, engine.payTable}, table.clock.Now());
    engine.creditHistory.Begin();
    table.display.ShowMessage(kResetMessage);
    SaveGame(table, true);
}

void ClearErrorLogCommand(GameTable& table) {
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

void ShowGameOver(GameTable& table) {
    EnterGameOver(table.engine);
    table.beforeDoubleUp.held = {};
    if (table.engine.doubleUpPick) return;
    table.engine.handInProgress = false;
    table.bonusShown = false;
    table.display.ShowMessage("GAME OVER");
}
