#include "game/reports/StatisticsRows.h"

#include <cmath>
#include <numeric>
#include <utility>

#include "core/analysis/GameAnalysis.h"
#include "core/text/Amount.h"
#include "core/text/Numbers.h"
#include "game/engine/GameEngine.h"
#include "game/reports/Chance.h"
#include "game/reports/Quotient.h"
#include "game/reports/ReportCells.h"
#include "game/reports/ReportHead.h"
#include "game/reports/ReportText.h"

namespace {

// One of the two copies of what is counted twice.
struct Copy {
    std::int32_t Counter::*counter;
    double DollarSum::*sum;
    int PayLine::*wins;
};

constexpr Copy kCopies[] = {{&Counter::session, &DollarSum::session, &PayLine::sessionWins},
                            {&Counter::total, &DollarSum::total, &PayLine::totalWins}};

// The bet of the hand in play, which is counted as played before the hand is.
std::int64_t BetInPlay(const GameEngine& engine) {
    return PaidHandIsOpen(engine) ? engine.settings.bet : 0;
}

class RowMaker {
  public:
    RowMaker(const GameEngine& engine, const std::optional<ExpectedPlay>& expected)
        : engine(engine), statistics(engine.statistics) {
        if (expected) law = expected->At(engine.settings.bet);
    }

    std::vector<ReportRow> Rows() const {
        std::vector<ReportRow> rows;
        rows.push_back(Counted(StatisticsRow::kHandsPlayed, "Hands played",
                               [this](const Copy& copy) { return Hands(copy); }));
        rows.push_back(Seen(
            static_cast<int>(StatisticsRow::kHandsWon), "Hands won", law ? law->anyLine : 0,
            [this](const Copy& copy) { return std::int64_t{statistics.handsWon.*copy.counter}; }));
        for (std::size_t line = 0; line < engine.payTable.lines.size(); ++line) {
            const PayLine& shown = engine.payTable.lines[line];
            rows.push_back(
                Seen(static_cast<int>(line), shown.description, law ? law->lines[line] : 0,
                     [&shown](const Copy& copy) { return std::int64_t{shown.*copy.wins}; }));
        }
        AddCredits(rows);
        AddErrors(rows);
        return rows;
    }

  private:
    std::int64_t Hands(const Copy& copy) const { return statistics.handsPlayed.*copy.counter; }
    std::int64_t Played(const Copy& copy) const { return CreditsBet(engine, copy.counter); }

    // Three cells for each copy: what was seen, what is expected, how unusual that is.
    template <typename Cells>
    static ReportRow Row(int id, const std::string& label, ReportCell onceIn, Cells cells) {
        ReportRow row{.id = id, .cells = {TextCell(label), std::move(onceIn)}};
        for (const Copy& copy : kCopies) {
            for (ReportCell& cell : cells(copy)) row.cells.push_back(std::move(cell));
        }
        return row;
    }

    template <typename Count>
    static ReportRow Counted(StatisticsRow id, const std::string& label, Count count) {
        return Row(static_cast<int>(id), label, {}, [&](const Copy& copy) {
            return std::array<ReportCell, 3>{CountCell(count(copy)), {}, {}};
        });
    }

    // What comes in a hand with a probability.
    template <typename Count>
    ReportRow Seen(int id, const std::string& label, double probability, Count seen) const {
        const ReportCell onceIn =
            probability > 0 ? NumberCell("%.2f", 1 / probability) : ReportCell();
        return Row(id, label, onceIn, [&](const Copy& copy) {
            std::array<ReportCell, 3> cells{CountCell(seen(copy)), {}, {}};
            const std::int64_t hands = Hands(copy);
            if (!law || hands <= 0) return cells;
            const double count = static_cast<double>(hands) * probability;
            cells[1] = NumberCell(count < 1 ? "%.4f" : "%.2f", count);
            const Rarity rarity = RarityOf(seen(copy), hands, probability);
            if (!rarity.words.empty()) cells[2] = {rarity.words, rarity.chance, {}};
            return cells;
        });
    }

    // Whose expectation is a number for each credit that was played.
    template <typename Count>
    ReportRow Earned(StatisticsRow id, const std::string& label, double each, Count count) const {
        return Row(static_cast<int>(id), label, {}, [&](const Copy& copy) {
            std::array<ReportCell, 3> cells{CountCell(count(copy)), {}, {}};
            if (law) cells[1] = NumberCell("%.1f", static_cast<double>(Played(copy)) * each);
            return cells;
        });
    }

    // In standard deviations of so many hands; the chance would need the whole law of the session.
    ReportCell Spread(double seen, const Copy& copy) const {
        const auto hands = static_cast<double>(Hands(copy));
        const double deviation = std::sqrt(law->variance / hands);
        if (!(hands > 0) || !(deviation > 0)) return {};
        const double apart = (seen - law->meanReturn) / deviation;
        return {FormatDouble("%.1f", std::abs(apart)) + " deviations " +
                    (apart < 0 ? "below" : "above"),
                {},
                {}};
    }

