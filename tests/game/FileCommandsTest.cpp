#include "game/commands/FileCommands.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/store/ComputedFile.h"
#include "game/commands/GameSelection.h"
#include "game/commands/MachineCommands.h"
#include "game/saving/SaveGame.h"
#include "game/session/StartAndStop.h"
#include "tests/core/profile/FullDisk.h"
#include "tests/game/FakePorts.h"

namespace fs = std::filesystem;

namespace {

constexpr rlim_t kRoom = 100;

struct FileCommandsTest : testing::Test, TestSeat {
    void SetUp() override { ASSERT_TRUE(SaveGame(seat)); }

    std::string Path(const std::string& name) const { return machine.folder.Path(name); }
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
            log, [](const std::string& line) { return line.starts_with("told "); });
        log.clear();
        return told;
    }

    GameFiles& files = machine.files;
    const std::string game = files.gamePath;
};

TEST_F(FileCommandsTest, AFailedSaveIsToldOnceUntilOneSucceeds) {
    engine.settings.credits = 250;
    {
        const FullDisk disk(kRoom);
        EXPECT_FALSE(SaveGame(seat));
        EXPECT_FALSE(SaveGame(seat));
        EXPECT_EQ(TimesTold(), 1);
        SaveGameFile(seat);
        EXPECT_EQ(TimesTold(), 1) << "the player has asked";
    }
    EXPECT_TRUE(SaveGame(seat));
    EXPECT_EQ(Credits(game), 250);
    {
        const FullDisk disk(kRoom);
        engine.settings.credits = 260;
        EXPECT_FALSE(SaveGame(seat));
        EXPECT_EQ(TimesTold(), 1);
        KeepPlay(seat, true);
        EXPECT_EQ(TimesTold(), 0) << "the telling stops";
        ports.now += 10;
        EXPECT_FALSE(SaveIsDue(seat, false)) << "tried again at rest alone";
    }
    KeepPlay(seat, true);
    EXPECT_EQ(Credits(game), 260) << "not the trying";
}

TEST_F(FileCommandsTest, AMissingGameFileIsNotMadeBySavingButBySaveAs) {
    files.gamePath = Path("gone.qdx");
    EXPECT_FALSE(SaveGame(seat));
    EXPECT_NE(log.back().find("File Save As"), std::string::npos);
    EXPECT_FALSE(fs::exists(files.gamePath));
    engine.settings.credits = 77;
    answers = {Path("again.qdx")};
    SaveGameFileAs(seat);
    EXPECT_EQ(Credits(Path("again.qdx")), 77);
    EXPECT_TRUE(SaveGame(seat));
}

TEST_F(FileCommandsTest, ANewGameStartsFromNothingAndTheOldOneKeepsAll) {
    machine.Play("Deuces Wild", 330);
    engine.statistics.handsPlayed.Add(7);
    engine.fixedHand = true;
    engine.handOver = false;
    machine.folder.Write("other.qdx", "[main]\nCredits=5000\n[Deuces Wild(0)]\nHandsWon=8\n");
    fs::create_symlink(Path("other.qdx"), Path("link.qdx"));
    answers = {Path("link.qdx")};
    NewGameFile(seat);
    EXPECT_TRUE(fs::is_symlink(Path("link.qdx"))) << "the file behind it is the new game";
    EXPECT_EQ(seat.scene, SceneOf(seat));
    EXPECT_EQ(engine.statistics.handsPlayed, Counter{});
    EXPECT_FALSE(engine.fixedHand);
    EXPECT_TRUE(engine.handOver) << "or the fixed hand would be paid";
    EXPECT_EQ(Stored(Path("other.qdx"), "Deuces Wild(0)", "HandsWon"), "0");
    EXPECT_EQ(Credits(Path("other.qdx")), 0);
    EXPECT_EQ(Credits(game), 100);
    EXPECT_EQ(Stored(game, "Deuces Wild(0)", "HandsPlayed"), "7");
}

TEST_F(FileCommandsTest, AnotherGameFileBringsItsGameSettingsAndStatistics) {
    machine.folder.Write("other.qdx",
                         "[main]\nMode=4\nCredits=33\nGameID=350\nGameName=Pick Em Poker\n"
                         "[Pick Em Poker(0)]\nHandsPlayed=12\n");
    engine.settings.credits = 101;
    answers = {"cancel", Path("other.qdx")};
    OpenGameFile(seat);
    EXPECT_EQ(files.gamePath, game);
    OpenGameFile(seat);
    EXPECT_EQ(log.back(), "relayout");
    EXPECT_EQ(Credits(game), 101);
    EXPECT_EQ(engine.statistics.handsPlayed.total, 12);
    EXPECT_TRUE(engine.fixedHand) << "of Error Log mode";
    EXPECT_EQ(Stored(Path("other.qdx"), "main", "Speed"), "2") << "saved";
    answers = {machine.folder.Write("blank.qdx", " \n")};
    OpenGameFile(seat);
    EXPECT_EQ(files.gamePath, Path("blank.qdx"));
}

