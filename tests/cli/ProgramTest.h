// The built program on pay tables of a test's own, started as a user's shell does.
#pragma once
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/core/profile/TemporaryFolder.h"

using Json = nlohmann::json;

// The pay lines of a shipped game, as its file has them.
inline std::string ShippedLines(const std::string& game) {
    std::ifstream file(TOLVANE_DATA_FOLDER "/Tolvane.ini");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const auto begin = text.find("Rank0=", text.find("\n[" + game + "(0)]"));
    return text.substr(begin, text.find("\n\n", begin) + 1 - begin);
}

// Of a key that stands twice, the first one counts. 9/6 are the pays of the usual lines.
inline std::string TableText(const std::string& section, const std::string& settings,
                             const std::string& lines = ShippedLines("Jacks or Better")) {
    return "\n[" + section + "]\n" + settings + lines;
}

inline std::string OneLine(const std::string& description) {
    return "Rank0=11\nDescr0=" + description + "\nPayout0=1\nMaxPayout0=5\nPayLines=1\n";
}

inline std::string PayTablesText() {
    return "[main]\nVer=114\n\n[User Games]\n2=9002,My Caf\xE9\n3=9003,Empty Slot\n" +
           TableText("Jacks or Better(0)", "NextIndex=3\nMinPair=11\n") +
           TableText("Jacks or Better(3)", "MinPair=11\nMaxBet=3\nMaxPayout3=40\nMaxPayout4=25\n") +
           TableText("Joker Poker - 2 Pair(0)", "UsesWilds=1\nJokers=1\n",
                     ShippedLines("Joker Poker - 2 Pair")) +
           TableText("Pick Em Poker(0)", "Type=4\nMinPair=9\n") +
           TableText("Sneak Peak Poker(0)", "MinPair=11\n") +
           TableText("Dbl Draw Bonus(0)", "Type=6\nMinPair=11\n") +
           TableText("5 Aces Bonus Poker(0)", "Type=2\n") +
           TableText("5 Card Charlie(0)", "MinPair=11\nCharlieBonus=1\n") +
           TableText("My Caf\xE9(0)", "MinPair=11\nMaxBet=10\n", OneLine("R\xC9MI"));
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
