#include "game/engine/Autoplay.h"

#include <algorithm>

#include "game/engine/BestPlay.h"
#include "game/engine/Dealing.h"
#include "game/engine/Money.h"

namespace {

constexpr int kDollarsEntered = 100;

// The best hold is never an error, so nothing is ever asked.
const GoesOnAfterError kNobodyAsked = [](const std::string&) { return true; };

// A pile is judged by the cards that are seen, and played by holding or replacing all of it.
void ChoosePile(GameEngine& engine, const GameFiles& files) {
    const bool left = engine.analysis.best == kLeftPile;
    HoldCards(engine, left ? kLeftPile : kRightPile);
    CheckBestPlay(engine, files, kNobodyAsked, true);
    HoldCards(engine, left ? kStandPat : kPlayersTwo);
}

void PlayHand(GameEngine& engine, const GameFiles& files) {
    if (engine.settings.credits < engine.settings.bet) EnterDollars(engine, kDollarsEntered);
    engine.settings.credits = AddCapped(engine.settings.credits, -engine.settings.bet);
    engine.deck.DrawTop(kCardsOfHand);
    DealOrDraw(engine, files);
    if (IsPickEm(engine)) {
        ChoosePile(engine, files);
    } else {
        HoldCards(engine, engine.analysis.best);
        CheckBestPlay(engine, files, kNobodyAsked, true);
    }
    DealOrDraw(engine, files);
}

}  // namespace

std::int64_t PlayHands(GameEngine& engine, const GameFiles& files, std::int64_t hands,
                       const AutoplayProgress& progress) {
    if (engine.payTable.lines.empty()) return 0;
    engine.settings.mode = PlayMode::kAutoHold;
    engine.fixedHand = false;
    for (std::int64_t played = 0; played < hands;) {
        PlayHand(engine, files);
        ++played;
        if (progress && !progress(played)) return played;
    }
    return std::max<std::int64_t>(hands, 0);
}
