#include "game/FileCommands.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "game/GameSelection.h"
#include "game/SaveGame.h"
#include "game/StartAndStop.h"
#include "tests/core/profile/FullDisk.h"
#include "tests/game/FakePorts.h"

namespace fs = std::filesystem;

namespace {

constexpr rlim_t kRoom = 100;

class FileCommandsTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(SaveGame(t, false)); }

    std::string Path(const std::string& name) const { return t.machine.folder.Path(name); }
    // As the next program finds it.
    static std::string Stored(const std::string& path, std::string_view section,
                              std::string_view key) {
        return ProfileFile().GetString(section, key, "(none)", 80, path);
    }
    static int Credits(const std::string& path) {
        return ProfileFile().GetInt("main", "Credits", -1, path);
    }
    // How often the player was told of a problem.
    std::ptrdiff_t TimesTold() {
        const auto told = std::ranges::count_if(
            t.log, [](const std::string& line) { return line.starts_with("told "); });
        t.log.clear();
        return told;
    }

    TestTable t;
    GameFiles& files = t.machine.files;
    const std::string game = files.gamePath;
};

TEST_F(FileCommandsTest, AFailedSaveIsToldOnceUntilOneSucceeds) {
    t.engine.settings.credits = 250;
    {
        const FullDisk disk(kRoom);
        EXPECT_FALSE(SaveGame(t, false));
        EXPECT_NE(t.log.back().find(game), std::string::npos);
        EXPECT_FALSE(SaveGame(t, false));
        EXPECT_EQ(TimesTold(), 1);
        SaveGameFile(t);
        EXPECT_EQ(TimesTold(), 1) << "the player has asked";
    }
    EXPECT_TRUE(SaveGame(t, false));
    EXPECT_EQ(Credits(game), 250);
    {
        const FullDisk disk(kRoom);
        EXPECT_FALSE(SaveGame(t, false));
    }
    EXPECT_EQ(TimesTold(), 1);
}

TEST_F(FileCommandsTest, AMissingGameFileIsNotMadeBySavingButBySaveAs) {
    files.gamePath = Path("gone.qdx");
    EXPECT_FALSE(SaveGame(t, false));
    EXPECT_NE(t.log.back().find("File Save As"), std::string::npos);
    EXPECT_FALSE(fs::exists(files.gamePath));
    t.engine.settings.credits = 77;
    t.answers = {Path("again.qdx")};
    SaveGameFileAs(t);
    EXPECT_EQ(files.gamePath, Path("again.qdx"));
    EXPECT_EQ(Credits(Path("again.qdx")), 77);
    EXPECT_TRUE(SaveGame(t, false));
}

TEST_F(FileCommandsTest, ANewGameStartsFromNothingAndTheOldOneKeepsAll) {
    t.engine.settings.showDollar = false;
    t.engine.settings.gameName = "Deuces Wild";
    t.engine.settings.gameId = 330;
    t.engine.statistics.handsPlayed.Add(7);
    t.engine.fixedHand = true;
    t.engine.handOver = false;
    t.machine.folder.Write("other.qdx", "[main]\nCredits=5000\n[Deuces Wild(0)]\nHandsWon=8\n");
    t.answers = {Path("other.qdx")};
    NewGameFile(t);
    EXPECT_EQ(t.log.front(), "ask file to save " + Path("Deuces Wild.qdx"));
    EXPECT_EQ(t.log.back(), "repaint");
    const MachineSettings& settings = t.engine.settings;
    EXPECT_EQ(settings.mode, PlayMode::kWarning);
    EXPECT_EQ(settings.credits, 0);
    EXPECT_EQ(settings.bet, 5);
    EXPECT_FALSE(settings.showDollar);
    EXPECT_EQ(t.engine.statistics.handsPlayed, Counter{});
    EXPECT_FALSE(t.engine.fixedHand);
    EXPECT_TRUE(t.engine.handOver) << "or the fixed hand would be paid";
    const std::string path = Path("other.qdx");
    EXPECT_EQ(files.gamePath, path);
    EXPECT_EQ(Stored(path, "main", "GameName"), "Deuces Wild");
    EXPECT_EQ(Stored(path, "Deuces Wild(0)", "HandsWon"), "0");
    EXPECT_EQ(Stored(path, "Deuces Wild(0)", "ElapsedTime"), "0.00");
    EXPECT_EQ(Credits(game), 100);
    EXPECT_EQ(Stored(game, "Deuces Wild(0)", "HandsPlayed"), "7");
}

