#include "game/flows/DealSteps.h"

#include "game/engine/BestPlay.h"
#include "game/engine/Dealing.h"
#include "game/engine/Money.h"
#include "game/seat/Wins.h"

namespace {

constexpr int kAcesToDrawAgain = 2;

}  // namespace

void EnterCredits(Seat& seat) {
    const auto dollars = seat.player.AskDollars(seat.engine.settings.dollarIn);
    if (!dollars) return;
    EnterDollars(seat.engine, *dollars);
    ShowAtRest(seat);
}

void TellOfMissingPayTable(Player& player) {
    player.Tell("Missing pay table",
                "Pay table does not exist for this game. Select Options->Edit Pay Table to "
                "create pay table. For a user game choose its entry under Games->User Games.",
                MessageIcon::kError);
}

bool CanBeginHand(Seat& seat) {
    const GameEngine& engine = seat.engine;
    if (engine.payTable.lines.empty()) {
        TellOfMissingPayTable(seat.player);
        return false;
    }
    if (!engine.fixedHand && engine.settings.credits < engine.settings.bet) {
        EnterCredits(seat);
        return false;
    }
    return true;
}

void WishLuck(Seat& seat) {
    seat.bonusShown = false;
    seat.logsErrors = true;
    WithdrawDoubleUp(seat);
    ShowCredits(seat);
    ShowMessage(seat, "GOOD LUCK!");
}

void TakeBet(Seat& seat) {
    GameEngine& engine = seat.engine;
    engine.handInProgress = true;
    if (engine.handWins) ClearLine(seat, engine.finalLine);
    engine.settings.credits -= engine.settings.bet;
    WishLuck(seat);
}

void PauseAfterDeal(Seat& seat) { seat.clock.Pause(DelaysOf(seat.engine.settings.speed).deal); }

void PauseAfterCard(Seat& seat) { seat.clock.Pause(DelaysOf(seat.engine.settings.speed).card); }

bool TurnsCardsOver(const Seat& seat) { return seat.engine.settings.speed != Speed::kFast; }

void ShowUnheld(Seat& seat, Faces faces) {
    for (int i = 0; i < kHandSize; ++i) {
        seat.scene.places[static_cast<std::size_t>(i)].held = false;
        if (faces == Faces::kTurnedOver) ShowCard(seat, i, kCardBack);
    }
    Show(seat);
}

void TurnCards(Seat& seat) {
    const GameEngine& engine = seat.engine;
    for (int i = 0; i < kHandSize; ++i) {
        const auto position = static_cast<std::size_t>(i);
        if (engine.held[position]) continue;
        ShowCard(seat, i, engine.hand[position]);
        PauseAfterCard(seat);
    }
}

void ShowDeal(Seat& seat) {
    GameEngine& engine = seat.engine;
    TurnCards(seat);
    if (engine.handWins) AnnounceWin(seat, engine.dealtLine);
    const bool doubleDraw = engine.payTable.type == GameType::kDoubleDraw;
    seat.drawAgainAllowed = !doubleDraw || engine.features.aces >= kAcesToDrawAgain;
    if (engine.settings.mode == PlayMode::kAutoHold) HoldCards(engine, engine.analysis.best);
    seat.dealing = false;
    ShowAtRest(seat, MeterText(seat));
}

bool PassesBestPlayCheck(Seat& seat) {
    const GameEngine& engine = seat.engine;
    const PlayMode mode = engine.settings.mode;
    // Error Log mode is judged while it practises; with its fixed hand switched off it plays on
    // like Casino mode.
    if (mode == PlayMode::kCasino) return true;
    if (mode == PlayMode::kErrorLog && !engine.fixedHand) return true;
    const auto goesOn = [&](const std::string& text) { return seat.player.GoesOnAfterError(text); };
    const bool passes = CheckBestPlay(seat.engine, seat.files, goesOn, seat.logsErrors);
    if (!passes) seat.logsErrors = false;
    return passes;
}
