// Finds charts: lists of rows that lose little in few rows.
//
// A first list is made from the top, of rows that lose next to nothing on the hands that are left
// to them, the widest first. Then rows that became needless go, each row is taken out and the best
// one for its place put in, itself included, and the row that is missed least is dropped, until the
// chart is as short as is wished. A chart that loses too much gets further rows, at last such of
// more words than the others. The same table gives the same chart: nothing depends on time.
#pragma once
#include <functional>

#include "core/strategy/Grade.h"
#include "core/strategy/SearchWish.h"
#include "core/strategy/StartingHands.h"

// Told of each chart that is better than those of its length before, the first of them when a
// sixth of the work is done.
using ListFound = std::function<void(const SearchResult::Found& found)>;

// Works on the calling thread, by which the progress is asked and what is found is told.
SearchResult FindChart(const StartingHands& hands, const Terms& terms, const PayTable& table,
                       const SearchWish& wish, const Progress& progress = {},
                       const ListFound& told = {});
