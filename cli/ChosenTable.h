// A pay table that a command is about, with its deck and the bet on it, and how it is named above
// an answer.
#pragma once
#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <span>
#include <string>
#include <vector>

#include "core/cards/CardTable.h"
#include "core/paytable/PayTable.h"

namespace cli {

struct ChosenTable {
    TableOfGame place;
    PayTable payTable;                    // with the pays that were given for its own
    std::vector<std::size_t> payChanges;  // the lines with such pays, rising
    CardTable deck;
    int bet = 0;  // 1..payTable.maxBet; when none was given, five or the most that the table takes
};

// "Jacks or Better (300), table 0, bet 5 x $1.00", and behind it, where pays were given,
// ", with FLUSH=5"; the coin in dollars.
std::string Heading(const ChosenTable& chosen, int bet, double coin);

// "FLUSH=5", as it can be given.
std::string PayText(const PayTable& table, std::size_t number);

// ", with FLUSH=5, FULL HOUSE=8"; empty when no pays were given.
std::string PayChangesText(const ChosenTable& chosen);

// A heading of several tables: "Where there is such a line: FLUSH=5"; empty likewise.
std::string PayChangesHeading(std::span<const ChosenTable* const> tables);

// Adds "pays", a list of the lines with their pays, when some were given.
void AddPayChanges(const ChosenTable& chosen, nlohmann::ordered_json& json);

}  // namespace cli
