// Other pays and other forms of the answer, asked for on the command line.
#include <map>
#include <string>
#include <vector>

#include "tests/cli/ProgramTest.h"

namespace {

class PaysTest : public ProgramTest {};

// The published returns of these pays; 8/5 is what both changes together make.
TEST_F(PaysTest, PublishedReturnsOfOtherPays) {
    const std::map<std::string, std::string> returns = {
        {"--pay FLUSH=5", "98.449"},
        {"--pay 'full house=8' --pay 4=5", "97.298"},
        {"--pay 'Jacks or Better=1:10' --pay 8=1:5", "99.543"}};  // back to what it was
    for (const auto& [pays, percent] : returns) {
        const Json json = Json::parse(Ask("analyze 300 --json " + pays).output);
        EXPECT_EQ(std::to_string(json["payoutPercent"].get<double>()).substr(0, 6), percent);
    }
}

TEST_F(PaysTest, EachHeadingShowsThePaysAndTheFullBetIsFiveTimesACoin) {
    const std::string given = " --pay FLUSH=7 --pay 'ROYAL FLUSH=250:4001' ";
    const std::string heading = ", with ROYAL FLUSH=250:4001, FLUSH=7";
    folder.Write("chart.txt", "high pair\n");
    const std::string chart = InQuotes(folder.Path("chart.txt"));
    const std::vector<std::string> commands = {
        "hand 300 'AS KS QS JS 9H'", "classify 300 'AS KS QS JS 9S'", "analyze 300",
        "strategy 300 --check " + chart, "autoplay 300 --hands 10 --seed 1"};
    for (const std::string& command : commands) {
        const Printed run = Ask(command + given);
        EXPECT_EQ(run.problem, "");
        EXPECT_NE(run.output.substr(0, run.output.find('\n')).find(heading), std::string::npos)
            << run.output;
        const Json pays = Json::parse(Ask(command + given + "--json").output)["pays"];
        EXPECT_EQ(pays.dump(),
                  R"([{"description":"ROYAL FLUSH","line":0,"maxPayout":4001,"payout":250},)"
                  R"({"description":"FLUSH","line":4,"maxPayout":35,"payout":7}])");
    }
    EXPECT_EQ(AskForJson("classify 300 'AS KS QS JS 9S' --bet 2 --pay FLUSH=7:1")["pay"], 14);
    EXPECT_EQ(AskForJson("classify 300 'AS KS QS JS 9S' --pay FLUSH=7:1")["pay"], 1);
    ExpectDataUntouched();
}

TEST_F(PaysTest, WrongPaysAreRefusedWithTheirMend) {
    const std::map<std::string, std::vector<std::string>> wrong = {
        {"FLUSHH=5", {"no line \"FLUSHH\"", "did you mean \"FLUSH\""}},
        {"9=5", {"0 to 8"}},
        {"FLUSH", {"\"FLUSH=5\""}},
        {"FLUSH=-1", {"pays 0 or more"}},
        {"FLUSH=1.5", {"whole number"}},
        {"FLUSH=", {"whole number"}},
        {"FLUSH=429496730", {"at most 429496729 a coin"}},
        {"FLUSH=1:2147483648", {"at most 2147483647 coins"}}};
    for (const auto& [pay, mentions] : wrong) {
        ExpectRefused("hand 300 'AS KS QS JS 9H' --pay '" + pay + "'", 2, mentions);
    }
    ExpectRefused("analyze 300 --pay FLUSH=5 --cache", 2, {"--cache beside --pay"});
    ExpectRefused("analyze --all --pay XYZ=5", 2, {"no game has a line \"XYZ\""});
    ExpectRefused("hand 300 'AS KS QS JS 9H' --json --csv", 2, {"--json beside --csv"});
    EXPECT_EQ(AskForJson("classify 300 'AS KS QS JS 9S' --pay 4=429496729")["pay"], 2147483645);
}

TEST_F(PaysTest, ThatALastPayCountsAndWhereNoneFitsIsSaid) {
    const Printed twice = Ask("classify 300 'AS KS QS JS 9S' --pay FLUSH=7 --pay 4=8 --json");
    EXPECT_EQ(twice.status, 0);
    EXPECT_EQ(Json::parse(twice.output)["pay"], 40);
    EXPECT_EQ(twice.problem,
              "tolvane-cli: --pay \"4=8\" takes the place of \"FLUSH=7\": the last for a line "
              "counts\n");

    const Printed all = Ask("analyze --all --pay '2 Pair=3'");
    EXPECT_EQ(all.status, 0);
    EXPECT_TRUE(all.output.starts_with("Where there is such a line: 2 PAIR=3\n\n"));
    EXPECT_NE(all.problem.find("no such line in \"My Caf"), std::string::npos) << all.problem;
    EXPECT_EQ(all.problem.find("\"Jacks or Better\""), std::string::npos) << all.problem;
}

TEST_F(PaysTest, CsvHasTheTitlesFirstAndNumbersInFull) {
    folder.Write("chart.txt", "high pair\n");
    const std::map<std::string, std::string> titles = {
        {"games", "id,name,tables,offered"},
        {"hand 300 'AS KS QS JS 9H'",
         "mask,hold,return,winRate,drawn,total,nothing,ROYAL FLUSH,STRAIGHT FLUSH,4 OF A KIND,"
         "FULL HOUSE,FLUSH,STRAIGHT,3 OF A KIND,2 PAIR,JACKS OR BETTER"},
        {"analyze 300", "line,description,payout,maxPayout,probability,percentReturn,variance"},
        {"analyze --all", "id,game,table,payoutPercent,variance,initHandsTotal,seconds"},
        {"strategy 300 --check " + InQuotes(folder.Path("chart.txt")),
         "line,text,hands,loss,example"},
        {"autoplay 300 --hands 5 --seed 1", "kind,name,value"}};
    for (const auto& [command, title] : titles) {
        EXPECT_EQ(LinesOf(command + " --csv")[0], title);
    }
    EXPECT_EQ(LinesOf("hand 300 'AS KS QS JS 9H' --csv")[1],
              "30,AS KS QS JS __,92.76595744680851,0.5106382978723404,1,47,23,1,0,0,0,8,3,0,0,12");

    folder.Write("data/Tolvane.ini",
                 PayTablesText() + TableText("Bonus Poker(0)", "", OneLine("=1+\"1\",2")));
    EXPECT_EQ(LinesOf("analyze 'Bonus Poker' --csv")[1].substr(0, 20),
              "0,\"'=1+\"\"1\"\",2\",1,5,");
}

}  // namespace
