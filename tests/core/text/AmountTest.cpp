#include "core/text/Amount.h"

#include <gtest/gtest.h>

#include "core/text/Numbers.h"

namespace {

struct AmountCase {
    std::string printed;
    std::string shown;
};

TEST(AmountTest, WholeNumbersAreGroupedByThree) {
    const AmountCase cases[] = {
        {"0", "0"},
        {"123", "123"},
        {"1234", "1,234"},
        {"123456", "123,456"},
        {"1234567", "1,234,567"},
        {"", ""},
        {"-123", "-123"},  // a minus sign is never followed by a comma
        {"-1234", "-1,234"},
        {"-123456", "-123,456"},
        {"   123456", "123,456"},  // blanks are dropped and part no groups
        {"   ", ""},
    };
    for (const auto& [printed, shown] : cases) {
        EXPECT_EQ(FormatNumber(printed, false, false), shown) << printed;
        EXPECT_EQ(FormatNumber(printed, false, true), "$" + shown) << printed;
    }
}

TEST(AmountTest, DecimalsStandAsTheyAreBehindADigit) {
    const AmountCase cases[] = {
        {"1234567.5000", "1,234,567.5000"},
        {".5", "0.5"},
        {"  .5", "0.5"},
        {"-.5", "-0.5"},
        {"  -123456.5", "-123,456.5"},
        {"2598960", "2,598,960"},  // no point is needed
        {"1234.", "1,234."},
        {"1.2.3456", "1.2.3456"},  // the last point counts
        {"19933230517200.0000", "19,933,230,517,200.0000"},
        {FormatDouble("%19.4lf", 1e30), "1,000,000,000,000,000,019,884,624,838,656.0000"},
        {FormatDouble("%7.2f", 999.994), "999.99"},
        {FormatDouble("%7.2f", 5), "5.00"},
        {FormatDouble("%7.2f", -1234567.25), "-1,234,567.25"},
    };
    for (const auto& [printed, shown] : cases) {
        EXPECT_EQ(FormatNumber(printed, true, false), shown) << printed;
        EXPECT_EQ(FormatNumber(printed, true, true), "$" + shown) << printed;
    }
}

}  // namespace
