#include "game/HandFlow.h"

#include "core/analysis/ErrorLog.h"
#include "game/BestPlay.h"
#include "game/BonusFeatures.h"
#include "game/Dealing.h"
#include "game/FixedHand.h"
#include "game/MachineCommands.h"
#include "game/PickEmFlow.h"
#include "game/WinDisplay.h"

namespace {

constexpr int kResultPause = 1000;  // milliseconds, before "Draw Again?"
constexpr int kAcesToDrawAgain = 2;

bool IsDoubleDraw(const GameEngine& engine) {
    return engine.payTable.type == GameType::kDoubleDraw;
}

Delays CurrentDelays(const GameTable& table) { return DelaysOf(table.engine.settings.speed); }

void ShowHolds(GameTable& table) {
    for (int i = 0; i < kHandSize; ++i) {
        table.display.ShowHeld(i, table.engine.held[static_cast<std::size_t>(i)]);
    }
}

// After a deal all cards are turned, after a draw those that are new.
void TurnCards(GameTable& table) {
    const GameEngine& engine = table.engine;
    for (int i = 0; i < kHandSize; ++i) {
        const auto position = static_cast<std::size_t>(i);
        if (engine.held[position]) continue;
        table.display.ShowCard(i, engine.hand[position]);
        table.clock.Pause(CurrentDelays(table).card);
    }
}

void HideDiscards(GameTable& table) {
    const GameEngine& engine = table.engine;
    if (engine.settings.speed != Speed::kFast) {
        for (int i = 0; i < kHandSize; ++i) {
            if (!engine.held[static_cast<std::size_t>(i)]) table.display.ShowCard(i, kCardBack);
        }
    }
    if (IsSneakPeak(engine)) table.display.ShowFirstDraw(kNoCard);
    table.clock.Pause(CurrentDelays(table).deal);
}

void HoldBestPlay(GameTable& table) {
    GameEngine& engine = table.engine;
    for (int i = 0; i < kHandSize; ++i) {
        if (Holds(engine.analysis.best, i)) engine.held[static_cast<std::size_t>(i)] = true;
    }
    ShowHolds(table);
}

// Marks the line of the final hand, unless the mark of the deal says the same already.
void MarkFinalLine(GameTable& table, bool drawAgainTaken) {
    const GameEngine& engine = table.engine;
    if (engine.dealtLine != engine.finalLine) ClearLine(table, engine.dealtLine);
    if (!engine.handWins) return;
    // What a dealt charlie was announced with stands only while it is one.
    const bool charlieStands = engine.charlieOnDeal && engine.charlieNow;
    const bool charlieMoves = engine.payTable.charlieBonus && !charlieStands;
    if (engine.dealtLine != engine.finalLine || charlieMoves || drawAgainTaken) {
        AnnounceWin(table, engine.finalLine);
    }
}

// True when the player may, wants to and after all does give the first draw up for a second one.
bool DrawsAgain(GameTable& table) {
    const GameEngine& engine = table.engine;
    const bool mayAsk = engine.handWins && IsDoubleDraw(engine) && table.drawAgainAllowed &&
                        engine.playedHold != kStandPat;
    if (!mayAsk) return false;
    ShowMeters(table);
    table.clock.Pause(kResultPause);
    const bool wants =
        table.player.SaysYes(std::string(kDrawAgainCaption), std::string(kDrawAgainQuestion));
    const auto goesOn = [&](const std::string& text) {
        return table.player.GoesOnAfterError(text);
    };
    return CheckDrawAgain(engine, goesOn, wants);
}

void TakeFirstDrawBack(GameTable& table) {
    table.drawAgainAllowed = false;
    ClearLine(table, table.engine.finalLine);
    PrepareSecondDraw(table.engine);
    table.display.ShowMessage("GOOD LUCK!");
}

void Deal(GameTable& table) {
    table.dealing = true;
    TakeBet(table);
    WithdrawDoubleUp(table);
    table.display.ShowMessage("GOOD LUCK!");
    ShowBacks(table);
    ShowCredits(table);
    table.clock.Pause(CurrentDelays(table).deal);
    DealOrDraw(table.engine, table.files);
    ShowDeal(table);
}

// Draws until the result stands. False when the player backed out of a play error.
bool DrawToTheEnd(GameTable& table) {
    for (bool again = false;; again = true) {
        if (!PassesBestPlayCheck(table)) return false;
        HideDiscards(table);
        DealOrDraw(table.engine, table.files);
        TurnCards(table);
        MarkFinalLine(table, again);
        if (!DrawsAgain(table)) return true;
        TakeFirstDrawBack(table);
    }
}

void PlayOrdinaryHand(GameTable& table) {
    if (table.engine.handOver) {
        if (CanBeginHand(table)) Deal(table);
        return;
    }
    table.bonusShown = false;
    if (!DrawToTheEnd(table)) return;
    if (table.engine.handWins) {
        OfferDoubleUp(table);
        ShowWin(table);
    } else {
        ShowMeters(table);
    }
    MaybeStartSpinOrTarget(table);
    MaybeStartRedBlack(table);
    table.engine.handInProgress = false;
}

}  // namespace

