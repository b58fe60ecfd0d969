// The input as a text of pay tables and as a spreadsheet of them. What is read can be written, and
// comes back as it was.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "game/paytables/PayTableLines.h"
#include "game/paytables/TableCsv.h"
#include "game/paytables/TableTextFile.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckRead(const TablesRead& read) {
    Require(read.problem.empty() != read.tables.empty());
    if (read.tables.empty()) return;
    const auto text = ReadTablesText(TablesAsText(read.tables));
    const auto csv = ReadTablesCsv(TablesAsCsv(read.tables));
    Require(text.tables.size() == read.tables.size() && csv.tables.size() == read.tables.size());
    for (std::size_t i = 0; i < read.tables.size(); ++i) {
        Require(KeysOfTable(AsKept(text.tables[i].texts)) ==
                KeysOfTable(AsKept(read.tables[i].texts)));
        Require(KeysOfTable(AsKept(csv.tables[i].texts)) ==
                KeysOfTable(AsKept(read.tables[i].texts)));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    CheckRead(ReadTablesText(input));
    CheckRead(ReadTablesCsv(input));
    PayTableTexts pasted;
    PasteCells(pasted, {FormField::kRank, 0}, input, [](FieldPlace) { return true; });
    return 0;
}
