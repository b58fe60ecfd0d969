#include "game/reports/Luck.h"

#include <algorithm>
#include <cmath>

#include "core/text/Amount.h"
#include "game/reports/BankrollTexts.h"
#include "game/reports/Chance.h"
#include "game/reports/ReportCells.h"

namespace {

Luck NoLuck(const std::string& why) {
    Luck luck;
    luck.whyNot = why;
    return luck;
}

}  // namespace

Luck FindLuck(const Statistics& statistics, std::int64_t creditsBet, const PayTable& table,
              double coin, const std::function<std::optional<HandLaw>(int bet)>& handLaw) {
    Luck luck;
    luck.hands = statistics.handsPlayed.total;
    const auto played = static_cast<double>(creditsBet);
    if (luck.hands <= 0 || played <= 0) {
        return NoLuck("No hand of this game has been played in this file yet.");
    }
    luck.mean = played / static_cast<double>(luck.hands);
    const double most = std::max(table.maxBet, 1);
    luck.bet = static_cast<int>(std::lround(std::clamp(luck.mean, 1.0, most)));
    // Hands of several bets can have the mean of another, but neither the least nor the most.
    luck.oneBet = luck.mean == luck.bet && (luck.bet == 1 || luck.bet == table.maxBet);
    const auto hand = handLaw(luck.bet);
    if (!hand) return NoLuck("There is no exact analysis of this game.");
    luck.hand = *hand;
    const SessionAnswer answer =
        FindSessionLaw(GainLawOf(*hand, table, luck.bet), {.hands = luck.hands});
    if (!answer.law) return NoLuck("There is no answer: " + answer.whyNot + ".");
    luck.law = *answer.law;
    const auto won = static_cast<double>(statistics.creditsWon.total);
    luck.playback = won / played;
    luck.errors = statistics.errorCosts.total;
    luck.result = (won - played + luck.errors / coin) / luck.mean;
    luck.less = luck.law.ShareBelow(luck.result);
    return luck;
}

std::string LuckInWords(const Luck& luck) {
    if (!luck.whyNot.empty()) return luck.whyNot;
    std::string text = FormatCount(luck.hands) + (luck.hands == 1 ? " hand has" : " hands have") +
                       " brought back " + FormatDecimals("%.2f", luck.playback * 100) +
                       " % of what was bet";
    if (luck.errors > 0) {
        text += ", and errors have cost " + BetsInDollars(luck.errors, 1) +
                ", which is taken off here, at today's coin";
    }
    const auto less = std::clamp(std::llround(luck.less * 100), 0LL, 100LL);
    text +=
        luck.hands == 1 ? ". Of 100 players with one hand " : ". Of 100 players with your hands ";
    text += (less == 0 ? "none" : FormatCount(less)) + (less > 1 ? " have less." : " has less.");
    if (!luck.oneBet) {
        text += " The bets may have differed: this is by the law of the mean bet, and approximate.";
    }
    return text +
           " It proves nothing: of many players, some are always that lucky. Double ups and "
           "bonuses are left out.";
}

ReportTable LuckTable(const Luck& luck, const PayTable& table) {
    ReportTable report;
    report.title = "Luck";
    report.columns = {{"Line"},
                      {"Seen", "", true},
                      {"Expected", "", true},
                      {"Chance", "%", true, "Of so few, or of so many, in as many hands"},
                      {"How Unusual", "", true}};
    if (!luck.whyNot.empty()) {
        report.warning = luck.whyNot;
        return report;
    }
    report.head = {{"Hands", FormatCount(luck.hands)}};
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        const auto seen = static_cast<double>(table.lines[i].totalWins);
        const double probability = luck.hand.lines[i];
        const Rarity rarity = RarityOf(table.lines[i].totalWins, luck.hands, probability);
        ReportRow row;
        row.id = static_cast<std::int64_t>(i);
        row.cells = {TextCell(table.lines[i].description),
                     NumberCell("%.0f", seen),
                     NumberCell("%.2f", static_cast<double>(luck.hands) * probability),
                     NumberCell("%.3f", rarity.chance * 100),
                     {rarity.words, rarity.chance, {}}};
        report.rows.push_back(std::move(row));
    }
    return report;
}
