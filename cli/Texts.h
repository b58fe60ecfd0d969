// Small texts for people.
#pragma once
#include <span>
#include <string>
#include <string_view>

// Control characters, which a terminal would obey, shown as '?'.
std::string Printable(std::string_view text);

// In quotes, fit for a line of a message: long texts are cut, control characters shown as '?'.
std::string Quoted(std::string_view text);

// The same of a path, which is of use only when it is whole.
std::string QuotedPath(std::string_view path);

// "a", "a or b", "a, b or c".
std::string Alternatives(std::span<const std::string> texts);

// "$1.00", "$0.25", "$0.005": two decimals, or as many as the amount has.
std::string Dollars(double amount);

// How many columns a UTF-8 text takes, each character counted as one.
std::size_t DisplayWidth(std::string_view text);

// A UTF-8 text of at most so many columns; the end of a longer one is replaced by "...".
std::string Shortened(std::string_view text, std::size_t columns);
