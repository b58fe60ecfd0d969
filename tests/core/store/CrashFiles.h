// The files that a program finds which is to be killed, as a new one, an old one or a player has
// left them.
#pragma once
#include <map>
#include <string>

#include "core/profile/ProfileFile.h"

namespace crash {

using FileMap = std::map<std::string, std::string>;  // names with their folder, and contents

inline constexpr const char* kMain = "data/Tolvane.ini";
inline constexpr const char* kDefault = "data/Default.qdx";
inline constexpr const char* kOther = "data/Other.qdx";
inline constexpr const char* kCache = "data/Game Analyses.ini";

// A shipped table under a name.
inline std::string TableText(const std::string& shipped, const std::string& name) {
    ProfileFile file;
    return "[" + name + "]\n" + *file.GetSectionText(shipped, TOLVANE_DATA_FOLDER "/Tolvane.ini");
}

inline std::string NewMain() {
    std::string text = "[main]\nVer=114\n\n";
    for (const auto* name : {"Jacks or Better(0)", "Deuces Wild(0)"}) text += TableText(name, name);
    return text;
}

inline FileMap NewFiles(const std::string& folder) {
    return {{folder + "Tolvane.114", NewMain()},
            {folder + "Default.114", "[main]\nGameID=300\n\n"},
            {folder + "Game Analyses.114", "[Jacks or Better(0)]\nER=99.54\n\n"}};
}

inline FileMap WithOldFiles(FileMap files, const std::string& folder) {
    files[folder + "Tolvane.ini"] = "[main]\nCurrGame=" + folder +
                                    "Default.qdx\n\n[User Games]\n1=401,Mine\n\n[Mine]\n" +
                                    "PayLines=1\nRank0=0\nPayout0=250\n\n";
    files[folder + "Tolvane.old"] = files[folder + "Game Analyses.old"] = "of an earlier time\n";
    files[folder + "Game Analyses.ini"] = "[Mine(0)]\nER=98\nNothing=54\t1,000\n\n";
    files[folder + "Default.qdx"] =
        "[main]\nGameName=Mine\nCredits=40\n\n[Mine]\nCreditsPlayed=5\n\n";
    files[folder + "Holiday.qdx"] = "[Deuces Wild]\nCreditsPlayed=7\nFirstError=1\n\n";
    files[folder + "Third.qdx"] = "[Pick 'Em Poker]\nCreditsPlayed=9\n\n";
    return files;
}

// 100 dollars in quarters.
inline std::string SavedGame(const std::string& game = "Jacks or Better") {
    return "[main]\nMode=1\nCoin=0.25\nCredits=400\nBet=5\nGameName=" + game +
           "\nDoubleUp=0\n\n[Mine(0)]\nHandsPlayed=70\n\n[Mine(1)]\nHandsPlayed=71\n\n";
}

inline FileMap Played() {
    return {
        {kMain, NewMain()},
        {kDefault, SavedGame()},
        {kOther, "[main]\nMode=1\nCoin=1.00\nCredits=7\n\n[Jacks or Better(0)]\nHandsPlayed=3\n\n"},
        {kCache, ""}};
}

// The player has a game of two tables, and both are analysed.
inline FileMap WithOwnGame() {
    FileMap files = Played();
    std::string first = TableText("Jacks or Better(0)", "Mine(0)");
    std::string second = TableText("Jacks or Better(0)", "Mine(1)");
    first.replace(first.find("Index=-1") + 6, 2, "1");
    second.replace(second.find("PrevIndex=-1") + 10, 2, "0");
    files[kMain] += "[User Games]\n1=9001,Mine\n\n" + first + second;
    files[kOther] = SavedGame();
    files[kCache] = "[Mine(0)]\nER=99.54\n\n[Mine(1)]\nER=98.00\n\n";
    return files;
}

inline FileMap WithOwnGamePlayed() {
    FileMap files = WithOwnGame();
    files[kDefault] = SavedGame("Mine");
    return files;
}

}  // namespace crash
