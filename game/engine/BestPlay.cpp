#include "game/engine/BestPlay.h"

#include "core/store/ErrorLog.h"
#include "game/engine/Dealing.h"
#include "game/engine/PlayErrorText.h"

namespace {

void LogError(GameEngine& engine, const GameFiles& files, const ErrorLogEntry& entry) {
    Statistics& statistics = engine.statistics;
    statistics.playErrors.Add(1);
    statistics.errorCosts.Add(entry.bestReturn - entry.playerReturn);
    const std::string section = StatsSection(engine);
    AppendError(files.Game(), section, entry, statistics.nextError);
    SaveErrorCounts(files.Game(), section,
                    {statistics.nextError, statistics.playErrors.total,
                     statistics.bestReturns.total, statistics.errorCosts.total});
}

}  // namespace

// Exactly: equal counts give equal sums, and what rounding parts is judged alike wherever it shows.
bool IsBestPlay(const GameEngine& engine, HoldMask hold) {
    const auto index = static_cast<std::size_t>(hold);
    return engine.analysis.holds[index].expectedReturn == engine.analysis.bestReturn;
}

bool CheckBestPlay(GameEngine& engine, const GameFiles& files, const GoesOnAfterError& goesOn,
                   bool log) {
    const HoldMask held = HeldMask(engine);
    const double best = engine.analysis.bestReturn;
    const double own = engine.analysis.holds[static_cast<std::size_t>(held)].expectedReturn;
    const bool counts = log && engine.settings.mode != PlayMode::kErrorLog;
    if (counts) engine.statistics.bestReturns.Add(best);
    if (IsBestPlay(engine, held)) return true;

    const ErrorLogEntry entry{
        engine.dealtCopy,   engine.drawCards, engine.analysis.best, held, best, own,
        engine.deck.clock()};
    if (counts) LogError(engine, files, entry);
    return goesOn(BestPlayErrorText(engine, entry));
}

bool CheckDrawAgain(const GameEngine& engine, const GoesOnAfterError& goesOn, bool drawsAgain) {
    const auto played = static_cast<std::size_t>(engine.playedHold.value_or(0));
    const auto& play = engine.analysis.drawAgain[played];
    const bool drawingIsBest = engine.finalLine >= play.drawAgainLine;
    if (drawsAgain) {
        return drawingIsBest || goesOn(std::string(kBetterToHold));
    }
    return drawingIsBest && !goesOn(std::string(kBetterToDrawAgain));
}
