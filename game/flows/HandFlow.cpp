#include "game/flows/HandFlow.h"

#include "game/engine/BestPlay.h"
#include "game/engine/Dealing.h"
#include "game/engine/PlayErrorText.h"
#include "game/flows/BonusFeatures.h"
#include "game/flows/DealSteps.h"
#include "game/flows/FixedHand.h"
#include "game/flows/PickEmFlow.h"
#include "game/seat/Wins.h"

namespace {

constexpr int kResultPause = 1000;  // milliseconds, before "Draw Again?"

void HideDiscards(Seat& seat) {
    if (TurnsCardsOver(seat)) {
        for (int i = 0; i < kHandSize; ++i) {
            if (!seat.engine.held[static_cast<std::size_t>(i)]) ShowCard(seat, i, kCardBack);
        }
    }
    seat.scene.firstDraw = kNoCard;
    Show(seat);
    PauseAfterDeal(seat);
}

// Marks the line of the final hand, unless the mark of the deal says the same already.
void MarkFinalLine(Seat& seat, bool drawAgainTaken) {
    const GameEngine& engine = seat.engine;
    if (engine.dealtLine != engine.finalLine) ClearLine(seat, engine.dealtLine);
    if (!engine.handWins) return;
    // The line of the deal may have been made anew of other cards.
    LightCards(engine, engine.finalLine, seat.scene);
    Show(seat);
    // What a dealt charlie was announced with stands only while it is one.
    const bool charlieStands = engine.charlieOnDeal && engine.charlieNow;
    const bool charlieMoves = engine.payTable.charlieBonus && !charlieStands;
    if (engine.dealtLine != engine.finalLine || charlieMoves || drawAgainTaken) {
        AnnounceWin(seat, engine.finalLine);
    }
}

// True when the player may, wants to and after all does give the first draw up for a second one.
bool DrawsAgain(Seat& seat) {
    const GameEngine& engine = seat.engine;
    const bool mayAsk = engine.handWins && engine.payTable.type == GameType::kDoubleDraw &&
                        seat.drawAgainAllowed && engine.playedHold != kStandPat;
    if (!mayAsk) return false;
    ShowMeters(seat);
    seat.clock.Pause(kResultPause);
    const bool wants =
        seat.player.SaysYes(std::string(kDrawAgainCaption), std::string(kDrawAgainQuestion));
    const auto goesOn = [&](const std::string& text) { return seat.player.GoesOnAfterError(text); };
    return CheckDrawAgain(engine, goesOn, wants);
}

void TakeFirstDrawBack(Seat& seat) {
    seat.drawAgainAllowed = false;
    ClearLine(seat, seat.engine.finalLine);
    PrepareSecondDraw(seat.engine);
    ShowMessage(seat, "GOOD LUCK!");
}

void Deal(Seat& seat) {
    seat.dealing = true;
    TakeBet(seat);
    ShowUnheld(seat, TurnsCardsOver(seat) ? Faces::kTurnedOver : Faces::kStay);
    PauseAfterDeal(seat);
    DealOrDraw(seat.engine, seat.files);
    ShowDeal(seat);
}

// Draws until the result stands. False when the player backed out of a play error.
bool DrawToTheEnd(Seat& seat) {
    for (bool again = false;; again = true) {
        if (!PassesBestPlayCheck(seat)) return false;
        HideDiscards(seat);
        DealOrDraw(seat.engine, seat.files);
        TurnCards(seat);
        MarkFinalLine(seat, again);
        if (!DrawsAgain(seat)) return true;
        TakeFirstDrawBack(seat);
    }
}

void PlayOrdinaryHand(Seat& seat) {
    if (seat.engine.handOver) {
        if (CanBeginHand(seat)) Deal(seat);
        return;
    }
    seat.bonusShown = false;
    if (!DrawToTheEnd(seat)) return ShowAtRest(seat);
    if (seat.engine.handWins) {
        OfferDoubleUp(seat);
        ShowWin(seat);
    } else {
        ShowMeters(seat);
    }
    MaybeStartSpinOrTarget(seat);
    MaybeStartRedBlack(seat);
    seat.engine.handInProgress = false;
    ShowAtRest(seat);
}

}  // namespace

void ToggleHold(Seat& seat, int position) {
    GameEngine& engine = seat.engine;
    if (engine.handOver || IsPickEm(engine)) return;
    bool& held = engine.held[static_cast<std::size_t>(position)];
    held = !held;
    ShowAtRest(seat);
}

void DealDraw(Seat& seat) {
    if (seat.engine.fixedHand) {
        FixedDealDraw(seat);
    } else if (IsPickEm(seat.engine)) {
        DealPickEm(seat);
    } else {
        PlayOrdinaryHand(seat);
    }
}

void ChoosePile(Seat& seat, Pile pile) {
    if (seat.engine.handOver || !IsPickEm(seat.engine)) return;
    ButtonLook& button = HoldButtonAt(seat.scene, PositionOf(pile));
    PressButton(button);
    Show(seat);
    if (seat.engine.fixedHand) {
        FixedPileChoice(seat, pile);
    } else {
        PlayPile(seat, pile);
    }
    ReleaseButton(button);
    ShowAtRest(seat);
}
