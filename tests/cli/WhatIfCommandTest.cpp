// compare, meter and analyze --sensitivity.
#include <cmath>
#include <string>

#include "tests/cli/ProgramTest.h"

namespace {

class WhatIfCommandTest : public ProgramTest {};

TEST_F(WhatIfCommandTest, CompareTellsWhatIsPlayedDifferently) {
    const Json json = AskForJson("compare 300 300 --pay flush=5 --pay2 'ROYAL FLUSH=1000'");
    EXPECT_EQ(json["b"]["pays"][0]["maxPayout"], 5000);
    EXPECT_EQ(json["a"]["pays"][0]["payout"], 5);
    EXPECT_GT(json["differentHands"], 0);
    EXPECT_EQ(json["hands"], 2'598'960);
    EXPECT_NEAR(json["aOnB"].get<double>() + json["costAOnB"].get<double>(),
                json["b"]["return"].get<double>(), 1e-9);
    double cost = 0;
    for (const Json& entry : json["classes"]) cost += entry["cost"].get<double>();
    EXPECT_NEAR(cost, json["costAOnB"].get<double>(), 1e-12);
    EXPECT_EQ(json["lines"][4]["payA"], 5);

    const auto text = LinesOf("compare 300 300 --table2 3");
    EXPECT_EQ(text[0], "A  Jacks or Better (300), table 0, bet 5 x $1.00");
    EXPECT_TRUE(text[1].starts_with("B  Jacks or Better (300), table 3"));
}

TEST_F(WhatIfCommandTest, CompareRefusesWhatItCannotSetSideBySide) {
    const Json json = AskForJson("compare 300 'Joker Poker - 2 Pair'");
    EXPECT_FALSE(json.contains("aOnB"));
    EXPECT_NE(json["whyNoPlay"].get<std::string>().find("different decks"), std::string::npos);
    ExpectRefused("compare 300 'Sneak Peak Poker'", 1, {"not available", "Sneak Peak"});
    ExpectRefused("compare 300 300 --pay2 XYZ=1", 2, {"--pay2 \"XYZ=1\"", "no line \"XYZ\""});
    ExpectRefused("compare 300", 2, {"GAME2"});
}

TEST_F(WhatIfCommandTest, AMeterHasItsReturnItsBreakEvenAndItsTurningPoints) {
    const Json json = AskForJson("meter 300 --line 'royal flush' --at 5000 --rise 0.5");
    EXPECT_EQ(json["line"], 0);
    EXPECT_EQ(json["coins"], 5000);
    EXPECT_GT(json["return"], 100);
    EXPECT_EQ(std::lround(json["breakEven"].get<double>() / 5), 976);
    EXPECT_EQ(json["handsToBreakEven"], 0);
    ASSERT_FALSE(json["turningPoints"].empty());
    double last = 4000;
    for (const Json& point : json["turningPoints"]) {
        EXPECT_GE(point["coins"], last);
        last = point["coins"];
    }
    // 880 coins to go, of which each hand of 5 adds 0.025.
    const Json start = AskForJson("meter 300 --line 0 --rise 0.5");
    EXPECT_NEAR(start["handsToBreakEven"].get<double>(), 880 / 0.025, 5);

    // Each of several lines is answered with the others where they stand.
    const Json two = AskForJson("meter 300 --line 0 --line 1 --at 4500 --at 300");
    EXPECT_EQ(two[1]["description"], "STRAIGHT FLUSH");
    EXPECT_EQ(two[0]["return"], two[1]["return"]);
    EXPECT_LT(two[0]["breakEven"], json["breakEven"]);
}

TEST_F(WhatIfCommandTest, MetersThatCannotBe) {
    ExpectRefused("meter 300 --line 'royal flsh'", 2, {"no line \"royal flsh\"", "ROYAL FLUSH"});
    ExpectRefused("meter 300 --line 0 --line 'royal flush'", 2, {"given twice"});
    ExpectRefused("meter 300 --line 0 --at 1 --at 2", 2, {"--at"});
    ExpectRefused("meter 300 --line 0 --at 4000.5", 2, {"whole number of coins"});
    ExpectRefused("meter 300", 2, {"--line"});
    ExpectRefused("meter 'Pick Em Poker' --line 0 --turning-points", 1, {"turning points"});
    EXPECT_EQ(AskForJson("meter 'Pick Em Poker' --line 0")["turningPoints"], nullptr);
    EXPECT_EQ(LinesOf("meter 'Pick Em Poker' --line 0 --csv").size(), 2U) << "the line's own row";
    const Printed below = Ask("meter 300 --line 0 --at 3999");
    EXPECT_EQ(below.status, 0);
    EXPECT_NE(below.problem.find("below the 4000 coins"), std::string::npos);
}

TEST_F(WhatIfCommandTest, SensitivityIsAColumnOfEachForm) {
    const Json json = AskForJson("analyze 300 --sensitivity");
    EXPECT_GT(json["lines"][4]["oneCoinMore"], json["lines"][4]["slope"]);
    EXPECT_NEAR(json["lines"][4]["slope"].get<double>(), 1.1014511, 1e-6);
    EXPECT_TRUE(
        LinesOf("analyze 300 --sensitivity --csv")[0].ends_with("variance,oneCoinMore,slope"));
    EXPECT_NE(Ask("analyze 300 --sensitivity").output.find("one coin more on"), std::string::npos);
    EXPECT_EQ(AskForJson("analyze 318 --sensitivity")["lines"][0]["slope"], nullptr);
    ExpectRefused("analyze --all --sensitivity", 2, {"--json"});
}

}  // namespace