void ToggleHold(GameTable& table, int position) {
    GameEngine& engine = table.engine;
    if (engine.handOver || IsPickEm(engine)) return;
    bool& held = engine.held[static_cast<std::size_t>(position)];
    held = !held;
    table.display.ShowHeld(position, held);
}

void DealDraw(GameTable& table) {
    if (table.engine.fixedHand) {
        FixedDealDraw(table);
    } else if (IsPickEm(table.engine)) {
        DealPickEm(table);
    } else {
        PlayOrdinaryHand(table);
    }
}

void TellOfMissingPayTable(Player& player) {
    player.Tell("Missing pay table",
                "Pay table does not exist for this game. Select Options->Edit Pay Table to "
                "create pay table.",
                MessageIcon::kError);
}

bool CanBeginHand(GameTable& table) {
    const GameEngine& engine = table.engine;
    if (engine.payTable.lines.empty()) {
        TellOfMissingPayTable(table.player);
        return false;
    }
    if (!engine.fixedHand && engine.settings.credits < engine.settings.bet) {
        EnterCredits(table);
        return false;
    }
    return true;
}

void TakeBet(GameTable& table) {
    GameEngine& engine = table.engine;
    table.bonusShown = false;
    table.logsErrors = true;
    engine.handInProgress = true;
    if (engine.handWins) ClearLine(table, engine.finalLine);
    engine.settings.credits -= engine.settings.bet;
}

void WithdrawDoubleUp(GameTable& table) {
    table.engine.doubleUpOffered = false;
    table.display.ShowDoubleUpButton(false);
}

void EnterCredits(GameTable& table) {
    const auto dollars = table.player.AskDollars(table.engine.settings.dollarIn);
    if (!dollars) return;
    EnterDollars(table.engine, *dollars);
    ShowCredits(table);
}

bool PassesBestPlayCheck(GameTable& table) {
    const GameEngine& engine = table.engine;
    const PlayMode mode = engine.settings.mode;
    // Error Log mode is judged while it practises; with its fixed hand switched off it plays on
    // like Casino mode.
    if (mode == PlayMode::kCasino) return true;
    if (mode == PlayMode::kErrorLog && !engine.fixedHand) return true;
    const auto goesOn = [&](const std::string& text) {
        return table.player.GoesOnAfterError(text);
    };
    const bool passes = CheckBestPlay(table.engine, table.files, goesOn, table.logsErrors);
    if (!passes) table.logsErrors = false;
    return passes;
}

void ShowBacks(GameTable& table) {
    for (int i = 0; i < kHandSize; ++i) {
        table.display.ShowHeld(i, false);
        if (table.engine.settings.speed != Speed::kFast) table.display.ShowCard(i, kCardBack);
    }
}

void ShowDeal(GameTable& table) {
    const GameEngine& engine = table.engine;
    TurnCards(table);
    if (engine.handWins) AnnounceWin(table, engine.dealtLine);
    table.drawAgainAllowed = !IsDoubleDraw(engine) || engine.features.aces >= kAcesToDrawAgain;
    ShowMeters(table);
    if (IsSneakPeak(engine)) table.display.ShowFirstDraw(engine.drawCards[0]);
    if (engine.settings.mode == PlayMode::kAutoHold) HoldBestPlay(table);
    table.dealing = false;
}
