#include "game/flows/DoubleUp.h"

#include <algorithm>
#include <compare>

#include "game/flows/DealSteps.h"
#include "game/table/Wins.h"

namespace {

constexpr int kDealerCard = 4;      // its index in the hand; it is shown in position 0
constexpr int kRevealPause = 1000;  // milliseconds
constexpr int kResultPause = 4000;
constexpr int kShufflePasses = 5;
constexpr int kAceValue = 14;
constexpr int kWildValue = 15;

CardCode CardAt(const GameEngine& engine, int position) {
    return engine.hand[static_cast<std::size_t>(position == 0 ? kDealerCard : position - 1)];
}

int ValueAt(const GameEngine& engine, int position) {
    const CardInfo& card =
        engine.deck.table.cards[static_cast<std::size_t>(CardAt(engine, position))];
    if (card.wild) return kWildValue;
    return card.rank == 1 ? kAceValue : card.rank;
}

void SetStake(GameEngine& engine, int stake) {
    engine.bonusStake = stake;
    engine.doubleUpTo = AddCapped(stake, stake);
}

void SetUpPick(GameTable& table) {
    GameEngine& engine = table.engine;
    engine.handInProgress = true;
    engine.doubleUpPick = engine.doubleUpOffered = true;
    engine.deck.Shuffle(kShufflePasses);
    engine.held = {};
    std::ranges::copy(engine.deck.TakeTop(kHandSize), engine.hand.begin());
    engine.doubleUpClosed = false;
    ShowAtRest(table);
}

void End(GameTable& table) {
    GameEngine& engine = table.engine;
    NoteCredits(engine);
    engine.doubleUpPick = engine.doubleUpOffered = false;
    engine.doubleUpClosed = true;
    engine.hand = table.beforeDoubleUp.hand;
    engine.drawCards = table.beforeDoubleUp.drawCards;
    engine.held = table.beforeDoubleUp.held;
    engine.handInProgress = false;
    ShowAtRest(table);
}

// The win itself was paid by the hand; what won picks have put on top of it is paid here.
void Collect(GameTable& table) {
    GameEngine& engine = table.engine;
    engine.bonusStake = AddCapped(engine.bonusStake, -std::int64_t{engine.win});
    engine.settings.credits = AddCapped(engine.settings.credits, engine.bonusStake);
    engine.statistics.doubleUpCredits.Add(engine.bonusStake);
    table.bonusShown = true;
    ShowMeters(table);
    Play(table, Wave::kApplause);
    End(table);
}

void Reveal(GameTable& table, int picked) {
    GameEngine& engine = table.engine;
    PlaceLook& place = table.scene.places[static_cast<std::size_t>(picked)];
    engine.held[static_cast<std::size_t>(picked)] = place.held = true;
    ShowCard(table, picked, CardAt(engine, picked));
    table.clock.Pause(kRevealPause);
    for (int i = 1; i < kHandSize; ++i) {
        if (i == picked) continue;
        ShowCard(table, i, CardAt(engine, i));
        PauseAfterCard(table);
    }
}

void Won(GameTable& table) {
    GameEngine& engine = table.engine;
    SetStake(engine, engine.doubleUpTo);
    table.scene.doubleUp = {true, engine.bonusStake, engine.doubleUpTo};
    Show(table);
    Play(table, Wave::kCash);
    table.clock.Pause(kResultPause);
    engine.doubleUpClosed = true;
    const std::string question = "You doubled up to " + std::to_string(engine.bonusStake) +
                                 ". Double up again to " + std::to_string(engine.doubleUpTo) + "?";
    if (table.player.SaysYes("Double Up Winner", question)) {
        SetUpPick(table);
    } else {
        Collect(table);
    }
}

void Tied(GameTable& table) {
    GameEngine& engine = table.engine;
    engine.statistics.doubleUpsTied.Add(1);
    table.clock.Pause(kResultPause);
    engine.doubleUpClosed = true;
    if (table.player.SaysYes("Double Up Tie",
                             "You have tied the dealer. Do you want to try again?")) {
        SetUpPick(table);
    } else {
        LeaveDoubleUp(table);
    }
}

void Lost(GameTable& table) {
    GameEngine& engine = table.engine;
    table.clock.Pause(kResultPause);
    // The win may have been paid out while the double up waited; no more than is there can be lost.
    engine.settings.credits =
        std::max(0, AddCapped(engine.settings.credits, -std::int64_t{engine.win}));
    engine.statistics.doubleUpCreditsLost.Add(engine.win);
    engine.statistics.doubleUpsLost.Add(1);
    engine.bonusStake = engine.doubleUpTo = 0;
    engine.doubleUpPick = false;
    engine.doubleUpClosed = true;
    table.bonusShown = true;
    ShowMessage(table, "0 Bonus Credits");
    End(table);
}

}  // namespace

void StartDoubleUp(GameTable& table) {
    GameEngine& engine = table.engine;
    if (!CanDoubleUp(engine)) return;
    table.beforeDoubleUp = {engine.hand, engine.drawCards, engine.held};
    SetStake(engine, engine.win);
    SetUpPick(table);
}

void PickDoubleUpCard(GameTable& table, int position) {
    GameEngine& engine = table.engine;
    if (!engine.doubleUpPick || position < 1 || position >= kHandSize) return;
    if (engine.doubleUpClosed) {
        End(table);
        return;
    }
    engine.statistics.doubleUpTries.Add(1);
    Reveal(table, position);
    const auto duel = ValueAt(engine, position) <=> ValueAt(engine, 0);
    if (duel > 0) {
        Won(table);
    } else if (duel == 0) {
        Tied(table);
    } else {
        Lost(table);
    }
}

void LeaveDoubleUp(GameTable& table) {
    GameEngine& engine = table.engine;
    if (!engine.doubleUpPick) return;
    if (engine.bonusStake > engine.win) {
        Collect(table);
    } else {
        End(table);
    }
}
