// Plays hands with the built program, as a user's shell starts it.
#include <chrono>
#include <ctime>
#include <thread>

#include "tests/cli/ProgramTest.h"

namespace {

using namespace std::chrono_literals;

class AutoplayCommandTest : public ProgramTest {};

TEST_F(AutoplayCommandTest, TheSameSeedPlaysTheSameHands) {
    const Printed run = Ask("autoplay 300 --hands 2000 --seed 7 --bet 4 --coin 0.25 --json");
    EXPECT_EQ(run.status, 0) << run.problem;
    EXPECT_EQ(KeysOf(run.output),
              "game table bet coin hands seed counters lines return handsPerSecond");
    const Json json = Json::parse(run.output);
    EXPECT_EQ(json["hands"], 2000);
    EXPECT_EQ(json["seed"], 7);
    const auto& counters = json["counters"];
    EXPECT_EQ(counters.size(), 12U);
    EXPECT_EQ(counters["CreditsPlayed"], 8000);
    EXPECT_EQ(counters["HandsPlayed"], 2000);
    EXPECT_EQ(counters["PlayErrors"], 0);
    int wins = 0;
    for (const auto& line : json["lines"]) wins += line.get<int>();
    EXPECT_EQ(counters["HandsWon"], wins);
    EXPECT_NEAR(wins / 2000.0, 0.455, 0.05);
    EXPECT_DOUBLE_EQ(json["return"].get<double>(), counters["CreditsWon"].get<double>() / 8000);

    // The clock must not come in: a deck is built with it.
    const auto now = [] { return std::time(nullptr); };
    for (const auto before = now(); now() == before;) std::this_thread::sleep_for(5ms);
    const Json again = AskForJson("autoplay 300 --hands 2000 --seed 7 --bet 4");
    EXPECT_EQ(again["counters"], counters);
    EXPECT_EQ(again["lines"], json["lines"]);
    EXPECT_NE(AskForJson("autoplay 300 --hands 2000 --seed 8 --bet 4")["lines"], json["lines"]);
}

TEST_F(AutoplayCommandTest, TextIsTheStatisticsReport) {
    const Printed run = Ask("autoplay 'jacks or better' --hands 500 --seed 1");
    EXPECT_EQ(run.status, 0) << run.problem;
    EXPECT_NE(run.output.find("2,500"), std::string::npos) << "credits played";
    EXPECT_EQ(run.output.find('\r'), std::string::npos);
    EXPECT_EQ(run.output.find("second draw"), std::string::npos);
    EXPECT_NE(Ask("autoplay 318 --hands 5").output.find("no second draw"), std::string::npos);
}

TEST_F(AutoplayCommandTest, CtrlCEndsTheRunWithWhatIsPlayedSoFar) {
    // As soon as the program catches the signal; the shell that becomes the program does so too.
    const std::string line =
        "(until readlink /proc/$$/exe | grep -q tolvane-cli &&"
        " grep -q 'SigCgt.*[2367abef]$' /proc/$$/status; do :; done; kill -INT $$) & exec " +
        CommandLine("autoplay 300 --hands 5000000 --json --data " + InQuotes(DataFolder()));
    EXPECT_EQ(WEXITSTATUS(std::system(line.c_str())), 1);
    EXPECT_GT(Json::parse(folder.Read("output"), nullptr, false)["hands"], 0);
    EXPECT_NE(folder.Read("problem").find(" of 5000000 hands were played"), std::string::npos);
}

}  // namespace
