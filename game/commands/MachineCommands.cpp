#include "game/commands/MachineCommands.h"

#include <algorithm>

#include "core/store/ErrorLog.h"
#include "core/store/Session.h"
#include "core/text/Amount.h"
#include "game/engine/Dealing.h"
#include "game/engine/Money.h"
#include "game/flows/DoubleUp.h"
#include "game/flows/FixedHand.h"
#include "game/saving/SaveGame.h"
#include "game/seat/ShowScene.h"

namespace {

// The caller shows it.
void EndDoubleUp(Seat& seat) {
    LeaveDoubleUp(seat);
    seat.engine.doubleUpOffered = false;
}

void Bet(Seat& seat, int coins) {
    GameEngine& engine = seat.engine;
    if (!engine.handOver || FeaturePending(engine)) return;
    engine.settings.bet = coins;
    // The last win must not be marked with what it would pay for another bet.
    engine.finalLine = engine.dealtLine = -1;
    ShowAtRest(seat);
}

std::int32_t LessButNotBelowZero(std::int32_t value, std::int64_t amount) {
    return std::max(0, AddCapped(value, -amount));
}

}  // namespace

void CashOut(Seat& seat) {
    EndDoubleUp(seat);
    MachineSettings& settings = seat.engine.settings;
    std::int32_t& dollarsIn = seat.engine.statistics.sessionDollarsIn;
    const double dollars = settings.credits * settings.coin;
    const std::int32_t whole = WholeAmount(dollars);
    settings.creditsEntered = LessButNotBelowZero(settings.creditsEntered, whole);
    dollarsIn = LessButNotBelowZero(dollarsIn, whole);
    settings.credits = 0;
    seat.sounds.Sound(Beep::kDefault);  // even when the sounds are off
    ShowAtRest(seat, "Paid " + FormatDollars("%14.2f", dollars));
}

void ChooseCoin(Seat& seat, double coin) {
    GameEngine& engine = seat.engine;
    MachineSettings& settings = engine.settings;
    if (coin == settings.coin || !(coin > 0)) return;
    EndDoubleUp(seat);
    engine.creditHistory.LeaveCoin(NetCredits(engine.statistics, &Counter::session), settings.coin);
    settings.credits = WholeAmount(settings.credits * settings.coin / coin);
    settings.coin = coin;
    if (!engine.handOver) AnalyzeDealtHand(engine);  // its returns are in dollars
    ShowAtRest(seat);
    // The coin without the credits that are counted in it, or the other way round, would be
    // another amount of money.
    seat.saveDue = true;
    if (IsBetweenHands(engine)) SaveGame(seat);
}

void ChooseSpeed(Seat& seat, Speed speed) { seat.engine.settings.speed = speed; }

void ToggleSounds(Seat& seat) { seat.engine.settings.sounds = !seat.engine.settings.sounds; }

void ToggleDoubleUp(Seat& seat) {
    seat.engine.settings.doubleUp = !seat.engine.settings.doubleUp;
    ShowAtRest(seat);
}

// A message without an amount stays, since it may be one that is not the machine's own, such as
// "PRESS DEAL".
void ToggleShowDollar(Seat& seat) {
    const std::string before = MeterText(seat);
    seat.engine.settings.showDollar = !seat.engine.settings.showDollar;
    const std::string now = MeterText(seat);
    ShowAtRest(seat, now == before ? seat.scene.message : now);
}

void ChooseMode(Seat& seat, PlayMode mode) {
    GameEngine& engine = seat.engine;
    engine.settings.mode = mode;
    engine.fixedHand = mode == PlayMode::kErrorLog;
    if (engine.fixedHand) {
        engine.replayIndex = 0;
        ShowAtRest(seat);
    } else {
        ShowGameOver(seat);
    }
}

void ToggleFixedHand(Seat& seat) {
    if (!seat.engine.fixedHand) return AssignFixedHand(seat);
    seat.engine.fixedHand = false;
    ShowGameOver(seat);
}

void BetOne(Seat& seat) {
    const int bet = seat.engine.settings.bet;
    Bet(seat, bet < seat.engine.payTable.maxBet ? bet + 1 : 1);
}

void BetMax(Seat& seat) { Bet(seat, seat.engine.payTable.maxBet); }

void ResetAllStatistics(Seat& seat) {
    ResetStatisticsOnly(seat);
    ForgetErrors(seat);
}

void ResetStatisticsOnly(Seat& seat) {
    GameEngine& engine = seat.engine;
    ResetStatistics(seat.files.Game(), {engine.settings, engine.statistics, engine.payTable},
                    seat.clock.Now());
    engine.creditHistory.Begin();
    ShowAtRest(seat, kResetMessage);
    SaveNewSession(seat);
}

void ForgetErrors(Seat& seat) {
    GameEngine& engine = seat.engine;
    engine.replayIndex = 0;
    engine.statistics.nextError = 0;
    engine.statistics.playErrors = {};
    engine.statistics.bestReturns = engine.statistics.errorCosts = {};
    ReportSave(seat, ClearErrorLog(seat.files.Game(), StatsSection(engine)));
}

void ForgetError(Seat& seat, int index) {
    GameEngine& engine = seat.engine;
    if (LoggedText(engine, seat.files, index).empty()) return;
    if (engine.replayIndex > index) --engine.replayIndex;
    ReportSave(seat, DeleteError(seat.files.Game(), StatsSection(engine), index,
                                 engine.statistics.nextError));
}

bool TellIfErrorLogIsEmpty(Seat& seat) {
    if (seat.engine.statistics.playErrors.total != 0) return false;
    seat.player.Tell("Empty Error Log", "No errors in log", MessageIcon::kNone);
    return true;
}
