// Hands from standard input, one a line, each answered by a line of JSON on standard output.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "cli/Commands.h"

namespace cli {

// What stands in place of the cards when they are to be read from standard input.
inline constexpr std::string_view kStandardInput = "-";

// Appends the answer to a line, with its end, or gives the problem; empty when there is none.
using LineAnswer = std::function<std::string(const std::string& line, std::string& answer)>;

// Blank lines, and what follows a '#', are passed over; a byte order mark and "\r\n" are fine. A
// line with a problem is answered by {"line":7,"error":"..."} and the next one is read; at the end
// that is a failure. An input that is no file is answered line by line, so that who writes a hand
// and waits for its answer gets it; when nobody reads the answers any more, all ends without a
// word. Memory does not grow with the input, be it one line.
std::optional<Failure> AnswerLines(const LineAnswer& answer);

}  // namespace cli
