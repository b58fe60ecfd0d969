// Hands read from standard input, one a line.
#include <string>
#include <vector>

#include "tests/cli/ProgramTest.h"

namespace {

class LineStreamTest : public ProgramTest {
  protected:
    // What the command answers to the text, given as a file.
    Printed Stream(const std::string& command, const std::string& text) const {
        folder.Write("input", text);
        return Ask(command + " - <" + InQuotes(folder.Path("input")));
    }

    static std::vector<Json> Objects(const Printed& run) {
        std::istringstream lines(run.output);
        std::vector<Json> objects;
        for (std::string line; std::getline(lines, line);) {
            objects.push_back(Json::parse(line, nullptr, false));
        }
        return objects;
    }
};

TEST_F(LineStreamTest, BlankLinesCommentsReturnsAndAByteOrderMarkAreFine) {
    const Printed run = Stream("classify 300",
                               "\xEF\xBB\xBF"
                               "KS KH KD 9C 9S\r\n\r\n  \t\n# none\n"
                               "2S 3S 4S 5S 7S  # a flush\n\tAS KS QS JS TS #" +
                                   std::string(10'000, '!'));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.problem, "");
    const auto objects = Objects(run);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0]["line"], 3);
    EXPECT_EQ(objects[1]["line"], 4);
    EXPECT_EQ(objects[2]["line"], 0);
}

TEST_F(LineStreamTest, AWrongLineIsAnsweredByItsNumberAndTheRunGoesOn) {
    const std::string longLine(100'000, 'A');
    const Printed run = Stream("hand 300 --best", "AS KS QS JS 9H\n\nAS AS 2C 3C 4C\nnonsense\n" +
                                                      longLine + "\nKS KH KD 9C 9S\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.problem, "tolvane-cli: 3 lines are wrong: see the errors among the answers\n");
    const auto objects = Objects(run);
    ASSERT_EQ(objects.size(), 5U);
    EXPECT_EQ(objects[1]["line"], 3);
    EXPECT_EQ(objects[1]["error"], "\"AS\" is given twice: a deck holds each card once");
    EXPECT_EQ(objects[2]["line"], 4);
    EXPECT_EQ(objects[3]["line"], 5);
    EXPECT_EQ(objects[4]["mask"], 31);
}

TEST_F(LineStreamTest, AStreamAnswersWhatSingleHandsAreAnswered) {
    for (const auto& [game, cards] : {std::pair("300", "AS KS QS JS 9H"),
                                      {"350", "KS 9H TD 9C"},
                                      {"351", "AS KS QS JS 9H TS"},
                                      {"318", "AS AH AD 9C 2S"}}) {
        const std::string command = std::string("hand ") + game;
        const Printed one = Ask(command + " '" + cards + "' --json");
        EXPECT_EQ(Stream(command, cards).output, one.output);
        // The gap, from the whole analysis.
        const Json whole = Json::parse(one.output);
        double second = -1;
        for (const Json& hold : whole["holds"]) {
            if (hold["total"] == 0 || hold["mask"] == whole["best"]) continue;
            second = std::max(second, hold["return"].get<double>());
        }
        const Printed best = Stream(command + " --best", cards);
        EXPECT_EQ(KeysOf(best.output), "mask cards return gap");
        const Json json = Json::parse(best.output);
        EXPECT_EQ(json["mask"], whole["best"]);
        EXPECT_EQ(json["cards"], whole["cards"]);
        EXPECT_EQ(json["return"], whole["bestReturn"]);
        EXPECT_EQ(json["gap"].get<double>(), whole["bestReturn"].get<double>() - second);
        EXPECT_EQ(Ask(command + " '" + cards + "' --best").output, best.output);
    }
    ExpectRefused("hand 300 - --csv", 2, {"--csv beside -"});
}

// Who writes a hand into a pipe and keeps it open gets the answer before the next one.
TEST_F(LineStreamTest, APipeIsAnsweredLineByLineAndAClosedOneEndsQuietly) {
    const std::string program =
        InQuotes(TOLVANE_CLI) + " hand --data " + InQuotes(DataFolder()) + " 300 - --best";
    folder.Write("ask.sh",
                 "mkfifo in out\n" + program +
                     " <in >out 2>problem & exec 3>in 4<out\n"
                     "echo AS KS QS JS 9H >&3; read -t 20 -r answer <&4 || exit 1\n"
                     "exec 4<&-\n"
                     "for i in 1 2 3; do echo AS KS QS JS 9H >&3 || break; sleep 0.1; done "
                     "2>/dev/null\nexec 3>&-\nwait $! || exit 2\necho \"$answer\"\n");
    const std::string script =
        "cd " + InQuotes(folder.Path("")) + " && trap '' PIPE && bash ask.sh";
    const Printed run = Shell("-c \"" + script + "\"", "/bin/bash");
    EXPECT_EQ(run.status, 0) << run.problem;
    EXPECT_TRUE(run.output.starts_with("{\"mask\":30,")) << run.output;
    EXPECT_EQ(folder.Read("problem"), "");
}

}  // namespace
