#include "game/reports/WhatIfRows.h"

#include <algorithm>
#include <cmath>

#include "core/cards/CardText.h"
#include "core/strategy/Grade.h"
#include "core/text/Amount.h"
#include "core/text/Numbers.h"
#include "core/text/Ranks.h"
#include "game/reports/ReportCells.h"

namespace {

ReportCell HandCell(const Hand& hand) {
    ReportCell cell;
    for (const CardFace face : hand) {
        if (face.IsEmpty()) continue;
        cell.text += (cell.text.empty() ? "" : " ") + std::string(1, RankChar(face.rank));
        if (!face.IsJoker()) cell.text += SuitChar(face.suit);
        cell.cards.push_back(face);
    }
    return cell;
}

ReportCell PayCell(const std::optional<double>& pay) {
    if (!pay) return TextCell("-");
    return NumberCell(*pay == std::floor(*pay) ? "%.0f" : "%.1f", *pay);
}

std::string Percent(double value, std::string_view format = "%.4f") {
    return FormatDecimals(format, value) + " %";
}

std::string Coins(double coins) {
    return FormatDecimals(coins == std::floor(coins) ? "%.0f" : "%.2f", coins);
}

std::string Royal(const TableFigures& figures) {
    if (figures.royalCycle <= 0) return "";
    return ", a royal flush in " + FormatDecimals("%.0f", figures.royalCycle) + " hands";
}

std::string Figures(const std::string& name, const TableFigures& figures) {
    return name + " returns " + Percent(figures.percent) + ", variance " +
           FormatDecimals("%.4f", figures.variance) + Royal(figures);
}

}  // namespace

ReportTable DifferenceTable(const GameComparison& comparison, const ComparedNames& names) {
    ReportTable table;
    table.title = "Compare";
    table.head = {{"A", names.a}, {"B", names.b}};
    table.columns = {
        {"Line", "", false, ""},
        {"A pays", "coins", true, "For each coin of a full bet"},
        {"B pays", "coins", true, "For each coin of a full bet"},
        {"A", "%", true, "What the line returns on A, of each coin bet"},
        {"B", "%", true, "What the line returns on B, of each coin bet"},
        {"By frequency", "%", true, "What B returns more because the line comes more often"},
        {"By pay", "%", true, "What B returns more because the line pays more"},
        {"A probability", "%", true, "Of all hands those that end on the line"},
        {"B probability", "%", true, "Of all hands those that end on the line"},
    };
    for (const LineDifference& line : comparison.lines) {
        table.rows.push_back({std::ssize(table.rows),
                              {TextCell(line.description), PayCell(line.payA), PayCell(line.payB),
                               NumberCell("%.4f", line.percentA), NumberCell("%.4f", line.percentB),
                               NumberCell("%.4f", line.byFrequency), NumberCell("%.4f", line.byPay),
                               NumberCell("%.5f", line.probabilityA * 100),
                               NumberCell("%.5f", line.probabilityB * 100)}});
    }
    return table;
}

ReportTable PlayedTable(const GameComparison& comparison, const ComparedNames& names) {
    ReportTable table;
    table.title = "Played Differently";
    table.head = {{"A", names.a}, {"B", names.b}};
    table.columns = {
        {"A holds", "", false, "In the words of the strategy charts"},
        {"B holds", "", false, "In the words of the strategy charts"},
        {"Example", "", false, "One of the hands that it matters most for"},
        {"Hands", "", true, "Starting hands that are played so"},
        {"Of all", "%", true, "Of all starting hands"},
        {"Costs on B", "%", true, "What A's hold loses on B, of the bet over all hands"},
        {"Costs on A", "%", true, "What B's hold loses on A, of the bet over all hands"},
    };
    if (!comparison.play) return table;
    const PlayComparison& play = *comparison.play;
    for (const PlayDifference& found : play.classes) {
        const double hands = static_cast<double>(found.hands);
        table.rows.push_back({std::ssize(table.rows),
                              {TextCell(found.a), TextCell(found.b), HandCell(found.example),
                               NumberCell("%.0f", hands),
                               NumberCell("%.4f", hands / static_cast<double>(play.hands) * 100),
                               NumberCell("%.7f", ::Percent(found.costOnB, play.Bet())),
                               NumberCell("%.7f", ::Percent(found.costOnA, play.Bet()))}});
    }
    return table;
}

