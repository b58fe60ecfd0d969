// The built program on pay tables of a test's own, started as a user's shell does.
#pragma once
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/core/profile/TemporaryFolder.h"

using Json = nlohmann::json;

struct LineOfTable {
    int rank;
    std::string description;
    int payout;
    int maxPayout;
    bool wildsOK = false;
};

inline const std::vector<LineOfTable> kNineSix = {{0, "ROYAL FLUSH", 250, 4000},
                                                  {4, "STRAIGHT FLUSH", 50, 250},
                                                  {5, "4 OF A KIND", 25, 125},
                                                  {6, "FULL HOUSE", 9, 45},
                                                  {7, "FLUSH", 6, 30},
                                                  {8, "STRAIGHT", 4, 20},
                                                  {9, "3 OF A KIND", 3, 15},
                                                  {10, "2 PAIR", 2, 10},
                                                  {11, "JACKS OR BETTER;JACKS", 1, 5}};
inline const std::vector<LineOfTable> kJokerLines = {
    {0, "ROYAL FLUSH", 250, 5000},     {1, "5 OF A KIND", 100, 500, true},
    {3, "WILD ROYAL", 50, 250, true},  {4, "STRAIGHT FLUSH", 50, 250, true},
    {5, "4 OF A KIND", 20, 100, true}, {6, "FULL HOUSE", 10, 50, true},
    {7, "FLUSH", 6, 30, true},         {8, "STRAIGHT", 5, 25, true},
    {9, "3 OF A KIND", 2, 10, true},   {10, "2 PAIR", 1, 5, true}};

inline std::string TableText(const std::string& section, const std::string& settings,
                             const std::vector<LineOfTable>& lines) {
    std::string text = "\n[" + section + "]\n" + settings;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto& [rank, description, payout, maxPayout, wildsOK] = lines[i];
        const auto add = [&](const char* key, const std::string& value) {
            text += key + std::to_string(i) + "=" + value + "\n";
        };
        add("Rank", std::to_string(rank));
        add("Descr", description);
        add("Payout", std::to_string(payout));
        add("MaxPayout", std::to_string(maxPayout));
        add("WildsOK", wildsOK ? "1" : "0");
    }
    return text + "PayLines=" + std::to_string(lines.size()) + "\n";
}

inline std::string PayTablesText() {
    std::vector<LineOfTable> eightFive = kNineSix;
    eightFive[3].maxPayout = 40;
    eightFive[4].maxPayout = 25;
    return "[main]\nVer=114\n\n[User Games]\n2=9002,My Caf\xE9\n3=9003,Empty Slot\n" +
           TableText("Jacks or Better(0)", "NextIndex=3\nMinPair=11\n", kNineSix) +
           TableText("Jacks or Better(3)", "MinPair=11\nMaxBet=3\n", eightFive) +
           TableText("Joker Poker - 2 Pair(0)", "UsesWilds=1\nJokers=1\n", kJokerLines) +
           TableText("Pick Em Poker(0)", "Type=4\nMinPair=9\n", kNineSix) +
           TableText("Sneak Peak Poker(0)", "MinPair=11\n", kNineSix) +
           TableText("Dbl Draw Bonus(0)", "Type=6\nMinPair=11\n", kNineSix) +
           TableText("5 Aces Bonus Poker(0)", "Type=2\n", kNineSix) +
           TableText("5 Card Charlie(0)", "MinPair=11\nCharlieBonus=1\n", kNineSix) +
           TableText("My Caf\xE9(0)", "MinPair=11\n", {{11, "R\xC9MI", 1, 5}});
}

struct Printed {
    int status = -1;
    std::string output;
    std::string problem;
};

// The words of a line, one blank between them.
inline std::string Squeezed(const std::string& line) {
    std::istringstream words(line);
    std::string squeezed;
    for (std::string word; words >> word;) squeezed += (squeezed.empty() ? "" : " ") + word;
    return squeezed;
}

// The keys of a JSON object in their order, one blank between them.
inline std::string KeysOf(const std::string& output) {
    std::string keys;
    const auto json = nlohmann::ordered_json::parse(output);
    for (const auto& [key, value] : json.items()) {
        keys += (keys.empty() ? "" : " ") + key;
    }
    return keys;
}

inline std::string InQuotes(const std::string& path) { return "'" + path + "'"; }

class ProgramTest : public testing::Test {
  protected:
    ProgramTest() {
        std::filesystem::create_directory(DataFolder());
        folder.Write("data/Tolvane.ini", PayTablesText());
    }

    void ExpectDataUntouched() const {
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(DataFolder()), {}), 1);
        EXPECT_EQ(folder.Read("data/Tolvane.ini"), PayTablesText());
    }

    std::string DataFolder() const { return folder.Path("data"); }

    std::string CommandLine(const std::string& arguments,
                            const std::string& program = TOLVANE_CLI) const {
        return InQuotes(program) + " " + arguments + " >" + InQuotes(folder.Path("output")) +
               " 2>" + InQuotes(folder.Path("problem"));
    }

    // The arguments are a line of the shell.
    Printed Shell(const std::string& arguments, const std::string& program = TOLVANE_CLI) const {
        const int status = std::system(CommandLine(arguments, program).c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.Read("output"),
                folder.Read("problem")};
    }

    // A command on the pay tables of this test.
    Printed Ask(const std::string& arguments) const {
        const auto end = std::min(arguments.find(' '), arguments.size());
        return Shell(arguments.substr(0, end) + " --data " + InQuotes(DataFolder()) +
                     arguments.substr(end));
    }

    // The program prints nothing, and names the problem and what is to mend in one line.
    void ExpectRefused(const std::string& arguments, int status,
                       const std::vector<std::string>& mentions) const {
        const Printed run = Ask(arguments);
        EXPECT_EQ(run.status, status) << arguments << ": " << run.problem;
        EXPECT_EQ(run.output, "") << arguments;
        EXPECT_EQ(run.problem.find('\n'), run.problem.size() - 1) << run.problem;
        for (const std::string& text : mentions) {
            EXPECT_NE(run.problem.find(text), std::string::npos) << text << ": " << run.problem;
        }
    }

    Json AskForJson(const std::string& arguments) const {
        const Printed run = Ask(arguments + " --json");
        EXPECT_EQ(run.status, 0) << run.problem;
        EXPECT_EQ(run.problem, "");
        return Json::parse(run.output, nullptr, false);
    }

    std::vector<std::string> LinesOf(const std::string& arguments) const {
        std::istringstream output(Ask(arguments).output);
        std::vector<std::string> lines;
        for (std::string line; std::getline(output, line);) lines.push_back(line);
        return lines;
    }

    TemporaryFolder folder;  // what a program prints, and below it the data folder
};
