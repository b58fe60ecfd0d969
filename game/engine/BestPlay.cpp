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

bool CheckBestPlay(GameEngine& engine, const GameFiles& files, const GoesOnAfterError& goesOn,
                   bool log) {
    const HoldMask held = HeldMask(engine);
    const double best = engine.analysis.bestReturn;
    const double own = engine.analysis.holds[static_cast<std::size_t>(held)].expectedReturn;
    const bool counts = log && engine.settings.mode != PlayMode::kErrorLog;
    if (counts) engine.statistics.bestReturns.Add(best);
    if (own == best) return true;

    const ErrorLogEntry entry{
        engine.dealtCopy,   engine.drawCards, engine.analysis.best, held, best, own,
        engine.deck.clock()};
    if (counts) LogError(engine, files, entry);
    return goesOn(BestPlayErrorText(engine, entry));
}

bool CheckDrawAgain(const GameEngine& engine, const GoesOnAfterError& goesOn, bool drawsAgain) {
    const auto& play = engine.analysis.drawAgain[static_cast<std::size_t>(engine.playedHold)];
    const bool drawingIsBest = engine.finalLine >= play.drawAgainLine;
    if (drawsAgain) {
        return drawingIsBest || goesOn(std::string(kBetterToHold));
    }
    return drawingIsBest && !goesOn(std::string(kBetterToDrawAgain));
}
