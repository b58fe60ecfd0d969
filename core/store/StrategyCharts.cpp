#include "core/store/StrategyCharts.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <vector>

#include "core/store/AnalysisCache.h"
#include "core/store/ComputedFile.h"
#include "core/strategy/RowText.h"
#include "core/text/IsoTime.h"
#include "core/text/Numbers.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kDate = "Date";
constexpr std::string_view kPays = "Pays";
constexpr std::string_view kBest = "Best";
constexpr std::string_view kRow = "Row";
constexpr std::string_view kPlain = "Plain";
constexpr std::string_view kPenalties = "Penalties";
constexpr std::array<std::string_view, 4> kReaches = {"none", "stopped", "standard", "whole"};

// Rows are mostly those of many charts: each stands once, under a number.
class RowNumbers {
  public:
    std::size_t NumberOf(const Row& row) {
        const auto at = static_cast<std::size_t>(std::ranges::find(rows, row) - rows.begin());
        if (at == rows.size()) rows.push_back(row);
        return at + 1;
    }

    std::string Lines() const {
        std::string lines;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            lines += std::string(kRow) + std::to_string(i + 1) + "=" + RowText(rows[i]) + "\n";
        }
        return lines;
    }

  private:
    std::vector<Row> rows;
};

std::string LinesOf(const ChartsOfWording& charts, std::string_view key, RowNumbers& numbers) {
    std::string lines = std::string(key) + "=" +
                        std::string(kReaches[static_cast<std::size_t>(charts.reach)]) + "\n";
    for (const auto& [rows, loss] : charts.lists) {
        lines +=
            std::string(key) + std::to_string(rows.size()) + "=" + FormatDouble("%.9f", loss) + ":";
        for (const Row& row : rows) lines += " " + std::to_string(numbers.NumberOf(row));
        lines += "\n";
    }
    return lines;
}

class Reader {
  public:
    Reader(const ProfileOnDisk& charts, const std::string& section)
        : charts(charts), section(section) {
        // One look at the section each: there may be hundreds.
        for (std::size_t number = 1;; ++number) {
            const std::string text = Value(std::string(kRow) + std::to_string(number));
            if (text.empty()) break;
            rows.push_back(ParseRow(text));
        }
    }

    std::string Value(std::string_view key) const {
        return charts.file.GetString(section, key, "", ProfileFile::kWholeValue, charts.path);
    }

    ChartsOfWording Charts(std::string_view key) const {
        ChartsOfWording found;
        bool whole = true;
        for (std::size_t size = 1; size <= SearchWish::kMostRows; ++size) {
            const std::string text = Value(std::string(key) + std::to_string(size));
            const auto colon = text.find(':');
            if (colon == std::string::npos) continue;
            SearchResult::Found chart{RowsOf(text.substr(colon + 1)), ParseDouble(text)};
            const bool readable = chart.rows.size() == size;
            whole = whole && readable;
            if (readable) AddChart(found.lists, std::move(chart));
        }
        const auto reach = std::ranges::find_if(
            kReaches, [text = Value(key)](std::string_view word) { return SameText(word, text); });
        if (!found.lists.empty() && reach != kReaches.end()) {
            found.reach = static_cast<SearchReach>(reach - kReaches.begin());
        }
        // A chart with words that only a newer release knows is searched for again.
        if (!whole) found.reach = SearchReach::kNone;
        return found;
    }

  private:
    // None when one of them cannot be read.
    Chart RowsOf(const std::string& numbers) const {
        Chart chart;
        std::istringstream words(numbers);
        for (std::size_t number = 0; words >> number;) {
            if (number < 1 || number > rows.size() || !rows[number - 1].valid) return {};
            chart.push_back(rows[number - 1].row);
        }
        return chart;
    }

    const ProfileOnDisk& charts;
    const std::string& section;
    std::vector<ReadRow> rows;
};

}  // namespace

std::optional<TableCharts> ReadCharts(const ProfileOnDisk& charts, const std::string& section,
                                      const PayTable& table) {
    const std::string pays =
        charts.file.GetString(section, kPays, "", ProfileFile::kWholeValue, charts.path);
    if (!SameText(pays, PaysHash(table))) return std::nullopt;
    const Reader reader(charts, section);
    TableCharts found{ParseIsoTime(reader.Value(kDate)).value_or(0),
                      ParseDouble(reader.Value(kBest)), reader.Charts(kPlain),
                      reader.Charts(kPenalties)};
    if (found.plain.lists.empty() && found.penalties.lists.empty()) return std::nullopt;
    return found;
}

bool KeepCharts(const ProfileOnDisk& charts, const std::string& section, const PayTable& table,
                const TableCharts& found) {
    PrepareComputedFile(charts);
    RowNumbers numbers;
    const std::string lists =
        LinesOf(found.plain, kPlain, numbers) + LinesOf(found.penalties, kPenalties, numbers);
    const std::string text = std::string(kDate) + "=" + IsoTime(found.date) + "\n" +
                             std::string(kPays) + "=" + PaysHash(table) + "\n" +
                             std::string(kBest) + "=" + FormatDouble("%.9f", found.best) + "\n" +
                             lists + numbers.Lines();
    charts.file.SetSectionText(section, text, charts.path);
    return charts.file.Save(charts.path);
}
