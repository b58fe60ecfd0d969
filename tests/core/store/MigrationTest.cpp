// Folders as a new and as an earlier release leave them, and what a start makes of them.
#include "core/store/Migration.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "core/store/DataFiles.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

using FileMap = std::map<std::string, std::string>;  // names, and what the files hold

constexpr const char* kNewProfile =
    "[main]\nVer=114\n\n[User Games]\n3=9003,User Game 3\n\n[Jacks or Better(0)]\nPayLines=9\n\n";
constexpr const char* kNewGame = "[main]\nGameID=300\n\n";
constexpr const char* kNewAnalyses = "[Jacks or Better(0)]\nER=99.54\n\n";
const FileMap kFreshFiles = {
    {"Tolvane.ini", kNewProfile}, {"Default.qdx", kNewGame}, {"Game Analyses.ini", kNewAnalyses}};

class MigrationTest : public testing::Test {
  protected:
    MigrationTest() { std::filesystem::create_directory(folder.Path(kData)); }

    void Write(const std::string& name, const std::string& text) const {
        folder.Write(kData + name, text);
    }

    void WriteShippedFiles() const {
        Write("Tolvane.114", kNewProfile);
        Write("Default.114", kNewGame);
        Write("Game Analyses.114", kNewAnalyses);
    }

    // What went wrong, one after the other.
    std::string Problems() const {
        ProfileFile file;
        std::string text;
        for (const auto& problem : MigrateDataFiles(*paths, file)) text += problem + "\n";
        return text;
    }
    void Start() const { EXPECT_EQ(Problems(), ""); }
    // For a start that cannot go on, and says so in these words.
    void ExpectStopped(const std::string& words) const {
        const FileMap before = Files();
        const std::string problems = Problems();
        EXPECT_NE(problems.find(words), std::string::npos) << problems;
        EXPECT_EQ(std::ranges::count(problems, '\n'), 1) << problems;
        EXPECT_EQ(Read("Tolvane.ini"), before.at("Tolvane.ini"));
        EXPECT_EQ(Read("Tolvane.old"), "of an earlier time");
    }

    // The program lies in a folder that its player cannot write.
    void Install() {
        paths = FindDataFiles(
            {folder.Path(std::string(kData) + "Tolvane"), false, folder.Path("share"), ""});
        ASSERT_TRUE(CreateDataFolder(*paths));
    }

    std::string Read(const std::string& name) const { return folder.Read(kData + name); }

    FileMap Files(const std::string& subfolder = kData) const {
        FileMap files;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path(subfolder))) {
            const std::string name = entry.path().filename().string();
            files[name] = folder.Read(subfolder + name);
        }
        return files;
    }

    // What a game file without them gets.
    static std::string NoneActive() {
        std::string text = "[ActiveTbl]\n";
        for (const auto& game : BuiltInGames()) {
            if (game.offered) text += std::string(game.name) + "=0\n";
        }
        return text;
    }

    static constexpr const char* kData = "Data Ü/";
    TemporaryFolder folder;
    std::optional<DataFilePaths> paths =
        FindDataFiles({folder.Path(std::string(kData) + "Tolvane"), true, "", ""});
};

TEST_F(MigrationTest, TheFirstStartMakesTheShippedFilesTheLiveOnes) {
    WriteShippedFiles();
    Start();
    EXPECT_EQ(Files(), kFreshFiles);
}

TEST_F(MigrationTest, AProgramInAFolderThatCannotBeWrittenStartsOnCopies) {
    WriteShippedFiles();
    const FileMap shipped = Files();
    Install();
    Start();
    EXPECT_EQ(Files("share/Tolvane/"), kFreshFiles);
    EXPECT_EQ(Files(), shipped);

    // And a player who brings an old release's file along is not left without pay tables.
    folder.Write("share/Tolvane/Tolvane.ini", "[User Games]\n1=401,Mine\n");
    Start();
    EXPECT_NE(folder.Read("share/Tolvane/Tolvane.ini").find("1=9001,Mine\n"), std::string::npos);
    EXPECT_NE(folder.Read("share/Tolvane/Tolvane.ini").find("PayLines=9\n"), std::string::npos);
}

