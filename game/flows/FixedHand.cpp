#include "game/flows/FixedHand.h"

#include "core/store/ErrorLog.h"
#include "game/engine/Dealing.h"
#include "game/flows/BonusFeatures.h"
#include "game/flows/DealSteps.h"
#include "game/flows/PickEmFlow.h"
#include "game/seat/Wins.h"

namespace {

bool HasHandToDeal(Seat& seat) {
    return seat.engine.settings.mode != PlayMode::kErrorLog || NextLoggedHandAvailable(seat);
}

void ClearMarks(Seat& seat) {
    ClearLine(seat, seat.engine.finalLine);
    if (seat.engine.dealtLine != seat.engine.finalLine) ClearLine(seat, seat.engine.dealtLine);
}

// The dealt hand, if there is one, is given up for the next one.
void DealAgain(Seat& seat) {
    GameEngine& engine = seat.engine;
    const bool first = engine.handOver;
    engine.readyToDeal = engine.handOver = true;
    engine.handInProgress = false;
    ClearMarks(seat);
    engine.finalLine = -1;
    engine.held = {};
    WishLuck(seat);
    const bool pickEm = IsPickEm(engine);
    seat.dealing = !pickEm;
    if (pickEm) {
        ClearPickEmPlaces(seat);
    } else {
        // A hand that is dealt again turns its cards over at any speed, or nothing would be seen.
        seat.scene.firstDraw = kNoCard;
        const bool turnsOver = !first || TurnsCardsOver(seat);
        ShowUnheld(seat, turnsOver ? Faces::kTurnedOver : Faces::kStay);
    }
    PauseAfterDeal(seat);
    DealOrDraw(engine, seat.files);
    if (pickEm) {
        ShowPickEmDeal(seat);
    } else {
        ShowDeal(seat);
    }
}

}  // namespace

void AssignFixedHand(Seat& seat) {
    if (!seat.player.AskFixedHand(seat.engine)) return;
    SettleFeatures(seat);
    seat.engine.fixedHand = true;
    FixedDealDraw(seat);
}

void DealLoggedHand(Seat& seat, int index) {
    GameEngine& engine = seat.engine;
    if (PaidHandIsOpen(engine)) return;
    const ErrorLogEntry entry = ParseEntry(LoggedText(engine, seat.files, index));
    SettleFeatures(seat);
    engine.statistics.setCards = entry.hand;
    engine.statistics.setDraws = entry.draws;
    engine.replayIndex = index;
    engine.fixedHand = true;
    if (CanBeginHand(seat)) DealAgain(seat);  // nothing has been played that could be judged
}

void FixedDealDraw(Seat& seat) {
    const GameEngine& engine = seat.engine;
    if (engine.handOver && !CanBeginHand(seat)) return;
    const bool judged = !engine.handOver && !IsPickEm(engine);
    if (judged && !PassesBestPlayCheck(seat)) return;
    if (HasHandToDeal(seat)) DealAgain(seat);
}

void FixedPileChoice(Seat& seat, Pile pile) {
    if (PassesPileCheck(seat, pile) && HasHandToDeal(seat)) DealAgain(seat);
}

bool NextLoggedHandAvailable(Seat& seat) {
    GameEngine& engine = seat.engine;
    if (!LoggedText(engine, seat.files, engine.replayIndex).empty()) return true;
    if (LoggedText(engine, seat.files, 0).empty()) {
        seat.player.Tell("Play Error Log", "No errors in log", MessageIcon::kExclamation);
        return false;
    }
    engine.replayIndex = 0;
    return true;
}
