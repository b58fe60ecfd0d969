// A whole number as it stands in a text, however long it is.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct WholeNumber {
    bool negative = false;    // never of 0
    std::string_view digits;  // of the text that was read, without leading zeros: none for 0

    bool IsZero() const { return digits.empty(); }

    // The 64-bit number nearest to this one.
    std::int64_t Nearest() const;

    bool operator==(const WholeNumber&) const = default;
};

// Leading blanks, an optional sign, then digits up to the first other character; no digits give 0.
// The digits point into the text.
WholeNumber ReadWholeNumber(std::string_view text);

// A whole number as a person types it ("4000", "4,000", " -12 ") in plain digits ("4000", "-12"):
// blanks around it, its '+' and its commas are dropped. Commas part the digits every three or not
// at all. Nothing for any other text: "4000 coins" and "4,00" are no numbers, nor are two of them.
std::optional<std::string> PlainWholeNumber(std::string_view typed);

// Whether a is less than b.
bool operator<(const WholeNumber& a, const WholeNumber& b);
