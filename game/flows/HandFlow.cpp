#include "game/flows/HandFlow.h"

#include "game/engine/BestPlay.h"
#include "game/engine/Dealing.h"
#include "game/engine/PlayErrorText.h"
#include "game/flows/BonusFeatures.h"
#include "game/flows/DealSteps.h"
#include "game/flows/FixedHand.h"
#include "game/flows/PickEmFlow.h"
#include "game/table/Wins.h"

namespace {

constexpr int kResultPause = 1000;  // milliseconds, before "Draw Again?"

void HideDiscards(GameTable& table) {
    if (TurnsCardsOver(table)) {
        for (int i = 0; i < kHandSize; ++i) {
            if (!table.engine.held[static_cast<std::size_t>(i)]) ShowCard(table, i, kCardBack);
        }
    }
    table.scene.firstDraw = kNoCard;
    Show(table);
    PauseAfterDeal(table);
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
    const bool mayAsk = engine.handWins && engine.payTable.type == GameType::kDoubleDraw &&
                        table.drawAgainAllowed && engine.playedHold != kStandPat;
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
    ShowMessage(table, "GOOD LUCK!");
}

void Deal(GameTable& table) {
    table.dealing = true;
    TakeBet(table);
    ShowUnheld(table, TurnsCardsOver(table) ? Faces::kTurnedOver : Faces::kStay);
    PauseAfterDeal(table);
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
    if (!DrawToTheEnd(table)) return ShowAtRest(table);
    if (table.engine.handWins) {
        OfferDoubleUp(table);
        ShowWin(table);
    } else {
        ShowMeters(table);
    }
    MaybeStartSpinOrTarget(table);
    MaybeStartRedBlack(table);
    table.engine.handInProgress = false;
    ShowAtRest(table);
}

}  // namespace

void ToggleHold(GameTable& table, int position) {
    GameEngine& engine = table.engine;
    if (engine.handOver || IsPickEm(engine)) return;
    bool& held = engine.held[static_cast<std::size_t>(position)];
    held = !held;
    ShowAtRest(table);
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

void ChoosePile(GameTable& table, Pile pile) {
    if (table.engine.handOver || !IsPickEm(table.engine)) return;
    ButtonLook& button = HoldButtonAt(table.scene, PositionOf(pile));
    PressButton(button);
    Show(table);
    if (table.engine.fixedHand) {
        FixedPileChoice(table, pile);
    } else {
        PlayPile(table, pile);
    }
    ReleaseButton(button);
    ShowAtRest(table);
}
