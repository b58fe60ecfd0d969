// Amounts as they are shown: 1,234,567 and $1,234.50.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

// Groups the digits of a number that a printf conversion ("%li", "%7.2f") has printed, at most 24
// characters in the formats in use; of longer texts nothing is cut either. Blanks are dropped, a
// comma parts every three digits, never right after a minus sign. With decimals the text from the
// last '.' on stands as it is, a "0" before it when no digit does; without, a '.' is no different
// from other characters, and digits after it are grouped too. With dollar a "$" comes before all
// else, the minus sign included.
std::string FormatNumber(std::string_view printed, bool decimals, bool dollar);

// The usual cases: "1,234,567"; a FormatDouble text with its decimals; the same with a "$".
std::string FormatCount(std::int64_t count);
std::string FormatDecimals(std::string_view format, double value);
std::string FormatDollars(std::string_view format, double dollars);
