#include "game/reports/HoldLine.h"

#include "core/eval/HandEvaluator.h"
#include "game/engine/GameEngine.h"
#include "game/reports/Quotient.h"

const HoldResult& ResultOf(const GameEngine& engine, HoldMask hold) {
    return engine.analysis.holds[static_cast<std::size_t>(hold)];
}

const DrawAgainResult& HoldLine::Again() const {
    return engine.analysis.drawAgain[static_cast<std::size_t>(hold)];
}

std::int64_t HoldLine::Draws() const { return ResultOf(engine, hold).lineCounts[line]; }

bool HoldLine::CountsSecondDraw() const {
    return engine.payTable.type == GameType::kDoubleDraw && hold != kStandPat &&
           RankInfo(engine.payTable.lines[line].rank).pairs != 0 && Again().heldAces > 1;
}

bool HoldLine::IsDrawnAgain() const {
    return Draws() != 0 && CountsSecondDraw() && static_cast<int>(line) >= Again().drawAgainLine;
}

double HoldLine::Probability() const {
    if (Draws() == 0) return 0;
    if (CountsSecondDraw()) return Again().probabilities[line];
    return Quotient(Draws(), ResultOf(engine, hold).totalHands);
}

double HoldLine::Odds() const {
    if (Draws() == 0) return 0;
    if (CountsSecondDraw()) return Quotient(1.0, Again().probabilities[line]);
    return Quotient(ResultOf(engine, hold).totalHands, Draws());
}

double HoldLine::Dollars() const {
    if (CountsSecondDraw()) return Again().contributions[line];
    const int pay = LineUnitPay(engine.payTable, static_cast<int>(line), engine.settings.bet);
    return pay * static_cast<double>(Draws()) /
           static_cast<double>(ResultOf(engine, hold).totalHands) * engine.settings.coin;
}

double HoldLine::Share() const {
    const double all = ResultOf(engine, hold).expectedReturn;
    return all == 0 ? 0 : Dollars() / all * 100;
}
