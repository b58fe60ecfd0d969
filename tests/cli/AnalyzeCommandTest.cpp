// Starts the built program as a user's shell does, and looks at what it leaves behind.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/cli/ProgramTest.h"

namespace {

constexpr const char* kCache = "data/Game Analyses.ini";

class AnalyzeCommandTest : public ProgramTest {
  protected:
    // Asks with the named file of the test behind an option.
    Printed AskWithFile(const std::string& arguments, const std::string& file) const {
        return Ask(arguments + " " + InQuotes(folder.Path(file)));
    }

    std::string FirstLine(const std::string& file) const {
        const std::string text = folder.Read(file);
        return text.substr(0, text.find('\n'));
    }
};

TEST_F(AnalyzeCommandTest, JsonHasTheKnownFiguresOfJacksOrBetterInTheFixedOrder) {
    const Printed run = Ask("analyze 'jacks or better' --json");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.problem, "");  // no progress where no terminal shows it
    const auto json = Json::parse(run.output);
    EXPECT_EQ(KeysOf(run.output),
              "game gameId table bet coin er cost payoutPercent variance initHands initHandsTotal "
              "representatives denominator lines nothing seconds");
    EXPECT_NEAR(json["payoutPercent"].get<double>(), 99.543904, 5e-7);
    EXPECT_NEAR(json["variance"].get<double>(), 19.5147, 5e-5);

