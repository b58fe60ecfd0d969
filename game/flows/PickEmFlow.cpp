#include "game/flows/PickEmFlow.h"

#include "game/engine/Dealing.h"
#include "game/flows/DealSteps.h"
#include "game/table/Wins.h"

namespace {

// 1 a card back, 2 a stack.
void ShowBothPiles(GameTable& table, int depth) {
    for (const Pile pile : {Pile::kLeft, Pile::kRight}) {
        table.scene.places[static_cast<std::size_t>(PositionOf(pile))].pileDepth = depth;
        Show(table);
        PauseAfterCard(table);
    }
}

void ShowChosenPile(GameTable& table) {
    const GameEngine& engine = table.engine;
    ShowCard(table, 2, engine.hand[2]);
    if (TurnsCardsOver(table)) {
        PauseAfterCard(table);
        ShowCard(table, kLeftPilePosition, kCardBack);
        PauseAfterCard(table);
        ShowCard(table, kRightPilePosition, kCardBack);
        PauseAfterDeal(table);
    }
    ShowCard(table, 3, engine.hand[3]);
    PauseAfterCard(table);
    ShowCard(table, 4, engine.hand[4]);
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

int PositionOf(Pile pile) { return pile == Pile::kLeft ? kLeftPilePosition : kRightPilePosition; }

void DealPickEm(GameTable& table) {
    if (!table.engine.handOver || !CanBeginHand(table)) return;
    TakeBet(table);
    ClearPickEmPlaces(table);
    PauseAfterDeal(table);
    DealOrDraw(table.engine, table.files);
    ShowPickEmDeal(table);
}

void PlayPile(GameTable& table, Pile pile) {
    if (!PassesPileCheck(table, pile)) return;
    ShowCard(table, kLeftPilePosition, kNoCard);
    ShowCard(table, kRightPilePosition, kNoCard);
    DealOrDraw(table.engine, table.files);
    ShowPickEmResult(table);
    table.engine.handInProgress = false;
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
    for (int i = 0; i < kHandSize; ++i) ShowCard(table, i, kNoCard);
}

void ShowPickEmDeal(GameTable& table) {
    const GameEngine& engine = table.engine;
    ShowBothPiles(table, 1);
    ShowBothPiles(table, 2);
    for (int i = 0; i < 2; ++i) {
        ShowCard(table, i, engine.hand[static_cast<std::size_t>(i)]);
        PauseAfterCard(table);
    }
    for (const Pile pile : {Pile::kLeft, Pile::kRight}) {
        ShowPileTop(table, pile);
        PauseAfterCard(table);
    }
    if (engine.handWins) AnnounceWin(table, engine.dealtLine);
    ShowAtRest(table, MeterText(table));
}
