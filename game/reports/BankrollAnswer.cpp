#include "game/reports/BankrollAnswer.h"

std::optional<HandLaw> BankrollReckoner::HandAt(int bet, const std::function<bool()>& goesOn) {
    if (const auto known = hands.find(bet); known != hands.end()) return known->second;
    const auto law = AnalyzeBet(table, bet, tables, goesOn);
    if (law) hands[bet] = *law;
    return law;
}

std::optional<BankrollAnswer> BankrollReckoner::Answer(const BankrollQuestion& question,
                                                       const std::function<bool()>& goesOn) {
    if (PayTable asked = WithoutWins(question.table); asked != table) {
        table = std::move(asked);
        hands.clear();
        deal.reset();
    }
    const std::pair<int, int> of{question.bet, question.lines};
    if (!deal || dealOf != of) {
        deal = FindDealLaw(table, question.bet, question.lines, tables, goesOn);
        dealOf = of;
    }
    if (!goesOn()) return std::nullopt;
    BankrollAnswer answer;
    if (deal) {
        answer.longRun = FindLongRun(deal->gains, question.longCashBack);
        answer.session = FindSessionLaw(deal->gains, question.session, goesOn);
        if (answer.session.law) {
            const auto lines = FindLineChances(*deal, question.session, goesOn);
            if (!lines) return std::nullopt;
            answer.lines = *lines;
        }
    } else {
        answer.whyNot = CanAnalyzeGame(table) && !table.lines.empty()
                            ? "So many lines can pay too many different amounts. Take fewer lines."
                            : "There is no exact analysis of this game.";
    }
    if (!goesOn()) return std::nullopt;
    answer.luck = FindLuck(question.statistics, question.creditsBet, question.table, question.coin,
                           [&](int bet) { return HandAt(bet, goesOn); });
    if (!goesOn()) return std::nullopt;
    return answer;
}
