#include "core/text/Amount.h"

#include <gtest/gtest.h>

#include "core/text/Numbers.h"

namespace {

std::string Dollars(double amount) {
    return FormatNumber(FormatDouble("%7.2f", amount), true, true);
}

}  // namespace

TEST(AmountTest, WholeNumbersAreGroupedByThree) {
    EXPECT_EQ(FormatNumber("0", false, false), "0");
    EXPECT_EQ(FormatNumber("123", false, false), "123");
    EXPECT_EQ(FormatNumber("1234", false, false), "1,234");
    EXPECT_EQ(FormatNumber("123456", false, false), "123,456");
    EXPECT_EQ(FormatNumber("1234567", false, false), "1,234,567");
    EXPECT_EQ(FormatNumber("1234567", false, true), "$1,234,567");
    EXPECT_EQ(FormatNumber("", false, false), "");
}

TEST(AmountTest, AMinusSignIsNeverFollowedByAComma) {
    EXPECT_EQ(FormatNumber("-123", false, false), "-123");
    EXPECT_EQ(FormatNumber("-1234", false, false), "-1,234");
    EXPECT_EQ(FormatNumber("-123456", false, false), "-123,456");
    EXPECT_EQ(FormatNumber("  -123456.5", true, true), "$-123,456.5");
}

TEST(AmountTest, DollarsKeepTheirCents) {
    EXPECT_EQ(Dollars(1234.5), "$1,234.50");
    EXPECT_EQ(Dollars(5), "$5.00");
    EXPECT_EQ(Dollars(999.994), "$999.99");
    EXPECT_EQ(Dollars(-1234567.25), "$-1,234,567.25");
}

TEST(AmountTest, DecimalsStandAsTheyAreBehindADigit) {
    EXPECT_EQ(FormatNumber("1234567.5000", true, false), "1,234,567.5000");
    EXPECT_EQ(FormatNumber(".5", true, false), "0.5");
    EXPECT_EQ(FormatNumber("  .5", true, false), "0.5");
    EXPECT_EQ(FormatNumber("-.5", true, false), "-0.5");
    EXPECT_EQ(FormatNumber("2598960", true, false), "2,598,960") << "no point is needed";
    EXPECT_EQ(FormatNumber("1234.", true, false), "1,234.");
    EXPECT_EQ(FormatNumber("1.2.3456", true, false), "1.2.3456") << "the last point counts";
}

TEST(AmountTest, BlanksAreDroppedAndPartNoGroups) {
    EXPECT_EQ(FormatNumber("      123", false, false), "123");
    EXPECT_EQ(FormatNumber("   123456", false, false), "123,456");
    EXPECT_EQ(FormatNumber("   ", false, false), "");
}

TEST(AmountTest, LongNumbersKeepEveryDigit) {
    EXPECT_EQ(FormatNumber("19933230517200.0000", true, false), "19,933,230,517,200.0000");
    EXPECT_EQ(FormatNumber(FormatDouble("%19.4lf", 1e30), true, false),
              "1,000,000,000,000,000,019,884,624,838,656.0000");
}