TEST_F(FileCommandsTest, AnotherGameFileBringsItsGameSettingsAndStatistics) {
    t.machine.folder.Write("other.qdx",
                           "[main]\nMode=4\nCredits=33\nGameID=350\nGameName=Pick Em Poker\n"
                           "[Pick Em Poker(0)]\nHandsPlayed=12\nElapsedTime=2.00\n");
    t.engine.settings.credits = 101;
    t.answers = {"cancel", Path("other.qdx")};
    OpenGameFile(t);
    EXPECT_EQ(files.gamePath, game);
    OpenGameFile(t);
    EXPECT_EQ(files.gamePath, Path("other.qdx"));
    EXPECT_EQ(t.log.back(), "relayout");
    EXPECT_EQ(Credits(game), 101);
    EXPECT_EQ(t.engine.settings.credits, 33);
    EXPECT_EQ(t.engine.payTable.type, GameType::kPickEm);
    EXPECT_EQ(t.engine.statistics.handsPlayed.total, 12);
    EXPECT_EQ(t.engine.statistics.elapsedBase, 2);
    EXPECT_TRUE(t.engine.fixedHand) << "of Error Log mode";
    EXPECT_EQ(Stored(Path("other.qdx"), "main", "Speed"), "2") << "saved";
}

TEST_F(FileCommandsTest, WhatIsNoGameFileIsNeitherOpenedNorWritten) {
    t.machine.folder.Write("letter.txt", "Dear Ada,\n");
    files.mainPath = t.machine.folder.Write("Tolvane.ini", "[main]\nVer=114\n");
    fs::create_directory(Path("folder.qdx"));
    for (const auto* name : {"gone.qdx", "letter.txt", "folder.qdx", "Tolvane.ini"}) {
        t.answers = {Path(name)};
        OpenGameFile(t);
        EXPECT_EQ(TimesTold(), 1) << name;
    }
    for (const auto* name : {"folder.qdx", "nowhere/new.qdx", "Tolvane.ini"}) {
        t.answers = {Path(name), Path(name)};
        NewGameFile(t);
        SaveGameFileAs(t);
        EXPECT_EQ(TimesTold(), 2) << name;
    }
    EXPECT_EQ(files.gamePath, game);
    EXPECT_EQ(t.engine.settings.credits, 100);
    EXPECT_EQ(t.engine.settings.mode, PlayMode::kCasino);
    EXPECT_TRUE(t.machine.file.Flush());
    EXPECT_EQ(t.machine.folder.Read("letter.txt"), "Dear Ada,\n");
    EXPECT_EQ(t.machine.folder.Read("Tolvane.ini"), "[main]\nVer=114\n");
}

TEST_F(FileCommandsTest, OnAFullDiskTheGameStaysInItsFile) {
    t.engine.statistics.handsPlayed.Add(7);
    {
        const FullDisk disk(kRoom);
        t.answers = {Path("new.qdx"), Path("copy.qdx")};
        NewGameFile(t);
        SaveGameFileAs(t);
    }
    EXPECT_EQ(TimesTold(), 3) << "the save before, and both commands";
    EXPECT_EQ(files.gamePath, game);
    EXPECT_EQ(t.engine.settings.credits, 100);
    EXPECT_EQ(t.engine.statistics.handsPlayed.session, 7);
    EXPECT_TRUE(SaveGame(t, false));
    EXPECT_EQ(Stored(game, "Jacks or Better(0)", "HandsPlayed"), "7");
    EXPECT_EQ(t.machine.folder.Read("copy.qdx"), "(missing)");
}

