// All games and tables as a table, with the figures that the analysis cache has of them.
#pragma once
#include <string>
#include <vector>

#include "core/paytable/PayTable.h"
#include "game/reports/ReportTable.h"

struct ListedTable {
    TableOfGame place;
    PayTable table;

    // Of the row; no other table's, and the same after the tables have been read anew.
    std::int64_t Id() const;
};

// Every table of every game: the built-in ones, those that no menu shows too, by rising id, then
// the player's own.
std::vector<ListedTable> ListTables(const ProfileOnDisk& main);

// Whether the table can be analysed, and the cache does not have the whole analysis of its pays.
bool IsMissing(const ListedTable& table, const ProfileOnDisk& cache);

// A row for each. Figures that are not those of the table are left out, with the reason in place of
// the date; of a double-draw game only the return counts both draws, and stands alone. The time is
// that of the table, in seconds since the epoch.
ReportTable AllGamesTable(const std::vector<ListedTable>& tables, const ProfileOnDisk& cache,
                          std::int64_t time);
