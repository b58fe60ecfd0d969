// Starts the built program as a user's shell does, on pay tables of its own.
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/ProgramTest.h"

namespace {

class CommandLineTest : public ProgramTest {};

TEST_F(CommandLineTest, AHandsJsonHasEveryNumberInTheFixedOrder) {
    const Printed run = Ask("hand 'jacks OR better' 'as KS Qs JS 9H' --json");
    EXPECT_EQ(KeysOf(run.output), "game gameId table bet coin cards lines best bestReturn holds");
    const Json json = Json::parse(run.output);
    EXPECT_EQ(json["gameId"], 300);
    EXPECT_EQ(json["cards"], Json::parse(R"(["AS","KS","QS","JS","9H"])"));
    EXPECT_EQ(json["lines"][8], "JACKS OR BETTER");
    EXPECT_EQ(json["holds"].size(), 32);

    // Four to a royal: one ten makes it, eight spades a flush, three tens a straight, and three
    // each of aces, kings, queens and jacks a high pair.
    EXPECT_EQ(json["best"], 30);
    EXPECT_EQ(json["bestReturn"].get<double>(), (4000 + 8 * 30 + 3 * 20 + 12 * 5) / 47.0);
    EXPECT_NE(run.output.find(R"({"mask":30,"drawn":1,"return":)"), std::string::npos);
    EXPECT_NE(run.output.find(R"("total":47,"nothing":23,"lines":[1,0,0,0,8,3,0,0,12]})"),
              std::string::npos);
}

TEST_F(CommandLineTest, TableBetAndCoinChangeWhatAHandReturns) {
    // The second table pays eight for a full house with five coins only, and takes no more than
    // three.
    const Json pat = AskForJson("hand 300 'KS KH KD 9C 9S' --table 3 --bet 2 --coin 0.25");
    EXPECT_EQ(pat["bestReturn"], 2 * 9 * 0.25);
    EXPECT_EQ(AskForJson("hand 300 'KS KH KD 9C 9S' --table 3")["bet"], 3);
}

TEST_F(CommandLineTest, SpecialDealsShowWhatTheyKnow) {
    const Json pickEm = AskForJson("hand 350 'KS KH KD 2C'");
    EXPECT_EQ(pickEm["best"], 28);

    const Json sneakPeak = AskForJson("hand 'sneak peak poker' 'AS KS QS JS 9H TS'");
    EXPECT_EQ(sneakPeak["bestReturn"], 4000);
    EXPECT_EQ(sneakPeak["holds"][30]["knownCardPosition"], 4);
    EXPECT_EQ(sneakPeak["holds"][31]["knownCardPosition"], -1);

    const Json doubleDraw = AskForJson("hand 318 'AS AH AD 9C 2S'");
    EXPECT_EQ(doubleDraw["holds"][28]["drawAgainLine"], 6);  // three aces: again unless it improves
}

TEST_F(CommandLineTest, AHandsTextListsTheHoldsBestFirst) {
    const auto lines = LinesOf("hand 300 'AS KS QS JS 9H' --coin 2");
    ASSERT_GT(lines.size(), 36U);
    EXPECT_EQ(lines[0], "Jacks or Better (300), table 0, bet 5 x $2.00");
    EXPECT_EQ(lines[1], "AS KS QS JS 9H");
    EXPECT_EQ(Squeezed(lines[4]),
              "> AS KS QS JS __ 185.5319 51.06% 47 ROY FL 1, FL 8, STR 3, PR 12");
    EXPECT_TRUE(Squeezed(lines[5]).starts_with("__ KS QS JS __ 7.1970 "));
    for (const auto& line : lines) EXPECT_LE(line.size(), 100U) << line;

    const auto pickEm = LinesOf("hand 350 'KS 9H TD 9C'");
    ASSERT_EQ(pickEm.size(), 6U);
    EXPECT_EQ(pickEm[1], "KS 9H and the piles TD or 9C");
    EXPECT_EQ(pickEm[4].substr(0, 17), ">  KS 9H __ __ 9C");

    const auto sneakPeak = LinesOf("hand 351 'AS KS QS JS 9H TS'");
    EXPECT_EQ(sneakPeak[4].substr(0, 17), ">  AS KS QS JS **");
    const auto doubleDraw = LinesOf("hand 318 'AS AH AD 9C 2S'");
    EXPECT_NE(doubleDraw[4].find(", 3K* "), std::string::npos);
    ExpectDataUntouched();
}

TEST_F(CommandLineTest, ClassifyNamesTheLineAndItsPay) {
    EXPECT_EQ(Ask("classify 300 'KS KH KD 9C 9S' --json").output,
              R"({"game":"Jacks or Better","cards":["KS","KH","KD","9C","9S"],)"
              R"("line":3,"description":"FULL HOUSE","pay":45})"
              "\n");
    EXPECT_NE(Ask("classify 300 'KS QH 8D 3C 2S' --json")
                  .output.find(R"("line":-1,"description":"","pay":0})"),
              std::string::npos);
    EXPECT_EQ(AskForJson("classify 'joker poker - 2 pair' 'W 7S 7H 7D 7C' --bet 1")["pay"], 100);
    EXPECT_EQ(AskForJson("classify 313 'A$ AS AH AD AC'")["cards"][0], "A$");
    EXPECT_EQ(AskForJson("classify 353 '5S 5H 5D 3C 3S'")["pay"], 5 * 45);  // adds up to 21
    EXPECT_EQ(Ask("classify 300 'KS KH KD 9C 9S' --coin .25").output,
              "KS KH KD 9C 9S   FULL HOUSE pays 45 coins for a bet of 5: $11.25\n");
    EXPECT_EQ(Ask("classify 300 'KS QH 8D 3C 2S'").output, "KS QH 8D 3C 2S   no win\n");
    ExpectDataUntouched();
}

TEST_F(CommandLineTest, GamesListsHiddenGamesAndThePlayersOwn) {
    const Json games = AskForJson("games");
    ASSERT_EQ(games.size(), 43U);
    EXPECT_EQ(games[0], Json::parse(R"({"id":300,"name":"Jacks or Better","tables":[0,3],
        "offered":true})"));
    EXPECT_EQ(games[42]["name"], "My Caf\xEF\xBF\xBD");  // the old file's bytes are no UTF-8
    EXPECT_EQ(games[1]["tables"], Json::array());

    const auto lines = LinesOf("games");
    ASSERT_EQ(lines.size(), 44U);
    EXPECT_EQ(Squeezed(lines[37]), "351 Sneak Peak Poker 1 no");
    EXPECT_EQ(AskForJson("classify 9002 'KS AH AD 9C 8S'")["pay"], 5);
    ExpectDataUntouched();
}

TEST_F(CommandLineTest, HelpAndVersionAnswerOnStandardOutput) {
    for (const char* arguments : {"help", "--help", "help help", "help hand", "hand --help"}) {
        const Printed run = Shell(arguments);
        EXPECT_EQ(run.status, 0) << arguments;
        EXPECT_EQ(run.problem, "") << arguments;
        EXPECT_NE(run.output.find("CARDS"), std::string::npos) << arguments;
    }
    EXPECT_TRUE(Shell("--version").output.starts_with("tolvane-cli 1."));
    const Printed nothing = Shell("");
    EXPECT_EQ(nothing.status, 2);
    EXPECT_EQ(nothing.output, Shell("help").output);
    EXPECT_NE(nothing.problem, "");
    EXPECT_EQ(Shell("help hand").output, Shell("hand --help").output);
    const Printed unknown = Shell("help hnd");
    EXPECT_EQ(unknown.status, 2);
    EXPECT_NE(unknown.problem.find("\"hand\""), std::string::npos);
}

TEST_F(CommandLineTest, BadInputIsNamedInOneLineWithItsMend) {
    const struct {
        const char* arguments;
        int status;
        std::vector<std::string> mentions;
    } bad[] = {
        {"hand 300 'AS KS QS as 9H'", 2, {"\"as\"", "twice"}},
        {"hand 350 'AS KS QS JS 9H'", 2, {"5 cards", "4 are needed"}},
        {"hand 351 'AS KS QS JS 9H'", 2, {"5 cards", "6 are needed"}},
        {"hand 'jaks or beter' 'AS'", 2, {"\"jaks or beter\"", "\"Jacks or Better\""}},
        {"hand joker 'AS'", 2, {"\"joker\"", "\"2 Joker Poker\", "}},
        {"hand \"$(printf 'a\\nb')\" 'AS'", 2, {"\"a?b\""}},
        {"hand '' 'AS'", 2, {"unknown game \"\""}},
        {"hand 322 'AS'", 2, {"\"322\"", "300 to 356"}},
        {"hand 300 'AS KS QS JS 9H' --table 1", 1, {"no table 1", "0 or 3"}},
        {"hand 301 'AS KS QS JS 9H'", 1, {"\"Bonus Poker\" has no pay table in", "Tolvane.ini"}},
        {"hand 9003 'AS KS QS JS 9H'", 1, {"\"Empty Slot\" has no pay table"}},
        {"hand 300 'AS KS QS JS 9H' --table x", 2, {"--table \"x\"", "whole number"}},
        {"hand 300 'AS KS QS JS 9H' --bet 0", 2, {"--bet 0", "1 to 5"}},
        {"hand 300 'AS KS QS JS 9H' --bet 4 --table 3", 2, {"--bet 4", "1 to 3"}},
        {"hand 300 'AS KS QS JS 9H' --bet 5x", 2, {"--bet \"5x\"", "whole number"}},
        {"hand 300 'AS KS QS JS 9H' --bet 1 --bet 2", 2, {"--bet"}},
        {"classify 300 'AS KS QS JS 9H' --coin abc", 2, {"--coin \"abc\"", "0.25"}},
        {"games --coin 1e999", 2, {"--coin \"1e999\""}},
        {"games --bet 5", 2, {"unknown option \"--bet\"", "help games"}},
        {"analyze", 2, {"GAME is required"}},
        {"analyze 300 --all", 2, {"\"300\" beside --all"}},
        {"analyze 351", 1, {"not available for \"Sneak Peak Poker\""}},
        {"analyze --all --table 9", 1, {"no game has a table 9"}},
        {"analyze 300 --summary --json", 2, {"\"--json\" is no file"}},
        {"analyze 300 --summary x --detail ./x", 2, {"the same file"}},
        {"analyze --all --summary nowhere", 2, {"name a folder"}},
        {"autoplay 300", 2, {"--hands is required"}},
        {"autoplay 300 --hands 0", 2, {"--hands \"0\"", "from 1 to 2147483647"}},
        {"autoplay 300 --hands 5 --seed -1", 2, {"--seed \"-1\"", "from 0 to 4294967295"}},
        {"hand 300 AS KS QS JS 9H", 2, {"\"KS\"", "between quotes"}},
        {"hand 300", 2, {"CARDS", "help hand"}},
        {"hand", 2, {"GAME", "help hand"}},
        {"hand 300 'AS KS QS JS 9H' --coin --json", 2, {"--coin \"--json\""}},
        {"--json", 2, {"\"--json\"", "follow the command"}},
        {"clasify 300 'AS'", 2, {"\"clasify\"", "\"classify\""}},
    };
    for (const auto& [arguments, status, mentions] : bad) {
        ExpectRefused(arguments, status, mentions);
    }
}

TEST_F(CommandLineTest, TheReleaseFileServesUntilThereIsAMainFile) {
    const std::string program = folder.Path("data/tolvane-cli");
    std::filesystem::copy_file(TOLVANE_CLI, program);
    const auto expect = [&](int status, const char* mention) {
        const std::string hand = "hand 300 'AS KS QS JS 9H'";
        for (const Printed& run : {Shell(hand, program), Ask(hand)}) {
            EXPECT_EQ(run.status, status) << run.problem;
            EXPECT_NE(run.problem.find(mention), std::string::npos) << run.problem;
        }
    };
    expect(0, "");
    std::filesystem::rename(folder.Path("data/Tolvane.ini"), folder.Path("data/Tolvane.114"));
    expect(0, "");
    // One that is there counts, even if nothing can be read from it.
    std::filesystem::create_directory(folder.Path("data/Tolvane.ini"));
    expect(1, "/data/Tolvane.ini\" cannot be read");
    std::filesystem::remove(folder.Path("data/Tolvane.ini"));
    folder.Write("data/Tolvane.ini", "[main]\nVer=114\n");
    expect(1, "no pay table");
    std::filesystem::remove(folder.Path("data/Tolvane.114"));
    std::filesystem::remove(folder.Path("data/Tolvane.ini"));
    expect(1, "/data\" nor Tolvane.114");
    expect(1, "with --data");
}

TEST_F(CommandLineTest, NoAnswerTakesThePlaceOfAFileOfTheProgram) {
    const std::string main = folder.Path("data/Tolvane.ini");
    for (const char* name : {"elsewhere", "results", "programs", "player/Tolvane"}) {
        std::filesystem::create_directories(folder.Path(name));
    }
    const std::string program = folder.Path("programs/tolvane-cli");
    std::filesystem::copy_file(TOLVANE_CLI, program);
    folder.Write("programs/installed", "");  // the data are the player's
    setenv("XDG_DATA_HOME", folder.Path("player").c_str(), 1);
    folder.Write("elsewhere/Mine.QDX", "[main]\n");
    std::filesystem::create_symlink(main, folder.Path("link.txt"));
    std::filesystem::create_symlink(main, folder.Path("results/Jacks or Better(0) Detail.txt"));
    std::filesystem::create_hard_link(main, folder.Path("twin.txt"));
    for (const char* place :
         {"data/../data/Tolvane.ini", "link.txt", "twin.txt", "results", "data/Default.qdx",
          "data/Game Analyses.ini", "elsewhere/Mine.QDX", "programs/tolvane-cli",
          "programs/Tolvane.114", "player/Tolvane/Tolvane.ini"}) {
        const Printed run = Shell("analyze 300 --data " + InQuotes(DataFolder()) + " --detail " +
                                      InQuotes(folder.Path(place)),
                                  program);
        EXPECT_EQ(run.status, 2) << place;
        EXPECT_NE(run.problem.find("program's data"), std::string::npos) << place << run.problem;
    }
    unsetenv("XDG_DATA_HOME");
    ExpectDataUntouched();
    EXPECT_EQ(folder.Read("elsewhere/Mine.QDX"), "[main]\n");
    EXPECT_EQ(Ask("analyze 9002 --summary " + InQuotes(folder.Path("data/x.txt"))).status, 0);
}

TEST_F(CommandLineTest, AnAnswerThatCannotBeWrittenIsAFailure) {
    const std::string line = InQuotes(TOLVANE_CLI) + " help >/dev/full 2>/dev/null";
    EXPECT_EQ(WEXITSTATUS(std::system(line.c_str())), 1);
}

}  // namespace