TEST_F(MigrationTest, AnEarlierReleaseKeepsItsFilesAndGivesItsGamesToTheNewOnes) {
    const std::string oldProfile =
        "[main]\nCurrGame=/games/Mine.qdx\n\n"
        "[User Games]\n1=401,Café Royal\n2=\n4=404,No Table\n10=410,Empty Table\n11=411,Beyond\n\n"
        "[Café Royal]\nNextIndex=7\nRank0=0\nDescr0=ROYAL FLUSH\nPaylines=1\n\n"
        "[Empty Table]\nPayLines=0\n\n"
        "[Jacks or Better]\nPayLines=3\n\n";
    const std::string oldAnalyses =
        "[Café Royal(0)]\nER=98.1\nNothing=54.5\t1,000\nLine0=0.1\t2\t3\n\n"
        "[No Table(0)]\nER=97\n\n[Empty Table(0)]\nER=0\nNothing=1\t2\n\n"
        "[Jacks or Better(0)]\nER=1\n\n";
    Write("Tolvane.ini", oldProfile);
    Write("Game Analyses.ini", oldAnalyses);
    Write("Game Analyses.old", "of an earlier time");
    WriteShippedFiles();
    Start();
    EXPECT_EQ(Files(),
              (FileMap{{"Tolvane.old", oldProfile},
                       {"Game Analyses.old", oldAnalyses},
                       {"Default.114", kNewGame},
                       {"Tolvane.ini",
                        "[main]\nVer=114\nCurrGame=/games/Mine.qdx\n\n"
                        "[User Games]\n3=9003,User Game 3\n1=9001,Café Royal\n2=9002,\n"
                        "4=9004,No Table\n10=9010,Empty Table\n\n"
                        "[Jacks or Better(0)]\nPayLines=9\n\n"
                        "[Café Royal(0)]\nNextIndex=-1\nRank0=0\nDescr0=ROYAL FLUSH\nPaylines=1\n"
                        "PrevIndex=-1\nType=1\n\n"},
                       {"Game Analyses.ini",
                        std::string(kNewAnalyses) +
                            "[Café Royal(0)]\nER=98.1\nNothing=0;54.5;1,000\nLine0=0.1;2;3\n\n"
                            "[No Table(0)]\nER=97\nNothing=0;\n\n"}}));
}

TEST_F(MigrationTest, OldStatisticsBecomeThoseOfTheFirstTable) {
    WriteShippedFiles();
    Write("Tolvane.ini", "[User Games]\n3=403,Café Royal\n");
    Write("Default.qdx",
          "[main]\nGameName=deuces wild\nCredits=40\n\n"
          "[Deuces Wild]\nCreditsPlayed=-5\nFirstError=3\nNextError=4\n\n"
          "[Bonus Poker]\nHandsPlayed=9\n\n"
          "[Café Royal]\nCreditsPlayed=0\nFirstError=1\n\n"
          "[Bonus 5 Aces Poker]\nFirstError=2\n\n[Double Double 5 Aces Poker]\nX=1\n\n"
          "[Pick 'Em Poker]\nCreditsPlayed=8\n\n");
    Write("HOLIDAY.QDX", "[main]\nGameName=Café Royal\n\n");
    Write("Holiday.qdx", "[main]\nGameName=Pick 'Em Poker\n\n");
    Write("Fresh.qdx", "");
    Write("notes.qdx.txt", "[main]\n");
    std::filesystem::create_directory(folder.Path(std::string(kData) + "folder.qdx"));
    Start();
    EXPECT_EQ(Read("Default.qdx"),
              "[main]\nGameName=deuces wild\nCredits=40\nGameID=330\n\n"
              "[Deuces Wild(0)]\nCreditsPlayed=-5\nNextError=4\n\n"
              "[Bonus Poker]\nHandsPlayed=9\n\n"
              "[Café Royal(0)]\nCreditsPlayed=0\n\n"
              "[5 Aces Bonus Poker(0)]\nFirstError=2\n\n"
              "[5 Aces Double Double Poker(0)]\nX=1\n\n"
              "[Pick Em Poker(0)]\nCreditsPlayed=8\n\n" +
                  NoneActive() + "Café Royal=0\n\n");
    EXPECT_EQ(Read("HOLIDAY.QDX"),
              "[main]\nGameName=Café Royal\nGameID=9003\n\n" + NoneActive() + "\n");
    EXPECT_EQ(Read("Holiday.qdx"),
              "[main]\nGameName=Pick 'Em Poker\nGameID=0\n\n" + NoneActive() + "\n");
    EXPECT_EQ(Read("Fresh.qdx"), "[main]\nGameID=300\n\n" + NoneActive() + "\n");
    EXPECT_EQ(Read("notes.qdx.txt"), "[main]\n");
}

TEST_F(MigrationTest, WhatWasNotShippedIsPassedOverAndAGameFileIsNotWrittenOver) {
    const std::string game = "[Jacks or Better(0)]\nHandsPlayed=100000\n";
    Write("Tolvane.114", kNewProfile);
    Write("Default.114", kNewGame);
    Write("Default.qdx", game);
    Start();
    EXPECT_EQ(Read("Default.qdx"), game);
    EXPECT_EQ(Read("Tolvane.ini"), kNewProfile);
    EXPECT_EQ(Read("Game Analyses.ini"), "(missing)");
}