    // Whole numbers without a point or an exponent.
    for (const char* text :
         {R"("initHandsTotal":2598960,"representatives":135746,"denominator":19933230517200,)",
          R"({"description":"ROYAL FLUSH","payout":800,"final":[4,)", R"("summary":493512264,)"}) {
        EXPECT_NE(run.output.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(json["nothing"]["summary"], 10'872'274'993'896);
}

TEST_F(AnalyzeCommandTest, FiveCoinsAreAnalysedWhateverTheTableTakes) {
    const Json json = AskForJson("analyze 300 --table 3 --coin 0.25");  // 8/5, of three coins
    EXPECT_EQ(json["cost"], 1.25 * 2'598'960);
    EXPECT_NEAR(json["payoutPercent"].get<double>(), 97.2984, 5e-5);
}

TEST_F(AnalyzeCommandTest, TextShowsTheReturnTheLinesAndTheDraws) {
    const auto lines = LinesOf("analyze 300");
    ASSERT_EQ(lines.size(), 27U);
    EXPECT_EQ(lines[0], "Jacks or Better (300), table 0, bet 5 x $1.00");
    EXPECT_EQ(lines[2],
              "Return    99.543904%: $12,935,531.29 for $12,994,800.00, every starting hand played "
              "once");
    EXPECT_EQ(Squeezed(lines[7]), "ROYAL FLUSH 800 1:40,390.55 0.00248% 1.981% 15.8059 #");
    EXPECT_EQ(Squeezed(lines[16]), "NOTHING 0 1:1.83 54.54347% 0.000% 0.5405");
    EXPECT_EQ(Squeezed(lines[17]), "total 99.544% 19.5147");
    EXPECT_EQ(Squeezed(lines[20]), "0 19,488 0.750% 100.00%");
}

TEST_F(AnalyzeCommandTest, OnlyTheNamedFilesAreWritten) {
    const std::string summary = InQuotes(folder.Path("summary"));
    EXPECT_EQ(AskWithFile("analyze 300 --summary " + summary + " --detail", "detail").status, 0);
    EXPECT_EQ(FirstLine("summary"), "Coin;1.00");
    EXPECT_TRUE(FirstLine("detail").starts_with("Hand;BestPlay;CardsDrawn;ER;"));
    EXPECT_EQ(std::ranges::count(folder.Read("detail"), '\n'), 1 + 135'746);
    ExpectRefused("analyze 300 --summary " + InQuotes(folder.Path("data/Tolvane.ini")), 2,
                  {"program's data"});
    ExpectDataUntouched();

    // A folder takes a file of the game's name.
    EXPECT_EQ(AskWithFile("analyze 9002 --summary", "").status, 0);
    EXPECT_EQ(FirstLine("My Caf\xE9(0) Summary.txt"), "Coin;1.00");
}

TEST_F(AnalyzeCommandTest, AnOlderFileGivesItsPlaceOnlyToAWholeOne) {
    for (const char* file : {"summary", "detail"}) {
        folder.Write(file, "old");
        std::filesystem::create_hard_link(folder.Path(file), folder.Path(file) + ".twin");
    }
    const std::string files = "analyze 9002 --summary " + InQuotes(folder.Path("summary")) +
                              " --detail " + InQuotes(folder.Path("detail"));
    const std::string line = CommandLine(files + " --data " + InQuotes(DataFolder()));
    EXPECT_NE(std::system(("ulimit -f 0; trap '' XFSZ; exec " + line).c_str()), 0);
    EXPECT_EQ(folder.Read("summary") + folder.Read("detail"), "oldold");
    EXPECT_EQ(Ask(files).status, 0);
    EXPECT_EQ(FirstLine("summary"), "Coin;1.00");
    EXPECT_EQ(FirstLine("detail").substr(0, 5), "Hand;");
    EXPECT_EQ(folder.Read("summary.twin") + folder.Read("detail.twin"), "oldold");
}

// A file that were put in the place of the one the report goes to would not get it.
TEST_F(AnalyzeCommandTest, TheOwnOutputTakesASummaryBeforeTheReport) {
    const std::string arguments = " analyze 9002 --summary /dev/stdout --data ";
    const std::string line = InQuotes(TOLVANE_CLI) + arguments + InQuotes(DataFolder());
    EXPECT_EQ(std::system((line + " | cat >" + InQuotes(folder.Path("piped"))).c_str()), 0);
    folder.Write("added", "before\n");
    EXPECT_EQ(std::system((line + " >>" + InQuotes(folder.Path("added"))).c_str()), 0);
    const std::string text = folder.Read("piped");
    const std::string report = "\nMy Caf\xE9 (9002), table 0";
    EXPECT_TRUE(text.starts_with("Coin;1.00\n") && text.find(report) != std::string::npos) << text;
    EXPECT_EQ(FirstLine("added"), "before");
    EXPECT_NE(folder.Read("added").find("\nCoin;1.00\n"), std::string::npos);
    EXPECT_NE(folder.Read("added").find(report), std::string::npos);
}

TEST_F(AnalyzeCommandTest, AFileThatCannotBeWrittenIsAFailureBesideTheAnswer) {
    for (const char* option : {"--summary /dev/full", "--detail /dev/full", "--summary ''"}) {
        const Printed run = Ask(std::string("analyze 9002 --json ") + option);
        EXPECT_EQ(run.status, 1) << option;
        EXPECT_NE(run.problem.find("could not be written"), std::string::npos) << run.problem;
        EXPECT_EQ(Json::parse(run.output, nullptr, false)["gameId"], 9002) << option;
    }
    const Printed both = Ask("analyze 9002 --summary no/such --detail no/such-either");
    EXPECT_EQ(std::ranges::count(both.problem, '\n'), 2) << both.problem;
}

TEST_F(AnalyzeCommandTest, TheCacheIsCreatedAndKeepsWhatElseItHolds) {
    EXPECT_EQ(Ask("analyze 9002 --cache").status, 0);
    EXPECT_TRUE(folder.Read(kCache).starts_with("[My Caf\xE9(0)]\nCoin=1.00\nER="))
        << folder.Read(kCache);
    folder.Write(kCache, "[Other(1)]\nER=7\n");
    EXPECT_EQ(Ask("analyze 9002 --cache --coin 2").status, 0);
    EXPECT_TRUE(folder.Read(kCache).starts_with("[Other(1)]\nER=7\n\n[My Caf\xE9(0)]\nCoin=2.00"))
        << folder.Read(kCache);

    std::filesystem::remove(folder.Path(kCache));
    std::filesystem::create_directory(folder.Path(kCache));
    const Printed run = Ask("analyze 9002 --cache");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.problem.find("Game Analyses.ini"), std::string::npos) << run.problem;
    EXPECT_NE(run.output, "");
}

TEST_F(AnalyzeCommandTest, AllGamesAreAnalysedButThoseThatCannotBe) {
    // One to analyse, one that cannot be, and one of the player's with a single line.
    folder.Write("data/Tolvane.ini",
                 "[User Games]\n1=9001,High Aces\n" +
                     TableText("Jacks or Better(0)", "MinPair=11\n") +
                     TableText("Sneak Peak Poker(0)", "MinPair=11\n") +
                     TableText("High Aces(0)", "MinPair=14\n", OneLine("ACES")));
    const Printed run = AskWithFile("analyze --all --cache --json --summary", "");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.problem.find("\"Sneak Peak Poker\" is passed over"), std::string::npos);
    const Json json = Json::parse(run.output, nullptr, false);
    ASSERT_EQ(json.size(), 2U);
    EXPECT_EQ(json[1]["gameId"], 9001);
    EXPECT_EQ(FirstLine("High Aces(0) Summary.txt"), "Coin;1.00");
    EXPECT_NE(folder.Read(kCache).find("[High Aces(0)]"), std::string::npos);

    const auto lines = LinesOf("analyze --all");
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_TRUE(Squeezed(lines[1]).starts_with("300 Jacks or Better 99.5439% 19.5147 2,598,960 "));
    EXPECT_TRUE(lines[4].starts_with("2 games in "));
}

// The reader of the details presses Ctrl+C while the program waits for it to go on reading.
TEST_F(AnalyzeCommandTest, CtrlCLeavesWhatIsDoneSoFar) {
    const std::string pipe = InQuotes(folder.Path("pipe"));
    const std::string line = "mkfifo " + pipe + "; (head -n 3; kill -INT $$; cat) <" + pipe +
                             " >/dev/null & exec " +
                             CommandLine("analyze 300 --json --data " + InQuotes(DataFolder()) +
                                         " --cache --detail " + pipe);
    EXPECT_EQ(WEXITSTATUS(std::system(line.c_str())), 1);
    const Json json = Json::parse(folder.Read("output"), nullptr, false);
    EXPECT_GT(json["initHandsTotal"], 0);
    EXPECT_LT(json["initHandsTotal"], 2'598'960);
    EXPECT_NE(folder.Read("problem").find("only a part of the hands"), std::string::npos);
    EXPECT_NE(folder.Read(kCache).find("[Jacks or Better(0)]\nCoin=1.00\n"), std::string::npos);
}

}  // namespace
