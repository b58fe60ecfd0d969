#include <algorithm>

#include "cli/Commands.h"
#include "cli/MeterReport.h"
#include "cli/Pays.h"
#include "cli/TableChoice.h"
#include "cli/Terminal.h"
#include "cli/Texts.h"
#include "core/whatif/MeterSearch.h"

namespace cli {
namespace {

void AddArguments(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    AddCsv(parser, options);
    AddMeter(parser, options);
    AddNote(parser,
            "A meter is what the line pays for the full bet, in coins. Of several lines, each is\n"
            "answered with the others at their meters; --at belongs to the lines in their order.");
}

// The lines, with what they start from, and the pay table with all of them at their meters.
std::optional<Failure> ReadMeters(const Options& options, ChosenTable& chosen,
                                  std::vector<MeterReport>& meters) {
    if (options.meters.size() > options.meterLines.size()) {
        return Failure{kWrongUse, "--at is given more often than --line: each line has one meter"};
    }
    for (std::size_t i = 0; i < options.meterLines.size(); ++i) {
        const std::string& name = options.meterLines[i];
        const auto line = FindLine(chosen.payTable, name);
        if (!line) {
            return Failure{kWrongUse, "--line " + Quoted(name) + ": " + WhyNoLine(chosen, name)};
        }
        if (std::ranges::find(meters, *line, &MeterReport::line) != meters.end()) {
            return Failure{kWrongUse, "--line " + Quoted(name) + " is given twice"};
        }
        MeterReport& meter = meters.emplace_back();
        meter.line = *line;
        meter.start = chosen.payTable.lines[*line].maxPayout;
        meter.coins = i < options.meters.size() ? options.meters[i] : meter.start;
        meter.asked = i < options.meters.size();
        meter.rise = options.rise;
        if (meter.coins < meter.start) {
            Tell("--at " + std::to_string(meter.coins) + " is below the " +
                 std::to_string(meter.start) + " coins that the meter starts from");
        }
    }
    for (const MeterReport& meter : meters) {
        chosen.payTable.lines[meter.line].maxPayout = meter.coins;
    }
    return std::nullopt;
}

// By the curve where there is one, otherwise by whole analyses. True when it was not cancelled.
bool Answer(const ChosenTable& chosen, MeterReport& meter) {
    const Interrupt interrupt;
    ProgressBar bar("Analyzing game...", "");
    meter.whyNoTurns = MeterCurve::WhyNot(chosen.payTable);
    if (meter.whyNoTurns.empty()) {
        const auto progress = [&](double done) {
            bar.Show(std::min(done, 1.0), 1);
            return !interrupt.Wanted();
        };
        const MeterCurve curve(chosen.payTable, meter.line, meter.start, meter.Last(), progress);
        meter.percent = curve.Return(meter.coins);
        meter.breakEven = curve.BreakEven();
        meter.turningPoints = curve.TurningPoints();
        return !curve.Cancelled();
    }
    const MeterResult found = SearchMeter(chosen.payTable, meter.line, meter.coins,
                                          [&interrupt] { return !interrupt.Wanted(); });
    meter.percent = found.percent;
    meter.breakEven = found.breakEven;
    return !found.cancelled;
}

std::optional<Failure> RunMeter(const Options& options, std::string& output) {
    ChosenTable chosen;
    if (auto failure = ChooseTable(options, chosen)) return failure;
    const std::string game = Quoted(chosen.place.gameName);
    if (!CanAnalyzeGame(chosen.payTable)) {
        return Failure{kFailed, "game analysis is not available for " + game};
    }
    std::vector<MeterReport> meters;
    if (auto failure = ReadMeters(options, chosen, meters)) return failure;
    const std::string whyNot = MeterCurve::WhyNot(chosen.payTable);
    if (options.turningPoints && !whyNot.empty()) {
        return Failure{kFailed, "there are no turning points for " + game + ", which " + whyNot +
                                    ": without --turning-points its meter is analysed"};
    }
    for (MeterReport& meter : meters) {
        if (!Answer(chosen, meter)) return Failure{kFailed, "cancelled: no meter was analysed"};
    }
    if (options.csv) {
        output += MetersAsCsv(chosen, meters);
    } else if (options.json) {
        output += MetersAsJson(chosen, meters);
    } else {
        output += MetersAsText(chosen, options.coin, meters, options.turningPoints);
    }
    return std::nullopt;
}

}  // namespace

Command MeterCommand() {
    return {"meter", "A growing jackpot: its return, when it is even, what it changes",
            AddArguments, RunMeter};
}

}  // namespace cli
