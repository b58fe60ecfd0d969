// The combinations calculator.
#pragma once
#include <string>
#include <string_view>

// How many ways there are to draw so many cards of so many, both whole numbers in plain digits:
// exact and grouped ("2,598,960") up to 18 digits, beyond that "too large". As many as there
// are can be drawn in one way, looked at first, so that 0 of 0 is 1; other draws of more than there
// are, of none or from none are 0.
std::string CombinationText(std::string_view cards, std::string_view drawn);
