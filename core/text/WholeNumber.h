// A whole number as it stands in a text, however long it is.
#pragma once
#include <cstdint>
#include <string_view>

struct WholeNumber {
    bool negative = false;    // never of 0
    std::string_view digits;  // of the text that was read, without leading zeros: none for 0

    bool IsZero() const { return digits.empty(); }

    // The 64-bit number nearest to it.
    std::int64_t Nearest() const;

    bool operator==(const WholeNumber&) const = default;
};

// Leading blanks, an optional sign, then digits up to the first other character; no digits give 0.
// The digits point into the text.
WholeNumber ReadWholeNumber(std::string_view text);

// Whether a is the smaller one.
bool operator<(const WholeNumber& a, const WholeNumber& b);
