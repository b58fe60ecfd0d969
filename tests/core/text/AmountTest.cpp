#include "core/text/Amount.h"

#include <gtest/gtest.h>

#include "core/text/Numbers.h"

namespace {

// Of "1234=1,234".
void ExpectShown(const std::string& line, bool decimals) {
    const auto at = line.find('=');
    const std::string printed = line.substr(0, at);
    const std::string shown = line.substr(at + 1);
    EXPECT_EQ(FormatNumber(printed, decimals, false), shown) << line;
    EXPECT_EQ(FormatNumber(printed, decimals, true), "$" + shown) << line;
}

TEST(AmountTest, WholeNumbersAreGroupedByThree) {
    // A minus sign is never followed by a comma.
    for (const char* line : {"=", "123=123", "1234=1,234", "   123456=123,456", "   =",
                             "-1234=-1,234", "-123456=-123,456"}) {
        ExpectShown(line, false);
    }
}

TEST(AmountTest, DecimalsStandAsTheyAreBehindADigit) {
    for (const char* line : {"1234567.5000=1,234,567.5000", ".5=0.5", "  .5=0.5", "-.5=-0.5",
                             "  -123456.5=-123,456.5", "2598960=2,598,960", "1234.=1,234.",
                             "1.2.3456=1.2.3456", "19933230517200.0000=19,933,230,517,200.0000"}) {
        ExpectShown(line, true);
    }
    EXPECT_EQ(FormatDollars("%7.2f", 999.994), "$999.99");
    EXPECT_EQ(FormatDollars("%7.2f", -1234567.25), "$-1,234,567.25");
    EXPECT_EQ(FormatDecimals("%19.4lf", 1e30), "1,000,000,000,000,000,019,884,624,838,656.0000");
}

}  // namespace
