// Numbers in texts, by the rules that the data files are written with: the C conversions, but
// without the locale (a file written in one country is read in another) and without undefined
// results.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The characters that separate the numbers of a list: ',' ' ' ';' ':'.
inline constexpr std::string_view kListSeparators = ", ;:";

// Equal without regard to letter case, for the ASCII letters only: other bytes (UTF-8) must be the
// same.
bool SameText(std::string_view a, std::string_view b);

// The first bytes of a text, at most so many, and no part of a UTF-8 character.
std::string_view CutText(std::string_view text, std::size_t bytes);

// Leading blanks, an optional sign, then digits up to the first other character; no digits give 0.
// A number past 32 bits gives the nearest 32-bit one.
std::int32_t ParseInt(std::string_view text);

// Leading blanks, then a decimal floating-point number as far as it goes; no number, an infinity or
// a number outside the range of a double gives 0.
double ParseDouble(std::string_view text);

// The printf conversion "%[-][width][.precision][l]f" (precision 6 when none is named; width and
// precision at most 99), other characters of the format standing as they are. A format without
// exactly one such conversion gives the value as "%f" would.
std::string FormatDouble(std::string_view format, double value);