    void AddCredits(std::vector<ReportRow>& rows) const {
        const double mean = law ? law->meanReturn : 0;
        const auto won = [this](const Copy& copy) {
            return std::int64_t{statistics.creditsWon.*copy.counter};
        };
        rows.push_back(Counted(StatisticsRow::kCreditsPlayed, "Credits played",
                               [this](const Copy& copy) { return Played(copy); }));
        rows.push_back(Earned(StatisticsRow::kCreditsWon, "Credits won on pay lines", mean, won));
        rows.push_back(Earned(StatisticsRow::kNetGain, "Net gain, credits", mean - 1,
                              [this](const Copy& copy) {
                                  return CreditsReturned(statistics, copy.counter) - Played(copy);
                              }));
        const auto share = [this](const Copy& copy, std::int64_t credits) {
            return Quotient(credits, Played(copy));
        };
        rows.push_back(
            Row(static_cast<int>(StatisticsRow::kReturn), "Return, %", {}, [&](const Copy& copy) {
                const double seen = share(copy, won(copy));
                std::array<ReportCell, 3> cells{NumberCell("%.2f", seen * 100)};
                if (!law) return cells;
                cells[1] = NumberCell("%.4f", mean * 100);
                if (Played(copy) > 0) cells[2] = Spread(seen, copy);
                return cells;
            }));
        rows.push_back(Row(static_cast<int>(StatisticsRow::kReturnWithExtras),
                           "Return with bonuses, %", {}, [&](const Copy& copy) {
                               const auto all = CreditsReturned(statistics, copy.counter);
                               return std::array<ReportCell, 3>{
                                   NumberCell("%.2f", share(copy, all) * 100)};
                           }));
    }

    // The best play makes none.
    void AddErrors(std::vector<ReportRow>& rows) const {
        const auto add = [&](StatisticsRow id, const std::string& label, auto seen) {
            rows.push_back(Row(static_cast<int>(id), label, {}, [&](const Copy& copy) {
                return std::array<ReportCell, 3>{seen(copy), CountCell(0)};
            }));
        };
        add(StatisticsRow::kPlayErrors, "Play errors",
            [this](const Copy& copy) { return CountCell(statistics.playErrors.*copy.counter); });
        add(StatisticsRow::kErrorCost, "Cost of play errors, $", [this](const Copy& copy) {
            return NumberCell("%.4f", statistics.errorCosts.*copy.sum);
        });
        add(StatisticsRow::kErrorShare, "Return lost to play errors, %", [this](const Copy& copy) {
            const double cost = statistics.errorCosts.*copy.sum;
            return NumberCell("%.4f", Quotient(cost, statistics.bestReturns.*copy.sum) * 100);
        });
    }

    const GameEngine& engine;
    const Statistics& statistics;
    std::optional<HandLaw> law;
};

std::vector<ReportColumn> Columns() {
    const std::string unusual = "The chance, by the binomial law, of so few or of so many";
    return {{"Figure", "", false, ""},
            {"Once in", "hands", true, "How rare it is when every hand is played best"},
            {"Session", "", true, "Seen since the session began"},
            {"Expected in session", "", true, "Of as many hands, played best at the present bet"},
            {"How unusual in session", "", true, unusual},
            {"Game", "", true, "Seen in all that was played of this game and table"},
            {"Expected in game", "", true, "Of as many hands, played best at the present bet"},
            {"How unusual in game", "", true, unusual}};
}

// Without the columns of what is expected.
ReportTable OnlySeen(const ReportTable& table) {
    constexpr std::size_t seen[] = {0, 2, 5};
    std::vector<std::size_t> rows(table.rows.size());
    std::iota(rows.begin(), rows.end(), 0);
    return PartOf(table, rows, seen);
}

std::string ExpectedText(const GameEngine& engine, bool isKnown) {
    if (isKnown) {
        return "best play of " + BetText(engine.settings.bet) +
               " in every hand, without bonuses and double ups";
    }
    const bool comes = CanAnalyzeGame(engine.payTable) && !engine.payTable.lines.empty();
    return comes ? "being analysed" : "there is no exact analysis of this game";
}

// Bets that were mixed show in credits that are not the present bet for each hand.
std::string MixedBets(const GameEngine& engine) {
    const std::int64_t bet = engine.settings.bet;
    const std::int64_t played = CreditsBet(engine, &Counter::total);
    const std::int64_t hands = engine.statistics.handsPlayed.total;
    if (played == hands * bet) return {};
    return FormatCount(played) + " credits were played on " + FormatCount(hands) + " hands, not " +
           std::to_string(bet) +
           " on each: bets were mixed, or hands given up. The return expected is that of the "
           "present bet, " +
           BetText(engine.settings.bet) + ".";
}

}  // namespace

std::int64_t CreditsBet(const GameEngine& engine, std::int32_t Counter::*copy) {
    const std::int64_t bet = engine.settings.bet;
    const std::int64_t hands = engine.statistics.handsPlayed.*copy;
    const std::int64_t played = engine.statistics.creditsPlayed.*copy - BetInPlay(engine);
    return hands >= 0 && played == (hands - 1) * bet ? played + bet : played;
}

ReportTable StatisticsRows(const GameEngine& engine, const std::optional<ExpectedPlay>& expected,
                           std::int64_t time) {
    ReportTable table;
    table.title = "Game Play Analysis";
    table.head = GameFacts(engine);
    table.head.push_back(DateFact(time));
    if (PaidHandIsOpen(engine)) {
        table.head.push_back({"In play", BetText(engine.settings.bet) + ", not counted here"});
    }
    table.head.push_back({"Expected", ExpectedText(engine, expected.has_value())});
    table.warning = MixedBets(engine);
    table.columns = Columns();
    table.rows = RowMaker(engine, expected).Rows();
    return expected ? table : OnlySeen(table);
}
