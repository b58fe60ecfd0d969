#include "game/engine/Autoplay.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>
#include <utility>

#include "core/analysis/BestHold.h"
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

// Finds the best hold of each hand, and of the others nothing: they are most of the work.
class BestHoldChooser {
  public:
    explicit BestHoldChooser(GameEngine& engine) : tables(LineTablesOf(engine)) {
        const MachineSettings& settings = engine.settings;
        if (!BestHoldFinder::Serves(engine.payTable)) return;
        finder.emplace(tables, engine.payTable, settings.bet, settings.coin);
    }

    void Analyze(GameEngine& engine) {
        if (!finder) return AnalyzeDealtHand(engine);
        std::array<std::pair<SetCard, std::size_t>, kHandSize> cards;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            cards[i] = {tables.ToSetCard(FaceOf(engine.deck.table, engine.dealtCopy[i])), i};
        }
        std::ranges::sort(cards);
        std::array<SetCard, kHandSize> sorted;
        Placement placement;
        for (std::size_t i = 0; i < kHandSize; ++i) std::tie(sorted[i], placement[i]) = cards[i];
        finder->Look(sorted);
        finder->Best(placement, best);
        engine.analysis.best = best.mask;
        engine.analysis.bestReturn = best.expectedReturn;
        engine.analysis.holds[static_cast<std::size_t>(best.mask)].expectedReturn =
            best.expectedReturn;
    }

  private:
    const LineTables& tables;
    std::optional<BestHoldFinder> finder;
    BestHold best;
};

void PlayHand(GameEngine& engine, const GameFiles& files, BestHoldChooser& chooser) {
    if (engine.settings.credits < engine.settings.bet) EnterDollars(engine, kDollarsEntered);
    engine.settings.credits = AddCapped(engine.settings.credits, -engine.settings.bet);
    engine.deck.DrawTop(kCardsOfHand);
    DealOrDraw(engine, files, [&chooser](GameEngine& dealt) { chooser.Analyze(dealt); });
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
    BestHoldChooser chooser(engine);
    std::int64_t played = 0;
    while (played < hands) {
        PlayHand(engine, files, chooser);
        ++played;
        if (progress && !progress(played)) break;
    }
    if (played > 0) AnalyzeDealtHand(engine);  // what is left behind is a hand like any other
    return played;
}
