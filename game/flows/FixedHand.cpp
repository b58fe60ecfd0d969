#include "game/flows/FixedHand.h"

#include "core/store/ErrorLog.h"
#include "game/engine/Dealing.h"
#include "game/flows/BonusFeatures.h"
#include "game/flows/DealSteps.h"
#include "game/flows/PickEmFlow.h"
#include "game/table/Wins.h"

namespace {

bool HasHandToDeal(GameTable& table) {
    return table.engine.settings.mode != PlayMode::kErrorLog || NextLoggedHandAvailable(table);
}

void ClearMarks(GameTable& table) {
    ClearLine(table, table.engine.finalLine);
    if (table.engine.dealtLine != table.engine.finalLine) ClearLine(table, table.engine.dealtLine);
}

// The dealt hand, if there is one, is given up for the next one.
void DealAgain(GameTable& table) {
    GameEngine& engine = table.engine;
    const bool first = engine.handOver;
    engine.readyToDeal = engine.handOver = true;
    engine.handInProgress = false;
    ClearMarks(table);
    engine.finalLine = -1;
    engine.held = {};
    table.bonusShown = false;
    WithdrawDoubleUp(table);
    ShowCredits(table);
    ShowMessage(table, "GOOD LUCK!");
    table.logsErrors = true;
    const bool pickEm = IsPickEm(engine);
    table.dealing = !pickEm;
    if (pickEm) {
        ClearPickEmPlaces(table);
    } else {
        // A hand that is dealt again turns its cards over at any speed, or nothing would be seen.
        table.scene.firstDraw = kNoCard;
        const bool turnsOver = !first || TurnsCardsOver(table);
        ShowUnheld(table, turnsOver ? Faces::kTurnedOver : Faces::kStay);
    }
    PauseAfterDeal(table);
    DealOrDraw(engine, table.files);
    if (pickEm) {
        ShowPickEmDeal(table);
    } else {
        ShowDeal(table);
    }
}

}  // namespace

void AssignFixedHand(GameTable& table) {
    if (!table.player.AskFixedHand(table.engine)) return;
    SettleFeatures(table);
    table.engine.fixedHand = true;
    FixedDealDraw(table);
}

void FixedDealDraw(GameTable& table) {
    const GameEngine& engine = table.engine;
    if (engine.handOver && !CanBeginHand(table)) return;
    const bool judged = !engine.handOver && !IsPickEm(engine);
    if (judged && !PassesBestPlayCheck(table)) return;
    if (HasHandToDeal(table)) DealAgain(table);
}

void FixedPileChoice(GameTable& table, Pile pile) {
    if (PassesPileCheck(table, pile) && HasHandToDeal(table)) DealAgain(table);
}

bool NextLoggedHandAvailable(GameTable& table) {
    GameEngine& engine = table.engine;
    const auto entry = [&](int index) {
        return ReadErrorText(table.files.file, table.files.gamePath, StatsSection(engine), index);
    };
    if (!entry(engine.replayIndex).empty()) return true;
    if (entry(0).empty()) {
        table.player.Tell("Play Error Log", "No errors in log", MessageIcon::kExclamation);
        return false;
    }
    engine.replayIndex = 0;
    return true;
}
