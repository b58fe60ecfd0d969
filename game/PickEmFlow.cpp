#include "game/PickEmFlow.h"

#include "game/Dealing.h"
#include "game/FixedHand.h"
#include "game/HandFlow.h"
#include "game/WinDisplay.h"

namespace {

int PositionOf(Pile pile) { return pile == Pile::kLeft ? kLeftPilePosition : kRightPilePosition; }

void PauseAfterCard(GameTable& table) {
    table.clock.Pause(DelaysOf(table.engine.settings.speed).card);
}

void PauseAfterDeal(GameTable& table) {
    table.clock.Pause(DelaysOf(table.engine.settings.speed).deal);
}

void ShowBothPiles(GameTable& table, PileStage stage) {
    for (const int position : {kLeftPilePosition, kRightPilePosition}) {
        table.display.ShowPile(position, stage);
        PauseAfterCard(table);
    }
}

void ShowChosenPile(GameTable& table) {
    const GameEngine& engine = table.engine;
    table.display.ShowCard(2, engine.hand[2]);
    if (engine.settings.speed != Speed::kFast) {
        PauseAfterCard(table);
        table.display.ShowCard(kLeftPilePosition, kCardBack);
        PauseAfterCard(table);
        table.display.ShowCard(kRightPilePosition, kCardBack);
        PauseAfterDeal(table);
    }
    table.display.ShowCard(3, engine.hand[3]);
    PauseAfterCard(table);
    table.display.ShowCard(4, engine.hand[4]);
}

void ShowPickEmResult(GameTable& table) {
    const GameEngine& engine = table.engine;
    ShowChosenPile(table);
    if (engine.dealtLine != engine.finalLine) ClearLine(table, engine.dealtLine);
    if (engine.handWins) {
        AnnounceWin(table, engine.finalLine);
        ShowWin(table);
        OfferDoubleUp(table);
    } else {
        ShowMeters(table);
    }
}

}  // namespace

std::string_view PileLabel(const GameEngine& engine, Pile pile) {
    if (engine.settings.mode != PlayMode::kAutoHold) return "";
    const double left = engine.analysis.holds[kLeftPile].expectedReturn;
    const double right = engine.analysis.holds[kRightPile].expectedReturn;
    if (left == right) return "EITHER";
    return (left > right) == (pile == Pile::kLeft) ? "PLAY" : "";
}

void DealPickEm(GameTable& table) {
    if (!table.engine.handOver || !CanBeginHand(table)) return;
    TakeBet(table);
    ShowCredits(table);
    table.display.ShowMessage("GOOD LUCK!");
    ClearPickEmPlaces(table);
    WithdrawDoubleUp(table);
    PauseAfterDeal(table);
    DealOrDraw(table.engine, table.files);
    ShowPickEmDeal(table);
}

void ChoosePile(GameTable& table, Pile pile) {
    GameEngine& engine = table.engine;
    if (engine.handOver || !IsPickEm(engine)) return;
    table.display.ShowHoldButton(PositionOf(pile), true);
    if (engine.fixedHand) {
        FixedPileChoice(table, pile);
    } else if (PassesPileCheck(table, pile)) {
        table.display.ShowCard(kLeftPilePosition, kNoCard);
        table.display.ShowCard(kRightPilePosition, kNoCard);
        DealOrDraw(engine, table.files);
        ShowPickEmResult(table);
        engine.handInProgress = false;
    }
    table.display.ShowHoldButton(PositionOf(pile), false);
}

bool PassesPileCheck(GameTable& table, Pile pile) {
    GameEngine& engine = table.engine;
    HoldCards(engine, pile == Pile::kLeft ? kLeftPile : kRightPile);
    const bool passes = PassesBestPlayCheck(table);
    // A choice that the player backs out of leaves nothing held.
    HoldCards(engine, !passes ? 0 : pile == Pile::kLeft ? kStandPat : kPlayersTwo);
    return passes;
}

void ClearPickEmPlaces(GameTable& table) {
    for (int i = 0; i < kHandSize; ++i) table.display.ShowCard(i, kNoCard);
}

void ShowPickEmDeal(GameTable& table) {
    const GameEngine& engine = table.engine;
    ShowBothPiles(table, PileStage::kOneBack);
    ShowBothPiles(table, PileStage::kStack);
    for (int i = 0; i < 2; ++i) {
        table.display.ShowCard(i, engine.hand[static_cast<std::size_t>(i)]);
        PauseAfterCard(table);
    }
    table.display.ShowPileTop(kLeftPilePosition, engine.hand[2], PileLabel(engine, Pile::kLeft));
    PauseAfterCard(table);
    table.display.ShowPileTop(kRightPilePosition, engine.drawCards[0],
                              PileLabel(engine, Pile::kRight));
    PauseAfterCard(table);
    if (engine.handWins) AnnounceWin(table, engine.dealtLine);
    ShowMeters(table);
}
