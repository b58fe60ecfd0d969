// The charts of a table that are known, of each length the best: what a player chooses from who
// wants so many lines, or so little loss.
#pragma once
#include <vector>

#include "core/strategy/SearchWish.h"

// By rising number of rows, each losing less than all that are shorter.
using ChartLists = std::vector<SearchResult::Found>;

// Takes a chart up where it belongs, and drops those that are no better than a shorter one. False
// when it is none itself, has no rows or more than a search makes, or a loss that is no number from
// 0 on.
bool AddChart(ChartLists& lists, SearchResult::Found chart);

// The best chart of at most so many rows, otherwise the shortest; nullptr when there is none.
const SearchResult::Found* BestOfRows(const ChartLists& lists, std::size_t mostRows);

// The one of kStandardChart: the shortest that loses no more, otherwise the best of as many rows;
// nullptr when there is none so short.
const SearchResult::Found* StandardOf(const ChartLists& lists);
