#include "game/engine/GameEngine.h"

#include <utility>

#include "core/analysis/LineTableCache.h"

bool IsPickEm(const GameEngine& engine) { return engine.payTable.type == GameType::kPickEm; }

bool IsSneakPeak(const GameEngine& engine) { return engine.payTable.gameId == kSneakPeakGameId; }

bool PaidHandIsOpen(const GameEngine& engine) { return !engine.handOver && !engine.fixedHand; }

bool FeaturePending(const GameEngine& engine) {
    return engine.doubleUpPick || engine.redBlackPending || engine.spinPending ||
           engine.targetPending;
}

bool CanDoubleUp(const GameEngine& engine) {
    return engine.settings.doubleUp && engine.doubleUpOffered && engine.handOver &&
           !engine.doubleUpPick;
}

bool CharlieApplies(const GameEngine& engine) {
    return engine.payTable.charlieBonus && engine.charlieNow;
}

void NoteCredits(GameEngine& engine) {
    const std::int32_t hands = engine.statistics.handsPlayed.session;
    if (hands == 0) return;
    engine.creditHistory.Record(hands, NetCredits(engine.statistics, &Counter::session),
                                engine.settings.coin, engine.settings.bet);
}

std::string StatsSection(const GameEngine& engine) {
    return TableSection(engine.settings.gameName, engine.settings.activeTable);
}

void UseTable(GameEngine& engine, PayTable table, LineTableCache& tables) {
    engine.payTable = std::move(table);
    engine.deck.Build(DeckOf(engine.payTable));
    engine.lineTables = nullptr;
    engine.lineTableCache = &tables;
    engine.hand = kCardBacks;
    engine.drawCards = kNoCards;
    engine.dealtCopy = kNoCards;
    engine.held = {};
    engine.playedHold.reset();
    engine.readyToDeal = engine.handOver = true;
    engine.handWins = engine.charlieNow = engine.charlieOnDeal = false;
    engine.dealtLine = engine.finalLine = -1;
    engine.win = 0;
    engine.handInProgress = false;
    engine.doubleUpOffered = engine.doubleUpPick = false;
    engine.doubleUpClosed = true;
    engine.redBlackPending = engine.spinPending = engine.targetPending = false;
}

const LineTables& LineTablesOf(GameEngine& engine) {
    if (!engine.lineTables) engine.lineTables = engine.lineTableCache->For(engine.payTable);
    return *engine.lineTables;
}

void LoadGame(GameEngine& engine, const GameFiles& files, LineTableCache& tables) {
    const MachineSettings& settings = engine.settings;
    UseTable(engine, LoadPayTable(files.Main(), CurrentTable(settings), files.gamePath), tables);
    LoadStatistics(files.Game(), StatsSection(engine), engine.deck.table.deckSize,
                   engine.statistics);
    engine.dealtCopy = engine.statistics.setCards;
}
