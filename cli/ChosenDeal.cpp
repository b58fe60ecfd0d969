#include "cli/ChosenDeal.h"

#include "cli/ChosenTable.h"
#include "cli/Terminal.h"
#include "cli/Texts.h"
#include "core/analysis/LineTableCache.h"

namespace cli {

std::optional<Failure> FindDeal(const Options& options, const ChosenTable& chosen,
                                const Interrupt& interrupt, DealLaw& deal) {
    if (!CanAnalyzeGame(chosen.payTable) || chosen.payTable.lines.empty()) {
        return Failure{kFailed, "the law of a hand is not known for " +
                                    Quoted(chosen.place.gameName) +
                                    ": \"tolvane-cli hand\" analyses its hands"};
    }
    LineTableCache tables;
    const auto found = FindDealLaw(chosen.payTable, chosen.bet, options.linesAtOnce, tables,
                                   [&interrupt] { return !interrupt.Wanted(); });
    if (interrupt.Wanted()) return Failure{kFailed, "cancelled"};
    if (!found) {
        return Failure{kFailed,
                       "a deal of so many lines can pay too many different amounts: ask for fewer "
                       "lines"};
    }
    deal = *found;
    return std::nullopt;
}

}  // namespace cli
