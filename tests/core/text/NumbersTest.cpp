#include "core/text/Numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace {

std::string Printed(const char* format, double value) {
    std::array<char, 1024> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

}  // namespace

TEST(NumbersTest, SameTextFoldsTheAsciiLettersOnly) {
    EXPECT_TRUE(SameText("AZaz09_", "azAZ09_"));
    EXPECT_FALSE(SameText("a", "ab"));
    EXPECT_FALSE(SameText("@[`{", "`{@["));          // the neighbours of the letters
    EXPECT_FALSE(SameText("\xC3\x84", "\xC3\xA4"));  // A and a with dots
}

TEST(NumbersTest, AnIntegerIsReadAsFarAsItGoesAndPast32BitsIsTheNearest) {
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    constexpr auto most = std::numeric_limits<std::int32_t>::max();
    const std::pair<std::string, std::int32_t> numbers[] = {
        {" \t\n\v\f\r+7x9", 7}, {"4,000", 4},         {"-2147483647", -2147483647},
        {"-2147483649", least}, {"2147483648", most}, {std::string(1000, '9'), most}};
    for (const auto& [text, number] : numbers) EXPECT_EQ(ParseInt(text), number) << text;
    for (const auto* text : {"", " ", "-", "+-1", "--1", "- 1", "x1", "0x10"}) {
        EXPECT_EQ(ParseInt(text), 0) << text;
    }
    EXPECT_EQ(ParseInt(std::string_view("12345", 2)), 12);
}

TEST(NumbersTest, AFloatingPointNumberIsReadAsFarAsItGoes) {
    const std::pair<const char*, double> numbers[] = {
        {"0.9954  ", 0.9954}, {" \t+.5x", 0.5}, {"-5.", -5.0}, {"1.5e2", 150.0}, {"2e", 2.0}};
    for (const auto& [text, number] : numbers) EXPECT_EQ(ParseDouble(text), number) << text;
    for (const auto* text : {"", " ", ".", "+", "+-1", "-+1", "++1", "- 1", "e5", "inf",
                             "-Infinity", "nan", "1e999", "-1e999", "1e-999", "0x10"}) {
        EXPECT_EQ(ParseDouble(text), 0.0) << text;
    }
}

TEST(NumbersTest, AnyValueIsWrittenAsPrintfWritesIt) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20'000; ++i) {
        const auto bits = std::bit_cast<double>(random());
        const auto amount = static_cast<double>(random() % 2'000'000) / 1000 - 1000;
        for (const double value : {std::isnan(bits) ? 0.0 : bits, amount}) {
            for (const auto* format :
                 {"$%3.2f a coin", "%-12.4f", "%19.4lf", "%19.0lf", "%.f", "%f", "%99.99f"}) {
                ASSERT_EQ(FormatDouble(format, value), Printed(format, value)) << format;
            }
        }
    }
}

TEST(NumbersTest, ABadFormatWritesAsTheSimplestOne) {
    for (const auto* format :
         {"", "plain", "%", "%%", "%n", "%5", "%.", "%-", "%--5f", "%*f", "%100f", "%.100f",
          "%99999999999f", "%llf", "%f%f", "%d%f", "$%.2f for %"}) {
        EXPECT_EQ(FormatDouble(format, 2.5), "2.500000") << format;
    }
}
