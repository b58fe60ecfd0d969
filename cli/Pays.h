// Pays given on the command line in place of a table's own, "FLUSH=5" or "ROYAL FLUSH=250:4000":
// what a line pays for each coin, or that and what it pays at the full bet.
#pragma once
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cli/ChosenTable.h"
#include "cli/Commands.h"

namespace cli {

// A line by its description, in any letter case, otherwise by its number from 0. Nothing when the
// table has no such line, or several of that description.
std::optional<std::size_t> FindLine(const PayTable& table, std::string_view name);

// Why FindLine finds nothing, and what is near: as a sentence goes on behind the option's text and
// a colon.
std::string WhyNoLine(const ChosenTable& chosen, std::string_view name);

// Gives the pays to the tables that have their lines; at least one has to have each. The option is
// the one that they were given by. Notes are what the user should know of it when all is done.
std::optional<Failure> ChangePays(const std::vector<std::string>& pays, const std::string& option,
                                  std::span<ChosenTable> tables, std::vector<std::string>& notes);

}  // namespace cli
