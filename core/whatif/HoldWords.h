// A hold in the words of the strategy charts: "4 to a flush", "high pair", "K Q suited". Holds of a
// game that are played for the same reason have the same words; what is discarded, and which cards
// of a draw they are, is left out.
#pragma once
#include <optional>
#include <string>

#include "core/strategy/Holds.h"
#include "core/strategy/Row.h"

// The row, which fits the hold; nothing for one that no row names.
std::optional<Row> RowOfHold(const Terms& terms, const HoldTraits& hold);

std::string HoldWords(const Terms& terms, HoldLook look);
