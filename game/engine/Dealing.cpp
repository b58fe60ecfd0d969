#include "game/engine/Dealing.h"

#include <algorithm>
#include <vector>

#include "core/store/ErrorLog.h"

namespace {

bool IsInDeck(const GameEngine& engine, CardCode card) {
    return card >= 0 && card < engine.deck.table.deckSize;
}

void TakeNextLoggedHand(GameEngine& engine, const GameFiles& files) {
    const ErrorLogEntry entry = ParseEntry(LoggedText(engine, files, engine.replayIndex));
    engine.statistics.setCards = entry.hand;
    engine.statistics.setDraws = entry.draws;
    engine.replayIndex = (engine.replayIndex + 1) % kErrorLogSize;
}

// A card that is none of the hand's and not the one excluded besides.
CardCode DrawBeside(GameEngine& engine, CardCode besides) {
    std::vector<CardCode> excluded(engine.hand.begin(), engine.hand.end());
    excluded.push_back(besides);
    return engine.deck.DrawRandomCard(excluded);
}

void DealFixedHand(GameEngine& engine) {
    engine.deck.Shuffle(5);
    const Statistics& fixed = engine.statistics;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (IsInDeck(engine, fixed.setCards[i])) engine.hand[i] = fixed.setCards[i];
        // The hand may have been given a card that was to replace one.
        const bool dealt =
            std::ranges::find(fixed.setCards, fixed.setDraws[i]) != fixed.setCards.end();
        if (!dealt && IsInDeck(engine, fixed.setDraws[i])) engine.drawCards[i] = fixed.setDraws[i];
    }
    for (auto& card : engine.hand) {
        if (card == kNoCard) card = DrawBeside(engine, engine.drawCards[0]);
    }
    const bool showsFirstDraw = IsPickEm(engine) || IsSneakPeak(engine);
    if (showsFirstDraw && engine.drawCards[0] == kNoCard) {
        engine.drawCards[0] = DrawBeside(engine, kNoCard);
    }
}

void DealFromTop(GameEngine& engine) {
    const Statistics& statistics = engine.statistics;
    const bool first = statistics.creditsPlayed.session == 0 && statistics.handsPlayed.session == 0;
    if (first) engine.creditHistory.Begin();
    engine.statistics.creditsPlayed.Add(engine.settings.bet);
    if (engine.deck.dealtFrom) engine.deck.DrawTop(kCardsOfHand);
    const auto cards = engine.deck.TakeTop(kCardsOfHand);
    std::copy_n(cards.begin(), kHandSize, engine.hand.begin());
    std::copy_n(cards.begin() + kHandSize, kHandSize, engine.drawCards.begin());
    engine.statistics.setCards = engine.hand;
    engine.statistics.setDraws = engine.drawCards;
}

EvaluatedHand OnTable(const GameEngine& engine) {
    return WithWildFlags(FacesOf(engine.deck.table, engine.hand), engine.payTable);
}

Classification Classify(GameEngine& engine, EvaluatedHand& evaluated) {
    SaveFeatures(evaluated);
    engine.features = evaluated.features;
    const auto result = ClassifyHand(evaluated, engine.payTable, engine.settings.bet);
    engine.handWins = result.line >= 0;
    engine.charlieNow = result.charlie;
    return result;
}

void ClassifyDeal(GameEngine& engine) {
    EvaluatedHand evaluated = OnTable(engine);
    if (IsPickEm(engine)) {
        ComputePickEmDealFeatures(evaluated, engine.payTable,
                                  FaceOf(engine.deck.table, engine.drawCards[0]).rank);
    } else {
        ComputeFeatures(evaluated, engine.payTable);
    }
    engine.dealtLine = Classify(engine, evaluated).line;
    engine.charlieOnDeal = engine.charlieNow;
}

void Deal(GameEngine& engine, const GameFiles& files, const HandAnalyzer& analyze) {
    engine.held = {};
    engine.playedHold.reset();
    engine.hand = kNoCards;
    engine.drawCards = kNoCards;
    engine.charlieNow = engine.charlieOnDeal = false;
    engine.win = 0;
    if (engine.settings.mode == PlayMode::kErrorLog) TakeNextLoggedHand(engine, files);
    if (engine.fixedHand) {
        DealFixedHand(engine);
    } else {
        DealFromTop(engine);
    }
    engine.dealtCopy = engine.hand;
    analyze(engine);
    ClassifyDeal(engine);
    engine.readyToDeal = engine.handOver = false;
}

// Counts a final hand, or with times -1 takes it back again. The bonus is what a five-card charlie
// pays beyond its line.
void CountFinalHand(GameEngine& engine, int line, int paid, int times) {
    Statistics& statistics = engine.statistics;
    statistics.handsPlayed.Add(times);
    if (line < 0) return;
    PayLine& won = engine.payTable.lines[static_cast<std::size_t>(line)];
    won.sessionWins = AddCapped(won.sessionWins, times);
    won.totalWins = AddCapped(won.totalWins, times);
    const std::int64_t linePay = LineUnitPay(engine.payTable, line, engine.settings.bet);
    statistics.handsWon.Add(times);
    statistics.creditsWon.Add(linePay * times);
    statistics.bonusCredits.Add((paid - linePay) * times);
    engine.settings.credits = AddCapped(engine.settings.credits, std::int64_t{paid} * times);
}

int Draw(GameEngine& engine) {
    std::size_t next = 0;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (!engine.held[i]) engine.hand[i] = engine.drawCards[next++];
    }
    engine.playedHold = HeldMask(engine);
    EvaluatedHand evaluated = OnTable(engine);
    ComputeFeatures(evaluated, engine.payTable);
    const Classification result = Classify(engine, evaluated);
    engine.finalLine = result.line;
    engine.win = result.Pay();
    if (!engine.fixedHand) {
        CountFinalHand(engine, result.line, engine.win, 1);
        NoteCredits(engine);
    }
    engine.readyToDeal = engine.handOver = true;
    return engine.win;
}

}  // namespace

std::string LoggedText(const GameEngine& engine, const GameFiles& files, int index) {
    return ReadErrorText(files.Game(), StatsSection(engine), index);
}

void AnalyzeDealtHand(GameEngine& engine) {
    const CardTable& table = engine.deck.table;
    const KnownCards known = {FacesOf(table, engine.dealtCopy), FaceOf(table, engine.drawCards[0])};
    AnalyzeHand(LineTablesOf(engine), engine.payTable, known, engine.settings.bet,
                engine.settings.coin, engine.analysis);
}

HoldMask HeldMask(const GameEngine& engine) {
    HoldMask mask = 0;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (engine.held[i]) mask |= PositionBit(i);
    }
    return mask;
}

void HoldCards(GameEngine& engine, HoldMask mask) {
    for (std::size_t i = 0; i < kHandSize; ++i) engine.held[i] = Holds(mask, i);
}

int DealOrDraw(GameEngine& engine, const GameFiles& files, const HandAnalyzer& analyze) {
    if (!engine.readyToDeal) return Draw(engine);
    Deal(engine, files, analyze);
    return 0;
}

void PrepareSecondDraw(GameEngine& engine) {
    std::vector<CardCode> seen(engine.hand.begin(), engine.hand.end());
    for (CardCode& card : engine.drawCards) {
        card = engine.deck.DrawRandomCard(seen);
        seen.push_back(card);
    }
    engine.readyToDeal = engine.handOver = engine.handWins = false;
    if (!engine.fixedHand) CountFinalHand(engine, engine.finalLine, engine.win, -1);
    engine.win = 0;
}