class InterruptedMigrationTest : public MigrationTest {
  protected:
    void SetUp() override {
        WriteShippedFiles();
        Write("Tolvane.ini", "[User Games]\n1=401,Mine\n");
        Write("Tolvane.old", "of an earlier time");
        Write("My Game.qdx", "[Mine]\nCreditsPlayed=1\n\n");
        Write("Played.qdx", "[Mine]\nCreditsPlayed=2\n\n");
    }
    void ExpectUpgraded() const {
        EXPECT_EQ(Read("Tolvane.ini"), std::string("[main]\nVer=114\nCurrGame=") +
                                           paths->defaultGame + "\nDataFolder=" + paths->folder +
                                           "\n\n[User Games]\n3=9003,User Game 3\n1=9001,Mine\n\n"
                                           "[Jacks or Better(0)]\nPayLines=9\n\n");
        EXPECT_EQ(Read("Tolvane.old"), "[User Games]\n1=401,Mine\n");
        EXPECT_TRUE(Read("My Game.qdx").starts_with("[Mine(0)]\nCreditsPlayed=1\n"));
        EXPECT_EQ(Read("Tolvane.114"), "(missing)");
    }
};

TEST_F(InterruptedMigrationTest, WithoutShippedPayTablesTheOnlyOnesStay) {
    std::filesystem::remove(folder.Path(std::string(kData) + "Tolvane.114"));
    ExpectStopped("Tolvane.114, are missing. Install Tolvane anew");
    EXPECT_EQ(Read("My Game.qdx"), "[Mine]\nCreditsPlayed=1\n\n");
    WriteShippedFiles();
    Start();
    ExpectUpgraded();
}

// Earlier releases renamed first, and could end there.
TEST_F(InterruptedMigrationTest, AMainProfileThatWasOnlyRenamedIsTakenUp) {
    Write("Tolvane.old", Read("Tolvane.ini"));
    std::filesystem::remove(paths->mainProfile);
    Start();
    ExpectUpgraded();

    // One of this release is no part of an upgrade.
    std::filesystem::rename(paths->mainProfile, folder.Path(std::string(kData) + "Tolvane.old"));
    WriteShippedFiles();
    Start();
    EXPECT_EQ(Read("Tolvane.ini"), kNewProfile);
}

TEST_F(InterruptedMigrationTest, WhatCannotBeBroughtOverIsNamedAndWaitedFor) {
    for (const auto& entry : std::filesystem::directory_iterator(paths->folder)) {
        chmod(entry.path().c_str(), 0666);
    }
    const std::string game = paths->folder + "My Game.qdx";
    const struct {
        std::string path;
        mode_t mode;
        const char* words;
    } obstacles[] = {{game, 0444, "My Game.qdx could not be brought over"},
                     {game, 0000, "My Game.qdx cannot be read"},
                     {paths->folder, 0555, "could not be brought over"}};
    for (const auto& [path, mode, words] : obstacles) {
        chmod(paths->folder.c_str(), 0777);
        chmod(path.c_str(), mode);
        {
            const OrdinaryUser user;
            if (!user.bound) GTEST_SKIP() << "permissions do not bind here";
            ExpectStopped(words);
        }
        chmod(path.c_str(), 0777);
    }
    // What has been brought over may be played on before the rest is.
    ProfileFile().WriteInt("ActiveTbl", "Jacks or Better", 3, paths->folder + "Played.qdx");
    Start();
    ExpectUpgraded();
    EXPECT_NE(Read("Played.qdx").find("\nJacks or Better=3\n"), std::string::npos);
}

// A start with no room for the shipped pay tables ended so once, the main profile file gone.
TEST_F(InterruptedMigrationTest, WhatAnInstalledProgramCouldNotFetchIsFetched) {
    Install();
    folder.Write("share/Tolvane/Tolvane.old", "[User Games]\n1=401,Mine\n");
    folder.Write("share/Tolvane/Game Analyses.old", "[Mine(0)]\nER=98\nNothing=5\t6\n");
    Start();
    ProfileFile file;
    EXPECT_EQ(file.GetString("User Games", "1", "", 80, paths->mainProfile), "9001,Mine");
    EXPECT_EQ(folder.Read("share/Tolvane/Game Analyses.ini"),
              std::string(kNewAnalyses) + "[Mine(0)]\nER=98\nNothing=0;5;6\n\n");
}

}  // namespace