TEST_F(FileCommandsTest, WhatIsNoGameFileIsNeitherOpenedNorWritten) {
    machine.folder.Write("letter.txt", "Dear Ada,\n");
    files.mainPath = machine.folder.Write("Tolvane.ini", "[main]\nVer=114\n");
    files.cachePath = machine.folder.Write("Game Analyses.ini", "[Jacks or Better(0)]\n");
    files.chartsPath = machine.folder.Write("Strategy Charts.ini", "[Jacks or Better(0)]\n");
    fs::create_directory(Path("folder.qdx"));
    fs::create_symlink("Tolvane.ini", Path("link.qdx"));
    for (const auto* name : {"gone.qdx", "letter.txt", "folder.qdx", "Tolvane.ini", "link.qdx"}) {
        answers = {Path(name)};
        OpenGameFile(seat);
        EXPECT_EQ(TimesTold(), 1) << name;
    }
    for (const auto* name : {"folder.qdx", "nowhere/new.qdx", "Tolvane.ini", "Game Analyses.ini",
                             "Strategy Charts.ini", "link.qdx"}) {
        answers = {Path(name), Path(name)};
        NewGameFile(seat);
        SaveGameFileAs(seat);
        EXPECT_EQ(TimesTold(), 2) << name;
    }
    EXPECT_EQ(files.gamePath, game);
    EXPECT_EQ(engine.settings.mode, PlayMode::kCasino);
    EXPECT_TRUE(machine.file.Flush());
    EXPECT_EQ(machine.folder.Read("letter.txt"), "Dear Ada,\n");
    EXPECT_EQ(machine.folder.Read("Tolvane.ini"), "[main]\nVer=114\n");
}

TEST_F(FileCommandsTest, OnAFullDiskTheGameStaysInItsFile) {
    engine.statistics.handsPlayed.Add(7);
    {
        const FullDisk disk(kRoom);
        answers = {Path("new.qdx"), Path("copy.qdx")};
        NewGameFile(seat);
        SaveGameFileAs(seat);
    }
    EXPECT_EQ(TimesTold(), 3) << "the save before, and both commands";
    EXPECT_EQ(files.gamePath, game);
    EXPECT_EQ(engine.settings.credits, 100);
    EXPECT_EQ(engine.statistics.handsPlayed.session, 7);
}

TEST_F(FileCommandsTest, ACopyIsPlayedOnAndHoldsTheOtherGamesToo) {
    machine.file.WriteString("Deuces Wild(0)", "HandsPlayed", "3", game);
    engine.settings.credits = 120;
    answers = {Path("copy.qdx")};
    SaveGameFileAs(seat);
    EXPECT_EQ(Credits(Path("copy.qdx")), 120);
    EXPECT_EQ(Stored(Path("copy.qdx"), "Deuces Wild(0)", "HandsPlayed"), "3");
    EXPECT_EQ(Credits(game), 100);

    engine.settings.credits = 130;
    answers = {Path("COPY.qdx")};
    SaveGameFileAs(seat);
    EXPECT_EQ(Credits(Path("copy.qdx")), 130);
    EXPECT_FALSE(fs::exists(Path("COPY.qdx")));
}

// What happens to the game file behind the program's back.
struct ChangedFileTest : FileCommandsTest {
    void Restore() { machine.folder.Write("game.qdx", kOther); }
    std::string OnDisk() const { return machine.folder.Read("game.qdx"); }

    const std::string kOther = "[main]\nCredits=500\nGameName=Deuces Wild\nGameID=330\n";
};

TEST_F(ChangedFileTest, AnUntouchedTableGoesOnInTheFileAsItIsNow) {
    Restore();
    EXPECT_TRUE(SaveGame(seat));
    EXPECT_EQ(TimesTold(), 1);
    EXPECT_EQ(engine.settings.credits, 500);
    Restore();
    answers = {game};
    OpenGameFile(seat);
    EXPECT_EQ(engine.settings.credits, 500) << "a backup that is copied over and opened";
}

