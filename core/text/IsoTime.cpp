// POSIX: the standard library reads no times.
#include "core/text/IsoTime.h"

#include <array>
#include <ctime>

namespace {

constexpr const char* kForm = "%Y-%m-%dT%H:%M:%SZ";

}  // namespace

std::string IsoTime(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm parts{};
    std::array<char, 64> text{};
    if (!gmtime_r(&time, &parts)) return "";
    return {text.data(), std::strftime(text.data(), text.size(), kForm, &parts)};
}

std::optional<std::int64_t> ParseIsoTime(const std::string& text) {
    std::tm parts{};
    const char* end = strptime(text.c_str(), kForm, &parts);
    if (!end || *end != '\0') return std::nullopt;
    return timegm(&parts);
}
