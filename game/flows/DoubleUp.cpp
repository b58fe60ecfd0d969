#include "game/flows/DoubleUp.h"

#include <algorithm>

#include "game/flows/DealSteps.h"
#include "game/seat/Wins.h"

namespace {

constexpr int kDealerCard = 4;      // its index in the hand; it is shown in position 0
constexpr int kRevealPause = 1000;  // milliseconds
constexpr int kResultPause = 4000;
constexpr int kShufflePasses = 5;

CardCode CardAt(const GameEngine& engine, int position) {
    return engine.hand[static_cast<std::size_t>(position == 0 ? kDealerCard : position - 1)];
}

void SetStake(GameEngine& engine, int stake) {
    engine.bonusStake = stake;
    engine.doubleUpTo = AddCapped(stake, stake);
}

void SetUpPick(Seat& seat) {
    GameEngine& engine = seat.engine;
    engine.handInProgress = true;
    engine.doubleUpPick = engine.doubleUpOffered = true;
    engine.deck.Shuffle(kShufflePasses);
    engine.held = {};
    std::ranges::copy(engine.deck.TakeTop(kHandSize), engine.hand.begin());
    engine.doubleUpClosed = false;
    ShowAtRest(seat);
}

void End(Seat& seat) {
    GameEngine& engine = seat.engine;
    NoteCredits(engine);
    engine.doubleUpPick = engine.doubleUpOffered = false;
    engine.doubleUpClosed = true;
    engine.hand = seat.beforeDoubleUp.hand;
    engine.drawCards = seat.beforeDoubleUp.drawCards;
    engine.held = seat.beforeDoubleUp.held;
    engine.handInProgress = false;
    ShowAtRest(seat);
}

// The win itself was paid by the hand; what won picks have put on top of it is paid here.
void Collect(Seat& seat) {
    GameEngine& engine = seat.engine;
    engine.bonusStake = AddCapped(engine.bonusStake, -std::int64_t{engine.win});
    engine.settings.credits = AddCapped(engine.settings.credits, engine.bonusStake);
    engine.statistics.doubleUpCredits.Add(engine.bonusStake);
    seat.bonusShown = true;
    ShowMeters(seat);
    Play(seat, Wave::kApplause);
    End(seat);
}

void Reveal(Seat& seat, int picked) {
    GameEngine& engine = seat.engine;
    PlaceLook& place = seat.scene.places[static_cast<std::size_t>(picked)];
    engine.held[static_cast<std::size_t>(picked)] = place.held = true;
    ShowCard(seat, picked, CardAt(engine, picked));
    seat.clock.Pause(kRevealPause);
    for (int i = 1; i < kHandSize; ++i) {
        if (i == picked) continue;
        ShowCard(seat, i, CardAt(engine, i));
        PauseAfterCard(seat);
    }
}

void ShowDuel(Seat& seat, DuelResult result) {
    const GameEngine& engine = seat.engine;
    seat.scene.doubleUp = {true, engine.bonusStake, engine.doubleUpTo, result};
    Show(seat);
}

void Won(Seat& seat) {
    GameEngine& engine = seat.engine;
    SetStake(engine, engine.doubleUpTo);
    ShowDuel(seat, DuelResult::kWon);
    Play(seat, Wave::kCash);
    seat.clock.Pause(kResultPause);
    engine.doubleUpClosed = true;
    const std::string question = "You doubled up to " + std::to_string(engine.bonusStake) +
                                 ". Double up again to " + std::to_string(engine.doubleUpTo) + "?";
    const bool goesOn = seat.player.SaysYes("Double Up Winner", question);
    if (goesOn) return SetUpPick(seat);
    Collect(seat);
}

void Tied(Seat& seat) {
    GameEngine& engine = seat.engine;
    engine.statistics.doubleUpsTied.Add(1);
    ShowDuel(seat, DuelResult::kTied);
    seat.clock.Pause(kResultPause);
    engine.doubleUpClosed = true;
    const bool goesOn =
        seat.player.SaysYes("Double Up Tie", "You have tied the dealer. Do you want to try again?");
    if (goesOn) return SetUpPick(seat);
    LeaveDoubleUp(seat);
}

void Lost(Seat& seat) {
    GameEngine& engine = seat.engine;
    ShowDuel(seat, DuelResult::kLost);
    seat.clock.Pause(kResultPause);
    // The win may have been paid out while the double up waited; no more than is there can be lost.
    engine.settings.credits =
        std::max(0, AddCapped(engine.settings.credits, -std::int64_t{engine.win}));
    engine.statistics.doubleUpCreditsLost.Add(engine.win);
    engine.statistics.doubleUpsLost.Add(1);
    engine.bonusStake = engine.doubleUpTo = 0;
    engine.doubleUpPick = false;
    engine.doubleUpClosed = true;
    seat.bonusShown = true;
    ShowMessage(seat, "0 Bonus Credits");
    End(seat);
}

}  // namespace

void StartDoubleUp(Seat& seat) {
    GameEngine& engine = seat.engine;
    if (!CanDoubleUp(engine)) return;
    seat.beforeDoubleUp = {engine.hand, engine.drawCards, engine.held};
    SetStake(engine, engine.win);
    SetUpPick(seat);
}

void PickDoubleUpCard(Seat& seat, int position) {
    GameEngine& engine = seat.engine;
    if (!engine.doubleUpPick || position < 1 || position >= kHandSize) return;
    if (engine.doubleUpClosed) {
        End(seat);
        return;
    }
    engine.statistics.doubleUpTries.Add(1);
    Reveal(seat, position);
    switch (DuelOf(engine)) {
        case DuelResult::kWon:
            return Won(seat);
        case DuelResult::kTied:
            return Tied(seat);
        default:
            return Lost(seat);
    }
}

void LeaveDoubleUp(Seat& seat) {
    GameEngine& engine = seat.engine;
    if (!engine.doubleUpPick) return;
    if (engine.bonusStake > engine.win) return Collect(seat);
    End(seat);
}
