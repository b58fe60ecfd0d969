// Texts as they are printed.
#pragma once
#include <nlohmann/json_fwd.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/cards/Hand.h"

namespace cli {

// Control characters, which a terminal would obey, shown as '?'.
std::string Printable(std::string_view text);

// In quotes, fit for a line of a message: long texts are cut, control characters shown as '?'.
std::string Quoted(std::string_view text);

// The same of a path, which is of use only when it is whole.
std::string QuotedPath(std::string_view path);

// "a", "a or b", "a, b or c".
std::string Alternatives(std::span<const std::string> texts);

// "a, b, c".
std::string Listed(const std::vector<std::string>& texts);

// "$1.00", "$0.25", "$0.005": two decimals, or as many as the amount has.
std::string Dollars(double amount);

// How many columns a UTF-8 text takes, each character counted as one.
std::size_t DisplayWidth(std::string_view text);

// A UTF-8 text of at most so many columns; the end of a longer one is replaced by "...".
std::string Shortened(std::string_view text, std::size_t columns);

// The same text with every sentence on a line of its own.
std::string SentencesOnLines(std::string text);

// ": did you mean "A" or "B"?", with the nearest of the names, at most three, nearest first: those
// that contain what was typed, otherwise those that the fewest changed characters turn it into,
// letter case apart. Empty without names.
std::string DidYouMean(std::string_view typed, const std::vector<std::string>& names);

// "AS KS QS JS 9H", a joker as "W"; empty for a hand with an empty position.
std::string FaceTexts(const Hand& hand);

// The shortest decimal text that reads back as the same number; "null" for none, such as infinity.
std::string NumberText(double number);

// JSON in one line with its end. Doubles read back exactly; bytes that are no UTF-8, as an old pay
// table file may hold, become U+FFFD.
std::string JsonText(const nlohmann::ordered_json& json);

}  // namespace cli
