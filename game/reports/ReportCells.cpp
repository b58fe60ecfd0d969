#include "game/reports/ReportCells.h"

#include <array>
#include <ctime>
#include <utility>

#include "core/text/Amount.h"

ReportCell TextCell(std::string text) { return {std::move(text), std::nullopt, {}}; }

ReportCell NumberCell(std::string_view format, double value) {
    return {FormatDecimals(format, value), value, {}};
}

ReportCell DateCell(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm parts{};
    std::array<char, 64> text{};
    if (seconds == 0 || !localtime_r(&time, &parts)) return {};
    const auto size = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts);
    return {{text.data(), size}, static_cast<double>(seconds), {}};
}

ReportCell OddsCell(double probability) {
    return probability > 0 ? NumberCell("%.2f", 1 / probability) : TextCell("never");
}