TEST_F(FileCommandsTest, ACopyIsPlayedOnAndHoldsTheOtherGamesToo) {
    t.machine.file.WriteString("Deuces Wild(0)", "HandsPlayed", "3", game);
    t.engine.settings.credits = 120;
    t.answers = {Path("copy.qdx")};
    SaveGameFileAs(t);
    EXPECT_EQ(files.gamePath, Path("copy.qdx"));
    EXPECT_EQ(Credits(Path("copy.qdx")), 120);
    EXPECT_EQ(Stored(Path("copy.qdx"), "Deuces Wild(0)", "HandsPlayed"), "3");
    EXPECT_EQ(Credits(game), 100);

    t.engine.settings.credits = 130;
    t.answers = {Path("COPY.qdx")};
    SaveGameFileAs(t);
    EXPECT_EQ(files.gamePath, Path("copy.qdx"));
    EXPECT_EQ(Credits(Path("copy.qdx")), 130);
    EXPECT_FALSE(fs::exists(Path("COPY.qdx")));
    EXPECT_EQ(TimesTold(), 0);
}

class StartAndStopTest : public FileCommandsTest {
  protected:
    StartAndStopTest() { fs::copy_file(TOLVANE_DATA_FOLDER "/Tolvane.ini", paths.mainProfile); }

    DataFilePaths paths{.folder = Path(""),
                        .releaseFolder = "",
                        .mainProfile = Path("Tolvane.ini"),
                        .defaultGame = Path("Default.qdx"),
                        .analysisCache = ""};
};

TEST_F(StartAndStopTest, TheNextStartGoesOnWhereTheLastOneEnded) {
    files.mainPath = paths.mainProfile;
    t.engine.statistics.handsPlayed.Add(7);
    ChooseGame(t, 353);
    t.engine.settings.mode = PlayMode::kErrorLog;
    t.engine.settings.credits = 42;
    EXPECT_TRUE(StopGame(t, paths));

    t.machine.file.Close();
    t.engine = GameEngine();
    files.gamePath.clear();
    StartGame(t, paths);
    EXPECT_EQ(files.gamePath, game);
    EXPECT_EQ(t.engine.settings.gameName, "5 Card Charlie");
    EXPECT_TRUE(t.engine.payTable.charlieBonus);
    EXPECT_EQ(t.engine.settings.credits, 42);
    EXPECT_EQ(Title(t, paths), "5 Card Charlie (game.qdx)");
    EXPECT_FALSE(t.engine.fixedHand) << "until the window is shown";
    FinishStart(t);
    EXPECT_TRUE(t.engine.fixedHand);
    EXPECT_EQ(TimesTold(), 0);
}

TEST_F(StartAndStopTest, AStartWithoutItsFileOrGameFallsBack) {
    StartGame(t, paths);
    EXPECT_EQ(files.gamePath, paths.defaultGame);
    EXPECT_EQ(t.engine.settings.gameName, "Jacks or Better");
    EXPECT_EQ(t.engine.settings.credits, 0);
    EXPECT_EQ(Title(t, paths), "Jacks or Better");
    FinishStart(t);
    EXPECT_FALSE(StopGame(t, paths));
    EXPECT_EQ(TimesTold(), 1);

    t.machine.folder.Write("Default.qdx", "[main]\nGameID=9003\nGameName=Gone\nCredits=9\n");
    StartGame(t, paths);
    EXPECT_EQ(t.engine.settings.gameId, 300);
    EXPECT_EQ(t.engine.payTable.lines.size(), 9U);
    EXPECT_EQ(t.engine.settings.credits, 9);
}

}  // namespace
