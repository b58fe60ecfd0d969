// What is shown of a strategy chart: its rows and its exceptions as tables, and its price in words.
#pragma once
#include <string>

#include "core/paytable/PayTable.h"
#include "core/strategy/ChartStudy.h"
#include "game/reports/ReportTable.h"

// A chart of a table, and what a study has told of it.
struct ShownChart {
    TableOfGame place;
    double coin = 0;  // dollars; 0 = not known
    ChartStudy study;
};

struct ChartPrice {
    std::size_t lines = 0;
    double best = 0;  // percent that the best play returns
    double loss = 0;  // percent of the bet that the chart loses against it
};
ChartPrice PriceOf(const ChartStudy& study);

// "24 lines: 99.5417 %, 0.0022 % below the best play, $0.02 an hour at quarters and 600 hands",
// with bets of five coins; the last part only with a coin of more than 0.
std::string PriceText(const ChartPrice& price, double coin);

// A row for each line; their ids are their numbers from 1 on. One that is never reached is marked,
// and "everything else is discarded" without a number, its id 0, when there are such hands.
ReportTable ChartTable(const ShownChart& shown);

// A row for each group of exceptions, with the hand that costs most; their ids are the groups.
ReportTable ExceptionTable(const ShownChart& shown);

// A row for each hand of a group; their ids are those of the hands.
ReportTable ExceptionHandTable(const ShownChart& shown, std::size_t group);

// The name of a group: "9. 4 to a flush, better 11. low pair".
std::string GroupName(const Chart& chart, const ExceptionGroup& group);

// The hand as it is typed, "AS KD 7H 2C 2D".
std::string TypedText(const Hand& hand);