TEST_F(ChangedFileTest, APlayedTableIsLoadedOverOrKeptElsewhereAsThePlayerSays) {
    engine.settings.credits = 777;
    Restore();
    answers = {"no", "cancel"};
    EXPECT_FALSE(SaveGame(seat));
    KeepPlay(seat, true);
    EXPECT_EQ(OnDisk(), kOther) << "and nothing more is asked";

    EXPECT_EQ(ChooseGame(seat, 330, 7), GameChoice::kNoPayTable) << "a table that is gone";
    EXPECT_TRUE(log.back().starts_with("told Missing pay table: "));
    EXPECT_EQ(engine.settings.gameId, 300);
    ChooseGame(seat, 330);
    engine.statistics.handsPlayed.Add(4);
    machine.folder.Write("third.qdx", "[main]\nCredits=3\n");
    for (const auto leave : {OpenGameFile, NewGameFile}) {
        answers = {Path("third.qdx"), "no", "cancel"};
        leave(seat);
        EXPECT_EQ(files.gamePath, game) << "not before the question is answered";
    }
    EXPECT_EQ(engine.settings.credits, 777);

    answers = {"no", Path("mine.qdx")};
    SaveGameFile(seat);
    EXPECT_EQ(Stored(Path("mine.qdx"), "Deuces Wild(0)", "HandsPlayed"), "4");
    EXPECT_EQ(Stored(Path("mine.qdx"), "Jacks or Better(0)", "HandsPlayed"), "0");
    EXPECT_EQ(OnDisk(), kOther);

    answers = {game};
    OpenGameFile(seat);
    engine.settings.credits = 888;
    Restore();
    fs::last_write_time(game, fs::file_time_type::clock::now() + std::chrono::hours(1));
    machine.folder.Write("game.qdx", kOther + "Bet=2\n");
    answers = {"yes"};
    SaveGameFile(seat);
    EXPECT_EQ(engine.settings.bet, 2);
}

TEST_F(ChangedFileTest, AFileThatCouldNotBeReadAtTheStartIsNeverWrittenOver) {
    files.mainPath = machine.folder.Write("Tolvane.ini", "[main]\nVer=1\nCurrGame=" + game + "\n");
    SaveGame(seat);
    machine.file.Close();
    fs::create_directory(Path("away"));
    fs::rename(game, Path("away/game.qdx"));
    fs::create_directory(game);
    StartGame(seat, machine.paths);
    FinishStart(seat);
    EXPECT_EQ(TimesTold(), 1);
    engine.settings.credits = 9;
    KeepPlay(seat, true);
    fs::remove(game);
    fs::rename(Path("away/game.qdx"), game);
    const std::string before = OnDisk();
    answers = {game, "no", "cancel", "no", Path("nine.qdx")};
    OpenGameFile(seat);
    EXPECT_EQ(OnDisk(), before);
    SaveGameFile(seat);
    EXPECT_EQ(Credits(Path("nine.qdx")), 9);
    EXPECT_EQ(OnDisk(), before);
}

TEST_F(ChangedFileTest, SaveAsAwayFromAFileThatTakesNothingTakesAllAlongAndIsDone) {
    fs::remove(game);
    fs::create_directory(game);
    machine.file.WriteString("Jacks or Better(0)", "Error0", "a play error", game);
    EXPECT_FALSE(SaveGame(seat));
    TimesTold();
    answers = {Path("copy.qdx")};
    SaveGameFileAs(seat);
    EXPECT_EQ(Stored(Path("copy.qdx"), "Jacks or Better(0)", "Error0"), "a play error");
    EXPECT_FALSE(machine.file.IsDirty()) << "nothing of the old file waits";
    EXPECT_EQ(TimesTold(), 0);
}

TEST_F(ChangedFileTest, AFileThatAnotherCopyHasOpenIsLeftToIt) {
    machine.folder.Write("theirs.qdx", "[main]\nCredits=5\n");
    const LockFile theirs = LockFile::OfGameFile(Path("theirs.qdx"));
    fs::create_symlink(Path("theirs.qdx"), Path("link.qdx"));
    answers = {Path("link.qdx"), Path("link.qdx"), Path("theirs.qdx")};
    OpenGameFile(seat);
    EXPECT_NE(log.back().find("open in another copy of Tolvane (process "), std::string::npos);
    NewGameFile(seat);
    SaveGameFileAs(seat);
    EXPECT_EQ(TimesTold(), 3);
    EXPECT_EQ(machine.folder.Read("theirs.qdx"), "[main]\nCredits=5\n");

    files.mainPath =
        machine.folder.Write("Tolvane.ini", "[main]\nCurrGame=" + Path("theirs.qdx") + "\n");
    machine.file.Close();
    StartGame(seat, machine.paths);
    answers = {game};
    FinishStart(seat);
    EXPECT_EQ(files.gamePath, game) << "the start asks for another one";
    {
        const FullDisk disk(kRoom);
        answers = {game};
        NewGameFile(seat);
    }
    EXPECT_EQ(LockFile::OfGameFile(game).GetState(), LockFile::State::kTaken);
}