std::string ComparisonInWords(const GameComparison& comparison) {
    const double more = comparison.b.percent - comparison.a.percent;
    std::string text = Figures("A", comparison.a) + ".\n" + Figures("B", comparison.b);
    text += more == 0 ? std::string(": the same.\n")
                      : ": " + Percent(std::abs(more)) + (more < 0 ? " less" : " more") + ".\n";
    if (!comparison.play) return text + comparison.whyNoPlay;
    const PlayComparison& play = *comparison.play;
    if (play.classes.empty()) return text + "No hand is played differently.";
    const auto cost = [&play](Worth worth) {
        return Percent(::Percent(worth, play.Bet()), "%.6f");
    };
    return text + FormatCount(play.differentHands) + " of " + FormatCount(play.hands) +
           " hands are played differently. To play B like A costs " + cost(play.costOnB) +
           ", and A like B " + cost(play.costOnA) + ".";
}

void AddSensitivities(std::span<const LineSensitivity> lines, ReportTable& table) {
    table.columns.push_back(
        {"One coin more", "%", true,
         "What one coin more for each coin bet adds to the return, with the best "
         "play found anew; with the play as it is, the probability"});
    for (ReportRow& row : table.rows) {
        row.cells.resize(table.columns.size() - 1);
        const auto number = static_cast<std::size_t>(row.id);
        if (lines.empty()) {
            row.cells.push_back(TextCell("..."));
        } else if (number < lines.size() && lines[number].known) {
            row.cells.push_back(NumberCell("%.5f", lines[number].gain));
        } else {
            row.cells.push_back(TextCell(""));
        }
    }
}

std::string MeterInWords(const MeterFigures& meter) {
    std::string text =
        "At " + Coins(meter.coins) + " coins the game returns " + Percent(meter.percent) + ".\n";
    if (!meter.breakEven) return text + "It is even at no meter.";
    if (*meter.breakEven <= 0) return text + "It is even without the line.";
    text += "It is even at " + Coins(*meter.breakEven) + " coins, " +
            FormatDecimals("%.2f", *meter.breakEven / kFullBet) + " bets";
    const double missing = *meter.breakEven - meter.coins;
    if (missing <= 0 || meter.rise <= 0) return text + ".";
    const double hands = std::ceil(missing / (meter.rise / 100 * kFullBet));
    return text + ": " + FormatDecimals("%.0f", hands) + " hands from here.";
}

ReportTable TurningTable(std::span<const TurningPoint> points, const std::string& name,
                         double coins) {
    ReportTable table;
    table.title = "Turning Points";
    table.head = {{"Game", name}, {"Meter", Coins(coins) + " coins"}};
    table.columns = {
        {"From", "coins", true, "The meter, for the full bet, from which on it is so"},
        {"Instead of", "", false, "In the words of the strategy charts"},
        {"Hold", "", false, "In the words of the strategy charts"},
        {"Example", "", false, "One of the hands"},
        {"Hands", "", true, "Starting hands that turn there"},
        {"Ignored, costs", "%", true,
         "What it costs at the meter to play on as before, of the bet over all hands"},
    };
    for (const TurningPoint& point : points) {
        ReportRow row{
            std::ssize(table.rows),
            {NumberCell(point.coins == std::floor(point.coins) ? "%.0f" : "%.2f", point.coins),
             TextCell(point.from), TextCell(point.to), HandCell(point.example),
             NumberCell("%.0f", static_cast<double>(point.hands)),
             NumberCell("%.6f", CostOfIgnoring(point, coins))}};
        if (point.coins <= coins) {
            row.mark = RowMark::kChosen;
            row.remark = "in force";
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}
