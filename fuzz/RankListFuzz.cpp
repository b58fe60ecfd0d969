// The input as a typed list, a stored list, a number and a format. Numbers are compared with what
// the C library reads, where it is defined and means the same.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "core/text/Numbers.h"
#include "core/text/Ranks.h"
#include "core/text/WholeNumber.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckRankLists(std::string_view text) {
    for (const std::size_t limit : {0U, 1U, 5U, 13U}) {
        const auto separators = std::ranges::count_if(
            text, [](char c) { return kListSeparators.find(c) != std::string_view::npos; });
        const auto pieces = text.empty() ? 0 : static_cast<std::size_t>(separators) + 1;
        Require(ReadRankNumbers(text, limit).size() == std::min(pieces, limit));
    }
    const auto stored = ParseRankList(text);
    if (!stored) return;
    std::string joined;
    for (const int rank : ReadRankNumbers(*stored, 13)) {
        Require(rank != 0);
        joined += (joined.empty() ? "" : ",") + std::to_string(rank);
    }
    Require(joined == *stored);
    const auto shown = FormatRankList(*stored);
    const auto typedAgain = ParseRankList(shown);
    Require(typedAgain && FormatRankList(*typedAgain) == shown);
}

void CheckNumbers(const std::string& text) {
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    constexpr auto most = std::numeric_limits<std::int32_t>::max();
    Require(ParseInt(text) ==
            std::clamp<long long>(std::strtoll(text.c_str(), nullptr, 10), least, most));

    const auto plain = PlainWholeNumber(text);
    Require(!plain || PlainWholeNumber(*plain) == plain);

    const double value = ParseDouble(text);
    Require(std::isfinite(value));
    // The C library also reads hexadecimal numbers and names.
    if (text.find_first_of("xXnN") == std::string::npos) {
        const double expected = std::strtod(text.c_str(), nullptr);
        Require(value == (std::isfinite(expected) ? expected : 0));
    }
}

void CheckFormat(std::string_view text) {
    std::array<char, sizeof(double)> bits{};
    text.copy(bits.data(), bits.size());
    double value = 0;
    std::memcpy(&value, bits.data(), bits.size());
    Require(FormatDouble(text, value).size() <= text.size() + 512);
    Require(!FormatDouble(text, 2.5).empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckRankLists(text);
    CheckNumbers(text);
    CheckFormat(text);
    return 0;
}
