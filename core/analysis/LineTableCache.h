// The line tables in use, built when they are first asked for and kept while the pay tables stay
// the same. One cache serves both engines.
#pragma once
#include <memory>
#include <vector>

#include "core/analysis/LineTables.h"

class LineTableCache {
  public:
    // The tables of a pay table, never null. Pays, descriptions and win counts do not matter to
    // them, so a table whose pays are being edited keeps its own. The last two asked for are kept:
    // the player's game and the one that is looked at beside it.
    std::shared_ptr<const LineTables> For(const PayTable& table);

  private:
    struct Entry {
        PayTable key;
        std::shared_ptr<const LineTables> tables;
    };
    std::vector<Entry> entries;  // the last asked for comes last
};
