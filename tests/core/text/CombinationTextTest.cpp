#include "core/text/CombinationText.h"

#include <gtest/gtest.h>

#include "core/text/WholeNumber.h"

namespace {

TEST(CombinationTextTest, DrawsAreCountedToTheLastDigit) {
    EXPECT_EQ(CombinationText("52", "5"), "2,598,960");
    EXPECT_EQ(CombinationText(" 47 cards", "+2"), "1,081");
    EXPECT_EQ(CombinationText("52", "1"), "52");
    EXPECT_EQ(CombinationText("52", "47"), "2,598,960");
    EXPECT_EQ(CombinationText("57", "28"), "15,033,633,249,770,520");
    EXPECT_EQ(CombinationText("60", "30"), "118,264,581,564,861,424");
    EXPECT_EQ(CombinationText("1000000000", "2"), "499,999,999,500,000,000");
    EXPECT_EQ(CombinationText("999999999999999999", "1"), "999,999,999,999,999,999");
    EXPECT_EQ(CombinationText("999999999999999999", "999999999999999998"),
              "999,999,999,999,999,999");
}

TEST(CombinationTextTest, AllOfThemIsOneWayBeforeNoneIsNone) {
    for (const char* same : {"5", "0", "-3", "", "no number"}) {
        EXPECT_EQ(CombinationText(same, same), "1") << same;
    }
    EXPECT_EQ(CombinationText("007", "7"), "1");
    EXPECT_EQ(CombinationText("5", "6"), "0");
    EXPECT_EQ(CombinationText("5", "0"), "0");
    EXPECT_EQ(CombinationText("5", "-1"), "0");
    EXPECT_EQ(CombinationText("-5", "-6"), "0");
    EXPECT_EQ(CombinationText("0", "3"), "0");
}

TEST(CombinationTextTest, MoreThanEighteenDigitsAreTooLarge) {
    EXPECT_EQ(CombinationText("63", "31"), "916,312,070,471,295,267");
    EXPECT_EQ(CombinationText("64", "32"), "too large");  // 1.8e18
    EXPECT_EQ(CombinationText("1000000000000000000", "1"), "too large");
    EXPECT_EQ(CombinationText("999999999999999999", "499999999999999999"), "too large");
    const std::string huge(70, '9');
    EXPECT_EQ(CombinationText(huge, "2"), "too large");
    EXPECT_EQ(CombinationText(huge, huge), "1");
    EXPECT_EQ(CombinationText(huge, huge + "0"), "0");
    EXPECT_EQ(CombinationText(huge, "-" + huge), "0");
}

TEST(WholeNumberTest, NumbersPast64BitsAreTheNearest) {
    EXPECT_EQ(ReadWholeNumber("  -0012x3").Nearest(), -12);
    EXPECT_EQ(ReadWholeNumber("9223372036854775807").Nearest(), INT64_MAX);
    EXPECT_EQ(ReadWholeNumber("9223372036854775808").Nearest(), INT64_MAX);
    EXPECT_EQ(ReadWholeNumber("-99999999999999999999").Nearest(), INT64_MIN);
    EXPECT_EQ(ReadWholeNumber("+-1").Nearest(), 0);
    EXPECT_FALSE(ReadWholeNumber("-0").negative);
}

}  // namespace