TEST_F(ChangedFileTest, WhatWasPlayedIsKeptBetweenHandsWhenTheMachineRests) {
    machine.Stack("AS KD TC 9H 2S");
    DealDraw(seat);
    SaveGame(seat);
    EXPECT_EQ(Credits(game), 100) << "its bet comes back after a crash";
    machine.Hold(0);
    DealDraw(seat);
    EXPECT_FALSE(SaveIsDue(seat, false));
    EXPECT_TRUE(SaveIsDue(seat, true));
    ports.now += 10;
    EXPECT_TRUE(SaveIsDue(seat, false)) << "steady play";
    engine.spinPending = true;
    EXPECT_FALSE(SaveIsDue(seat, true));
    engine.spinPending = false;
    KeepPlay(seat, false);
    EXPECT_FALSE(SaveIsDue(seat, true));

    ChooseCoin(seat, 0.25);
    EXPECT_EQ(Stored(game, "main", "Coin"), "0.25") << "at once, with the credits";
    DealDraw(seat);
    ChooseCoin(seat, 0.05);
    EXPECT_FALSE(SaveIsDue(seat, true)) << "the hand is open";
    DealDraw(seat);
    EXPECT_TRUE(SaveIsDue(seat, false));
}

struct StartAndStopTest : FileCommandsTest {
    StartAndStopTest() { fs::copy_file(TOLVANE_DATA_FOLDER "/Tolvane.ini", Path("Tolvane.ini")); }

    const DataFilePaths& paths = machine.paths;
};

TEST_F(StartAndStopTest, TheNextStartGoesOnWhereTheLastOneEnded) {
    files.mainPath = paths.mainProfile;
    ChooseGame(seat, 353);
    engine.settings.mode = PlayMode::kErrorLog;
    engine.settings.credits = 42;
    EXPECT_TRUE(StopGame(seat, paths));

    machine.file.Close();
    engine = GameEngine();
    files.gamePath.clear();
    StartGame(seat, paths);
    EXPECT_EQ(files.gamePath, game);
    EXPECT_TRUE(engine.payTable.charlieBonus);
    EXPECT_EQ(engine.settings.credits, 42);
    EXPECT_EQ(Title(seat, paths), "5 Card Charlie (game.qdx)");
    EXPECT_FALSE(engine.fixedHand) << "until the window is shown";
    FinishStart(seat);
    EXPECT_TRUE(engine.fixedHand && seat.scene == SceneOf(seat));
}

TEST_F(StartAndStopTest, AFileOfChartsThatIsGoneIsNoLostGame) {
    files.mainPath = paths.mainProfile;
    ChooseGame(seat, 353);
    machine.folder.Write("Strategy Charts.ini", "");
    const ProfileOnDisk charts{machine.file, paths.strategyCharts};
    machine.file.WriteString("A", "b", "c", charts.path);
    fs::remove(charts.path);
    ASSERT_FALSE(machine.file.Flush()) << "what is gone is not made anew";
    engine.settings.credits = 77;
    KeepPlay(seat, true);
    KeepPlay(seat, true);
    EXPECT_EQ(TimesTold(), 0);
    EXPECT_TRUE(StopGame(seat, paths));
    PrepareComputedFile(charts);
    EXPECT_TRUE(machine.file.Flush());
    EXPECT_EQ(machine.folder.Read("Strategy Charts.ini"), "");
}

TEST_F(StartAndStopTest, AStartWithoutItsFileOrGameFallsBack) {
    StartGame(seat, paths);
    EXPECT_EQ(files.gamePath, paths.defaultGame);
    EXPECT_EQ(Title(seat, paths), "Jacks or Better");
    FinishStart(seat);
    EXPECT_FALSE(StopGame(seat, paths));
    EXPECT_EQ(TimesTold(), 1);

    machine.folder.Write("Default.qdx", "[main]\nGameID=9003\nGameName=Gone\nCredits=9\n");
    StartGame(seat, paths);
    EXPECT_EQ(engine.payTable.lines.size(), 9U);
    EXPECT_EQ(engine.settings.credits, 9);
    EXPECT_FALSE(SaveIsDue(seat, true)) << "nothing is played yet";
}

}  // namespace
