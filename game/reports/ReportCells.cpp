#include "game/reports/ReportCells.h"

#include <array>
#include <ctime>
#include <utility>

#include "core/text/Amount.h"

ReportCell TextCell(std::string text) { return {std::move(text), std::nullopt, {}}; }

ReportCell NumberCell(std::string_view format, double value) {
    std::string text = FormatDecimals(format, value);
    const bool rounded = text.find_first_of("123456789") == std::string::npos;
    if (rounded && text.starts_with('-')) text.erase(0, 1);
    return {std::move(text), value, {}};
}

ReportCell CountCell(std::int64_t count) {
    return {FormatCount(count), static_cast<double>(count), {}};
}

std::string DateText(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm parts{};
    std::array<char, 64> text{};
    if (!localtime_r(&time, &parts)) return {};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts)};
}

ReportCell DateCell(std::int64_t seconds) {
    if (seconds == 0) return {};
    return {DateText(seconds), static_cast<double>(seconds), {}};
}

ReportCell OddsCell(double probability) {
    return probability > 0 ? NumberCell("%.2f", 1 / probability) : TextCell("never");
}
