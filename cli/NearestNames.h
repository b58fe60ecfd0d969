// What somebody who mistyped a name may have meant.
#pragma once
#include <string>
#include <string_view>
#include <vector>

// The nearest of the names, at most three, nearest first: those that contain what was typed,
// otherwise those that the fewest changed characters turn it into, letter case apart.
std::vector<std::string> NearestNames(std::string_view typed,
                                      const std::vector<std::string>& names);

// ": did you mean "A" or "B"?"; empty without names.
std::string DidYouMean(std::string_view typed, const std::vector<std::string>& names);
