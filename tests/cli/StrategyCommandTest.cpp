// Grades and makes strategy charts with the built program, as a user's shell starts it.
#include "tests/cli/ProgramTest.h"

namespace {

class StrategyCommandTest : public ProgramTest {
  protected:
    // The path of a chart, fit for a line of the shell.
    std::string ChartFile(const std::string& text) const {
        folder.Write("chart.txt", text);
        return InQuotes(folder.Path("chart.txt"));
    }
};

constexpr const char* kShort =
    "pat straight or better\nthree of a kind\nhigh pair\nhigh pair, of K\npair\n4 to a flush\n"
    "2 high cards\n1 high card\n";

TEST_F(StrategyCommandTest, AChartIsGradedLineByLine) {
    const Json json = AskForJson("strategy 300 --check " + ChartFile(kShort));
    EXPECT_EQ(KeysOf(json.dump()),
              "ambiguousHands best game loss return returnBestReading rows table");
    EXPECT_NEAR(json["best"].get<double>(), 99.543904, 1e-6);
    EXPECT_NEAR(json["best"].get<double>() - json["return"].get<double>(),
                json["loss"].get<double>(), 1e-9);
    EXPECT_GT(json["returnBestReading"], json["return"]);
    EXPECT_GT(json["ambiguousHands"], 0);
    EXPECT_EQ(json["rows"].size(), 8U);
    EXPECT_EQ(json["rows"][1]["text"], "three of a kind");
    EXPECT_EQ(json["rows"][1]["hands"], 54'912);
    EXPECT_EQ(json["rows"][3]["hands"], 0);
    EXPECT_EQ(json["rows"][3]["example"], "");

    const std::string text = Ask("strategy 300 --check " + ChartFile(kShort)).output;
    EXPECT_NE(text.find("Never reached: line 4\n"), std::string::npos) << text;
    EXPECT_NE(text.find("the worst counts"), std::string::npos);
    EXPECT_NE(text.find("(none: discards everything)"), std::string::npos);
}

TEST_F(StrategyCommandTest, ACardIsReadBackAsTheSameChart) {
    const std::string card = folder.Path("card.txt");
    const Json made =
        AskForJson("strategy 'my caf\xE9' --lines 2 --no-penalties --card " + InQuotes(card));
    ASSERT_FALSE(made["rows"].empty());
    EXPECT_LE(made["rows"].size(), 2U);
    const std::string text = folder.Read("card.txt");
    EXPECT_EQ(text.find("# My Caf"), 0U) << text;
    EXPECT_NE(text.find("\n# PR 1\n"), std::string::npos) << text;
    const Json read = AskForJson("strategy 9002 --check " + InQuotes(card));
    ExpectRefused("strategy 9002 --check " + InQuotes(card) + " --card " + InQuotes(card), 2,
                  {"would replace the chart"});
    EXPECT_EQ(read["rows"], made["rows"]);
    EXPECT_EQ(read["return"], made["return"]);
    ExpectDataUntouched();
}

TEST_F(StrategyCommandTest, WhatCannotBeDoneIsRefused) {
    ExpectRefused("strategy 300 --check " + ChartFile("pair\n4 to a gutshot\n"), 2,
                  {"line 2", "word 4", "\"gutshot\"", "straight"});
    ExpectRefused("strategy 300 --check " + InQuotes(folder.Path("none")), 1, {"cannot be read"});
    ExpectRefused("strategy 350", 1, {"Pick Em Poker", "piles", "hand"});
    ExpectRefused("strategy 351", 1, {"Sneak Peak Poker", "first draw card"});
    ExpectRefused("strategy 300 --lines 0", 2, {"--lines", "1 to 75"});
    ExpectRefused("strategy 300 --loss -1", 2, {"--loss", "percent"});
    ExpectRefused("strategy 300 --lines 5 --loss 1", 2, {"--lines beside --loss"});
    ExpectRefused("strategy 300 --lines 5 --check x", 2, {"--check"});
    ExpectRefused("strategy 300 --card " + InQuotes(folder.Path("data/Tolvane.ini")), 2,
                  {"would replace"});
    ExpectDataUntouched();
}

}  // namespace
