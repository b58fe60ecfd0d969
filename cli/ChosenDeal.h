// The exact law of a deal of the chosen table, for the commands that ask what money does.
#pragma once
#include <optional>

#include "cli/Commands.h"
#include "core/odds/DealLaw.h"

namespace cli {

struct ChosenTable;
class Interrupt;

// Of as many lines at once as the options say. A failure where there is no such law, or when it is
// interrupted.
std::optional<Failure> FindDeal(const Options& options, const ChosenTable& chosen,
                                const Interrupt& interrupt, DealLaw& deal);

}  // namespace cli
