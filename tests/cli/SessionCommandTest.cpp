// Sessions and ruin as the built program tells them.
#include <cmath>

#include "tests/cli/ProgramTest.h"

namespace {

class SessionCommandTest : public ProgramTest {};

TEST_F(SessionCommandTest, ASessionIsToldInBetsAndEndsAsTheMoneyAllows) {
    const Json json = AskForJson("session 300 --hands 1000 --coin 0.25");
    EXPECT_EQ(json["hands"], 1000);
    EXPECT_NEAR(json["expected"], -4.56096, 1e-5);
    EXPECT_NEAR(json["ahead"], 0.345682, 1e-6);
    EXPECT_NEAR(json["even"], 0.005649, 1e-6);
    EXPECT_EQ(json["broke"], 0);
    EXPECT_EQ(json["goal"], 0);
    EXPECT_EQ(json["quantiles"].size(), 7U);
    EXPECT_EQ(json["quantiles"]["5"], -120);
    EXPECT_EQ(json["quantiles"]["99"], 788);
    EXPECT_EQ(json["lines"].size(), 9U);
    EXPECT_EQ(json["lines"][0]["description"], "ROYAL FLUSH");
    EXPECT_NEAR(json["lines"][0]["atLeastOne"], 1 - std::pow(1 - 1 / 40390.547, 1000), 1e-8);

    // 250 dollars are 200 bets of 1.25, 500 the goal of 400.
    const Json money =
        AskForJson("session 300 --hands 10000 --coin 0.25 --bankroll 250 --goal 500");
    EXPECT_NEAR(money["broke"], 0.651835, 1e-6);
    EXPECT_NEAR(money["goal"], 0.188047, 1e-6);
    EXPECT_EQ(money["quantiles"]["1"], -200);
    EXPECT_LT(money["lines"][0]["atLeastOne"], 0.15) << "of the hands that are played";
    EXPECT_EQ(money["linesAreOfAllDeals"], false);
    const Json back = AskForJson("session 300 --hands 1000 --cashback 1");
    EXPECT_NEAR(back["quantiles"]["5"], -110, 1e-9);
    const Json few = AskForJson("session 300 --hands 1000 --bet 3");
    EXPECT_NEAR(few["expected"], -16.3, 0.1) << "a royal flush pays 250 for each coin";

    const Json lines = AskForJson("session 300 --hands 10 --lines 10");
    EXPECT_NEAR(lines["deviation"], std::sqrt(10 * 10 * 37.2122), 1e-3);
    EXPECT_NEAR(lines["expected"], -0.456096, 1e-6);
    EXPECT_EQ(AskForJson("session 300 --hands 10 --lines 10 --bankroll 99")["linesAreOfAllDeals"],
              true);
}

TEST_F(SessionCommandTest, RuinIsToldForABankrollForARiskAndForGamesThatLose) {
    const Json half = AskForJson("ruin 300 --cashback 1 --risk 0.5 --coin 2");
    EXPECT_NEAR(half["bankroll"], 1092, 0.5);
    EXPECT_NEAR(half["bankrollDollars"], 10'920, 5);
    EXPECT_EQ(half["risk"], 0.5);
    EXPECT_NEAR(half["kelly"], 0.000337, 1e-6);
    ASSERT_EQ(half["bankrolls"].size(), 7U);
    EXPECT_EQ(half["bankrolls"][6]["risk"], 0.001);
    EXPECT_EQ(half["bankrolls"][0]["bankroll"], half["bankroll"]);
    const Json risk = AskForJson("ruin 300 --cashback 1 --bankroll 10920.641702 --coin 2");
    EXPECT_NEAR(risk["risk"], 0.5, 1e-8);

    // Three lines share the hold of their deal: it takes more money, and three bets a deal.
    const Json three = AskForJson("ruin 300 --cashback 1 --risk 0.5 --lines 3");
    EXPECT_NEAR(three["bankroll"], 1300, 20);
    EXPECT_EQ(three["linesAtOnce"], 3);
    EXPECT_NE(Ask("ruin 300 --cashback 1 --lines 3").output.find("3 lines at once"),
              std::string::npos);

    const Json certain = AskForJson("ruin 300 --bankroll 5000");
    EXPECT_EQ(certain["risk"], 1);
    EXPECT_EQ(certain["kelly"], 0);
    EXPECT_TRUE(certain["bankrolls"][0]["bankroll"].is_null());
    EXPECT_NE(
        Ask("ruin 300").output.find("\nRuin is certain; cash back of 0.456 % would change that.\n"),
        std::string::npos);
}

TEST_F(SessionCommandTest, TheTextHasTheSentenceAndTheTables) {
    const std::string text = Ask("session 300 --hands 1000 --bankroll 1000").output;
    for (const char* part :
         {"1,000 hands, $5,000.00 to be played\n",
          "35 of 100 such sessions end ahead; the middle one loses $125.00.\n1 in 1,000 are broke "
          "before the end.\nOn average a session costs $22.80.\n",
          "broke          0.100%\n", "       5%       -120.00   $-600.00\n",
          "ROYAL FLUSH             2.445%\n"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << text;
    }
    EXPECT_NE(Ask("session 300 --hands 1 --lines 3").output.find("\n1 deal of 3 lines, $15.00 to"),
              std::string::npos);
    EXPECT_NE(Ask("session '5 card charlie' --hands 5").output.find("five-card charlie"),
              std::string::npos);
}

TEST_F(SessionCommandTest, OtherPaysAndSpreadsheetsAreTaken) {
    const Json json = AskForJson("ruin 300 --pay 'FULL HOUSE=10' --pay FLUSH=7");
    EXPECT_GT(json["edge"], 0.01) << "10/7 returns more than it takes";
    EXPECT_EQ(json["pays"].size(), 2U);
    const std::string csv = Ask("session 300 --hands 1000 --csv").output;
    EXPECT_NE(csv.find("\nquantile,5,-120\n"), std::string::npos) << csv;
    EXPECT_NE(csv.find("\natLeastOne,ROYAL FLUSH,0.0244"), std::string::npos) << csv;
    EXPECT_NE(Ask("ruin 300 --csv").output.find("\n0.5,,\n"), std::string::npos);
    EXPECT_EQ(LinesOf("ruin 300 --csv --cashback 1 --risk 0.3").size(), 9U);
}

TEST_F(SessionCommandTest, WhatCannotBeAnsweredSaysWhy) {
    ExpectRefused("session 300", 2, {"--hands is required"});
    ExpectRefused("session 300 --hands 10000001", 2, {"--hands", "0 to 10000000"});
    ExpectRefused("session 300 --hands 5 --goal 9", 2, {"--goal", "--bankroll"});
    ExpectRefused("session 300 --hands 5 --bankroll -1", 2, {"--bankroll \"-1\"", "dollars"});
    ExpectRefused("session 300 --hands 5 --cashback 101", 2, {"--cashback", "percent"});
    ExpectRefused("session 300 --hands 5 --lines 101", 2, {"--lines", "1 to 100"});
    ExpectRefused("session 351 --hands 5", 1, {"Sneak Peak Poker", "hand"});
    ExpectRefused("ruin 300 --risk 0", 2, {"--risk", "above 0"});
    ExpectRefused("ruin 300 --risk 0.5 --bankroll 5", 2, {"--bankroll beside --risk"});
}

}  // namespace
