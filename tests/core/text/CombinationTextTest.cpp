#include "core/text/CombinationText.h"

#include <gtest/gtest.h>

#include <sstream>

#include "core/text/WholeNumber.h"

namespace {

const std::string kHuge(70, '9');

TEST(CombinationTextTest, DrawsAreCountedToTheLastDigit) {
    for (const char* line :
         {"52 5 2,598,960", "47 2 1,081", "52 1 52", "52 47 2,598,960",
          "57 28 15,033,633,249,770,520", "60 30 118,264,581,564,861,424",
          "63 31 916,312,070,471,295,267", "1000000000 2 499,999,999,500,000,000",
          "999999999999999999 1 999,999,999,999,999,999",
          "999999999999999999 999999999999999998 999,999,999,999,999,999", "5 5 1", "0 0 1",
          "-3 -3 1", "007 7 1", "5 6 0", "5 0 0", "5 -1 0", "-5 -6 0", "0 3 0"}) {
        std::istringstream words(line);
        std::string cards;
        std::string drawn;
        std::string ways;
        words >> cards >> drawn >> ways;
        EXPECT_EQ(CombinationText(cards, drawn), ways) << line;
    }
    EXPECT_EQ(CombinationText(kHuge, kHuge), "1");
    EXPECT_EQ(CombinationText(kHuge, kHuge + "0"), "0");
    EXPECT_EQ(CombinationText(kHuge, "-" + kHuge), "0");
}

TEST(CombinationTextTest, MoreThanEighteenDigitsAreTooLarge) {
    EXPECT_EQ(CombinationText("64", "32"), "too large");  // 1.8e18
    EXPECT_EQ(CombinationText("1000000000000000000", "1"), "too large");
    EXPECT_EQ(CombinationText("999999999999999999", "499999999999999999"), "too large");
    EXPECT_EQ(CombinationText(kHuge, "2"), "too large");
}

TEST(WholeNumberTest, NumbersPast64BitsAreTheNearest) {
    EXPECT_EQ(ReadWholeNumber("  -0012x3").Nearest(), -12);
    EXPECT_EQ(ReadWholeNumber("9223372036854775807").Nearest(), INT64_MAX);
    EXPECT_EQ(ReadWholeNumber("9223372036854775808").Nearest(), INT64_MAX);
    EXPECT_EQ(ReadWholeNumber("-99999999999999999999").Nearest(), INT64_MIN);
    EXPECT_EQ(ReadWholeNumber("+-1").Nearest(), 0);
    EXPECT_FALSE(ReadWholeNumber("-0").negative);
}

TEST(WholeNumberTest, TypedCommasPartGroupsOfThreeOrAreNoNumber) {
    for (const std::string plain : {"0", "4000", "007", "-5", "-0", "12345678901234567890"}) {
        EXPECT_EQ(PlainWholeNumber(" \t" + plain + "\r\n "), plain);
    }
    EXPECT_EQ(PlainWholeNumber("4,000"), "4000");
    EXPECT_EQ(PlainWholeNumber("-12,345"), "-12345");
    EXPECT_EQ(PlainWholeNumber("+1,000,000"), "1000000");
    EXPECT_EQ(PlainWholeNumber(kHuge), kHuge);
    for (const char* typed :
         {"",           " ",    "4000 coins", "4.5",      "4,00",  "1,2345",      "12345,678",
          "1,,000",     ",000", "1,000,",     "1,00,000", "4 000", "4000\t20000", "4000\n20000",
          "4000 20000", "- 5",  "--5",        "+-5",      "-",     "5-",          "$5",
          "0x10",       "1e3",  "4\u00a0000", "\u0664"}) {
        EXPECT_EQ(PlainWholeNumber(typed), std::nullopt) << typed;
    }
}

}  // namespace
