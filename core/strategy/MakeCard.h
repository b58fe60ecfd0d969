// Puts a chart of a table on a card for the pocket.
#pragma once
#include <string>

#include "core/paytable/PayTable.h"
#include "core/strategy/ChartCard.h"
#include "core/strategy/ChartStudy.h"

// The date is written as it is given.
ChartCard MakeCard(const TableOfGame& place, const PayTable& table, const ChartStudy& study,
                   std::string date);
