#include "core/text/CombinationText.h"

#include <gtest/gtest.h>

#include "core/text/WholeNumber.h"

namespace {

const std::string kHuge(70, '9');

TEST(CombinationTextTest, DrawsAreCountedToTheLastDigitOfEighteen) {
    const struct {
        std::string cards, drawn, ways;
    } draws[] = {{"52", "5", "2,598,960"},
                 {"52", "47", "2,598,960"},
                 {"63", "31", "916,312,070,471,295,267"},
                 {"64", "32", "too large"},  // 1.8e18
                 {"999999999999999999", "1", "999,999,999,999,999,999"},
                 {"999999999999999999", "499999999999999999", "too large"},
                 {"1000000000000000000", "1", "too large"},
                 {"007", "7", "1"},
                 {"0", "0", "1"},
                 {"5", "6", "0"},
                 {"5", "0", "0"},
                 {"5", "-1", "0"},
                 {"-5", "-6", "0"},
                 {kHuge, kHuge, "1"},
                 {kHuge, kHuge + "0", "0"},
                 {kHuge, "2", "too large"}};
    for (const auto& [cards, drawn, ways] : draws) {
        EXPECT_EQ(CombinationText(cards, drawn), ways) << cards << " " << drawn;
    }
}

TEST(WholeNumberTest, NumbersPast64BitsAreTheNearest) {
    EXPECT_EQ(ReadWholeNumber("9223372036854775808").Nearest(), INT64_MAX);
    EXPECT_EQ(ReadWholeNumber("-99999999999999999999").Nearest(), INT64_MIN);
    EXPECT_FALSE(ReadWholeNumber("-0").negative);
}

TEST(WholeNumberTest, TypedCommasPartGroupsOfThreeOrAreNoNumber) {
    for (const std::string plain : {"0", "4000", "007", "-5", "-0", "12345678901234567890"}) {
        EXPECT_EQ(PlainWholeNumber(" \t" + plain + "\r\n "), plain);
    }
    EXPECT_EQ(PlainWholeNumber("-12,345"), "-12345");
    EXPECT_EQ(PlainWholeNumber("+1,000,000"), "1000000");
    for (const char* typed : {"", " ", "4000 coins", "4.5", "4,00", "12345,678", "1,,000", ",000",
                              "1,000,", "4 000", "4000\n20000", "- 5", "+-5", "-", "\u0664"}) {
        EXPECT_EQ(PlainWholeNumber(typed), std::nullopt) << typed;
    }
}

}  // namespace
