#include "game/flows/DealSteps.h"

#include "game/engine/BestPlay.h"
#include "game/engine/Dealing.h"
#include "game/engine/Money.h"
#include "game/table/Wins.h"

namespace {

constexpr int kAcesToDrawAgain = 2;

}  // namespace

void EnterCredits(GameTable& table) {
    const auto dollars = table.player.AskDollars(table.engine.settings.dollarIn);
    if (!dollars) return;
    EnterDollars(table.engine, *dollars);
    ShowAtRest(table);
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
    WithdrawDoubleUp(table);
    ShowCredits(table);
    ShowMessage(table, "GOOD LUCK!");
}

void PauseAfterDeal(GameTable& table) {
    table.clock.Pause(DelaysOf(table.engine.settings.speed).deal);
}

void PauseAfterCard(GameTable& table) {
    table.clock.Pause(DelaysOf(table.engine.settings.speed).card);
}

bool TurnsCardsOver(const GameTable& table) { return table.engine.settings.speed != Speed::kFast; }

void ShowUnheld(GameTable& table, Faces faces) {
    for (int i = 0; i < kHandSize; ++i) {
        table.scene.places[static_cast<std::size_t>(i)].held = false;
        if (faces == Faces::kTurnedOver) ShowCard(table, i, kCardBack);
    }
    Show(table);
}

void TurnCards(GameTable& table) {
    const GameEngine& engine = table.engine;
    for (int i = 0; i < kHandSize; ++i) {
        const auto position = static_cast<std::size_t>(i);
        if (engine.held[position]) continue;
        ShowCard(table, i, engine.hand[position]);
        PauseAfterCard(table);
    }
}

void ShowDeal(GameTable& table) {
    GameEngine& engine = table.engine;
    TurnCards(table);
    if (engine.handWins) AnnounceWin(table, engine.dealtLine);
    const bool doubleDraw = engine.payTable.type == GameType::kDoubleDraw;
    table.drawAgainAllowed = !doubleDraw || engine.features.aces >= kAcesToDrawAgain;
    if (engine.settings.mode == PlayMode::kAutoHold) HoldCards(engine, engine.analysis.best);
    table.dealing = false;
    ShowAtRest(table, MeterText(table));
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
