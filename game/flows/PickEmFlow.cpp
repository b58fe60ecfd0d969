#include "game/flows/PickEmFlow.h"

#include "game/engine/Dealing.h"
#include "game/flows/DealSteps.h"
#include "game/seat/Wins.h"

namespace {

// 1 a card back, 2 a stack.
void ShowBothPiles(Seat& seat, int depth) {
    for (const Pile pile : {Pile::kLeft, Pile::kRight}) {
        seat.scene.places[static_cast<std::size_t>(PositionOf(pile))].pileDepth = depth;
        Show(seat);
        PauseAfterCard(seat);
    }
}

void ShowChosenPile(Seat& seat) {
    const GameEngine& engine = seat.engine;
    ShowCard(seat, 2, engine.hand[2]);
    if (TurnsCardsOver(seat)) {
        PauseAfterCard(seat);
        ShowCard(seat, kLeftPilePosition, kCardBack);
        PauseAfterCard(seat);
        ShowCard(seat, kRightPilePosition, kCardBack);
        PauseAfterDeal(seat);
    }
    ShowCard(seat, 3, engine.hand[3]);
    PauseAfterCard(seat);
    ShowCard(seat, 4, engine.hand[4]);
}

void ShowPickEmResult(Seat& seat) {
    const GameEngine& engine = seat.engine;
    ShowChosenPile(seat);
    if (engine.dealtLine != engine.finalLine) ClearLine(seat, engine.dealtLine);
    if (engine.handWins) {
        AnnounceWin(seat, engine.finalLine);
        ShowWin(seat);
        OfferDoubleUp(seat);
    } else {
        ShowMeters(seat);
    }
}

}  // namespace

int PositionOf(Pile pile) { return pile == Pile::kLeft ? kLeftPilePosition : kRightPilePosition; }

void DealPickEm(Seat& seat) {
    if (!seat.engine.handOver || !CanBeginHand(seat)) return;
    TakeBet(seat);
    ClearPickEmPlaces(seat);
    PauseAfterDeal(seat);
    DealOrDraw(seat.engine, seat.files);
    ShowPickEmDeal(seat);
}

void PlayPile(Seat& seat, Pile pile) {
    if (!PassesPileCheck(seat, pile)) return;
    ShowCard(seat, kLeftPilePosition, kNoCard);
    ShowCard(seat, kRightPilePosition, kNoCard);
    DealOrDraw(seat.engine, seat.files);
    ShowPickEmResult(seat);
    seat.engine.handInProgress = false;
}

bool PassesPileCheck(Seat& seat, Pile pile) {
    GameEngine& engine = seat.engine;
    HoldCards(engine, pile == Pile::kLeft ? kLeftPile : kRightPile);
    const bool passes = PassesBestPlayCheck(seat);
    // A choice that the player backs out of leaves nothing held.
    HoldCards(engine, !passes ? 0 : pile == Pile::kLeft ? kStandPat : kPlayersTwo);
    return passes;
}

void ClearPickEmPlaces(Seat& seat) {
    for (int i = 0; i < kHandSize; ++i) ShowCard(seat, i, kNoCard);
}

void ShowPickEmDeal(Seat& seat) {
    const GameEngine& engine = seat.engine;
    ShowBothPiles(seat, 1);
    ShowBothPiles(seat, 2);
    for (int i = 0; i < 2; ++i) {
        ShowCard(seat, i, engine.hand[static_cast<std::size_t>(i)]);
        PauseAfterCard(seat);
    }
    for (const Pile pile : {Pile::kLeft, Pile::kRight}) {
        ShowPileTop(seat, pile);
        PauseAfterCard(seat);
    }
    if (engine.handWins) AnnounceWin(seat, engine.dealtLine);
    ShowAtRest(seat, MeterText(seat));
}
