#include "game/session/AnalyzeGame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/store/AnalysisFiles.h"
#include "tests/game/FakePorts.h"

namespace {

struct AnalyzeGameTest : testing::Test, TestSeat {
    // The player asks for so many runs, and then leaves.
    void Command(int runs) {
        ports.atReport = [this, runs](GameReportPages& pages) mutable {
            shown.push_back(TableSection(pages.GameName(), pages.TableIndex()));
            lastReport = pages.View().report;
            warning = pages.View().warning;
            if (look) look(pages);
            return runs-- > 0 ? ReportAnswer::kRunAnalysis : ReportAnswer::kDone;
        };
        AnalyzeGameCommand(seat, spare, paths);
    }
    std::string Cached(const std::string& section, const std::string& key) {
        return machine.file.GetString(section, key, "(none)", 300, paths.analysisCache);
    }

    GameEngine spare;
    std::function<void(GameReportPages&)> look;  // what the player does in each report
    std::vector<std::string> shown;              // "Jacks or Better(0)" for each report
    std::string lastReport;
    std::string warning;  // above the last report
    const DataFilePaths& paths = machine.paths;
};

constexpr const char* kOwnGame =
    "[User Games]\n7=9007,Practice\n8=9008,Empty\n"
    "[Practice(0)]\nPrevIndex=5\nNextIndex=1\nPayLines=1\nRank0=11\nDescr0=PAIR\nPayout0=1\n"
    "[Practice(1)]\nPrevIndex=0\nNextIndex=3\nPayLines=1\nRank0=11\nPayout0=2\nMaxPayout0=10\n"
    "[Practice(3)]\nPrevIndex=1\nNextIndex=-1\nPayLines=1\nRank0=11\nPayout0=3\n";

struct OwnGameTest : AnalyzeGameTest {
    OwnGameTest() {
        machine.files.mainPath = machine.folder.Write("own.ini", kOwnGame);
        machine.Play("Practice", 9007);
    }
};

std::string Golden(const std::string& name) {
    return TestData("../game/golden/game_" + name + ".txt");
}

// The golden texts of analysed games were written by another program from the rules of the text;
// returns and variances are those known of the games.
TEST_F(AnalyzeGameTest, TheReportOnARunIsRightToTheLastTab) {
    const std::tuple<const char*, int, const char*> games[] = {
        {"Jacks or Better", 300, "jacks_or_better"},
        {"Pick Em Poker", 350, "pick_em"},
        {"Dbl Draw Bonus", 318, "double_draw"},
    };
    Command(0);
    EXPECT_EQ(lastReport, Golden("not_analyzed"));
    for (const auto& [game, id, golden] : games) {
        machine.Play(game, id);
        Command(1);
        EXPECT_EQ(lastReport, Golden(golden));
        EXPECT_EQ(machine.folder.FileCount(), 2) << "the cache, and the game file";
    }
}

TEST_F(AnalyzeGameTest, GamesThatCannotBeAnalyzedAreRefused) {
    machine.Play("Sneak Peak Poker", 351);
    Command(0);
    EXPECT_EQ(
        log.back(),
        "told Game Analysis Not Available: Game analysis not available for Sneak Peak Poker.");
    machine.Play("Empty", 9008);
    Command(0);
    EXPECT_TRUE(log.back().starts_with("told Missing pay table: "));
    EXPECT_TRUE(shown.empty());
}

TEST_F(AnalyzeGameTest, ARunShowsItsProgressMakesTheFilesAndLeavesThePlayersMachineAlone) {
    const MachineSettings settings = engine.settings;
    const TemporaryFolder& folder = machine.folder;
    ports.analysisFiles = AnalysisFilesChoice{.summary = true, .detail = true};
    Command(1);
    const std::string steps = TakeLog();
    EXPECT_TRUE(steps.starts_with("ask files " + folder.Path("Jacks or Better(0) Summary.txt\n")));
    for (const char* step :
         {"\nprogress Analyzing game...0%\n", "game...1% (1)\n", "game...99% (99)\n"}) {
        EXPECT_NE(steps.find(step), std::string::npos) << step;
    }
    EXPECT_EQ(engine.settings, settings);
    const std::string summary = folder.Read("Jacks or Better(0) Summary.txt");
    EXPECT_NE(summary.find("Payout%;99.5439\n"), std::string::npos);
    const std::string detail = folder.Read("Jacks or Better(0) Detail.txt");
    EXPECT_EQ(std::ranges::count(detail, '\n'), 135746 + 1);
}

TEST_F(AnalyzeGameTest, ARunThatIsCancelledInTimeLeavesNothing) {
    ports.analysisFiles = std::nullopt;
    Command(2);
    EXPECT_EQ(shown.size(), 1U);
    EXPECT_EQ(machine.folder.FileCount(), 1);
}

TEST_F(AnalyzeGameTest, ACancelledRunEndsSoonWithFilesAndFiguresThatAreMarkedAsAPart) {
    ports.analysisFiles = AnalysisFilesChoice{.summary = true, .detail = true};
    machine.folder.Write("Jacks or Better(0) Detail.txt", "whole");
    ports.progressSteps = 1;
    Command(1);
    const std::string detail = machine.folder.Read("Jacks or Better(0) Detail partial.txt");
    EXPECT_EQ(std::ranges::count(detail, '\n'), 940 + 1)
        << "those of 128 sets of ranks: two looks at the player";
    EXPECT_EQ(detail.back(), '\n');
    EXPECT_EQ(machine.folder.Read("Jacks or Better(0) Detail.txt"), "whole");
    EXPECT_EQ(machine.folder.FileCount(), 5) << "with the cache, the game file and the summary";
    EXPECT_EQ(Cached("Jacks or Better(0)", "Cost"), "12,994,800.0000");
    EXPECT_EQ(Cached("Jacks or Better(0)", "Stopped"), "0 %");
    EXPECT_EQ(warning, "Analysis stopped at 0 %: not the return of the game");
    EXPECT_EQ(log.back(),
              "told Analysis Files: Jacks or Better(0) Summary partial.txt Jacks or Better(0) "
              "Detail partial.txt");
}

TEST_F(AnalyzeGameTest, AWholeAnalysisStaysUnlessThePlayerWantsThePartInItsPlace) {
    Command(1);
    const auto cancelledAt25 = [&] {
        ports.progressSteps = 25;
        Command(1);
        return Cached("Jacks or Better(0)", "Payout%");
    };
    answers = {"no", "yes"};  // a third question would fail the test
    EXPECT_EQ(cancelledAt25(), "99.5439");
    EXPECT_EQ(Cached("Jacks or Better(0)", "Stopped"), "(none)");
    EXPECT_EQ(warning, "");
    EXPECT_NE(cancelledAt25(), "99.5439");
    cancelledAt25();  // a part may take the place of a part
    ports.progressSteps = -1;
    Command(1);
    EXPECT_EQ(Cached("Jacks or Better(0)", "Stopped"), "(none)");
    // An earlier release did not say of which pays its figures are.
    machine.file.WriteString("Jacks or Better(0)", "Pays", std::nullopt, paths.analysisCache);
    answers = {"no"};
    EXPECT_EQ(cancelledAt25(), "99.5439");
    EXPECT_TRUE(answers.empty());
    // Figures of other pays are nothing to keep.
    machine.file.WriteString("Jacks or Better(0)", "Pays", "0", paths.analysisCache);
    Command(0);
    EXPECT_TRUE(warning.starts_with("Figures of other pays")) << warning;
    EXPECT_NE(cancelledAt25(), "99.5439");
}

// Nobody may write the whole file, which lies behind a link in another folder.
TEST_F(AnalyzeGameTest, APartIsToldWhereItLies) {
    std::filesystem::create_directory(machine.folder.Path("else"));
    const std::string whole = machine.folder.Write("else/whole.txt", "whole");
    std::filesystem::permissions(whole, std::filesystem::perms::owner_read);
    std::filesystem::create_symlink(whole, machine.folder.Path("Jacks or Better(0) Detail.txt"));
    ports.analysisFiles = AnalysisFilesChoice{.summary = false, .detail = true};
    ports.progressSteps = 1;
    Command(1);
    const std::string part = "else/Jacks or Better(0) Detail partial.txt";
    EXPECT_EQ(ports.lastFiles.at(0).path, machine.folder.Path(part));
    EXPECT_EQ(ports.lastFiles.at(0).problem, "");
    EXPECT_EQ(std::ranges::count(machine.folder.Read(part), '\n'), 940 + 1);
    ports.progressSteps = 1;
    Command(1);
    EXPECT_EQ(ports.lastFiles.at(0).problem, "") << "again";
    EXPECT_TRUE(machine.folder.Read("else/whole.txt") == "whole");
}

TEST_F(AnalyzeGameTest, WhatCouldNotBeWrittenIsToldWithItsReason) {
    ports.analysisFiles = AnalysisFilesChoice{.summary = true, .detail = true};
    for (const char* name : {"Jacks or Better(0) Summary.txt", "Game Analyses.ini"}) {
        std::filesystem::create_directory(machine.folder.Path(name));
    }
    Command(1);
    EXPECT_TRUE(log.back().starts_with(
        "told Analysis Files: Jacks or Better(0) Summary.txt not written, Is a directory Jacks or "
        "Better(0) Detail.txt Game Analyses.ini not written, which keeps the figures."))
        << log.back();
}

TEST_F(AnalyzeGameTest, AnyTableIsReportedOnThoseThatNoMenuHasToo) {
    ports.atReport = [&](GameReportPages& pages) {
        EXPECT_EQ(pages.Games().back(), "Spin Bonus Poker");
        return ReportAnswer::kDone;
    };
    AnalyzeTableCommand(seat, spare, paths, {354, "Spin Bonus Poker", 0});
    AnalyzeTableCommand(seat, spare, paths, {351, "Sneak Peak Poker", 0});
    EXPECT_TRUE(log.back().starts_with("told Game Analysis Not Available: "));
}

TEST_F(AnalyzeGameTest, ASlashInAGamesNameLeadsToNoOtherFolder) {
    EXPECT_EQ(AnalysisFilesOf("9/6 Jacks", 2, paths).detail,
              machine.folder.Path("9_6 Jacks(2) Detail.txt"));
}

TEST_F(OwnGameTest, TheTablesOfAGameAreReachedAlongTheirChain) {
    GameReportPages pages(seat, spare, paths);
    pages.Show("Practice", 0);
    EXPECT_FALSE(pages.HasPrevious()) << "whatever stands in the file";
    for (const int index : {1, 3, 3}) {
        pages.ShowNext();
        EXPECT_EQ(pages.TableIndex(), index);
    }
    EXPECT_EQ(spare.payTable.lines[0].payout, 3);
    for (const int index : {1, 0, 0}) {
        pages.ShowPrevious();
        EXPECT_EQ(pages.TableIndex(), index);
    }
    EXPECT_EQ(machine.file.GetInt("ActiveTbl", "Practice", -1, machine.files.gamePath), -1)
        << "the table in play stays";
}

TEST_F(OwnGameTest, AGameIsChosenAtTheTableItWasLastPlayedOn) {
    machine.file.WriteInt("ActiveTbl", "Practice", 3, machine.files.gamePath);
    GameReportPages pages(seat, spare, paths);
    const auto games = pages.Games();
    EXPECT_EQ(games.back(), "Practice") << "no game without a pay table";
    EXPECT_EQ(std::ranges::count(games, "Sneak Peak Poker"), 0);
    EXPECT_TRUE(pages.Choose("Practice"));
    EXPECT_EQ(pages.TableIndex(), 3);
    EXPECT_FALSE(pages.Choose("sneak peak POKER"));
    EXPECT_EQ(pages.GameName(), "Practice");
}

TEST_F(OwnGameTest, TheTableShownIsRunAndOneThatIsMissingIsNot) {
    look = [&](GameReportPages& pages) {
        const bool again = shown.size() > 1;
        pages.Show("Practice", again ? 2 : 3);
    };
    Command(2);
    EXPECT_NE(Cached("Practice(3)", "ER"), "(none)");
    EXPECT_TRUE(log.back().starts_with("told Missing pay table: "));
    EXPECT_EQ(shown, (std::vector<std::string>{"Practice(0)", "Practice(3)", "Practice(2)"}));
}

TEST_F(OwnGameTest, BehindTheFirstHundredTablesARunIsAskedAbout) {
    for (const int index : {99, 100}) {
        machine.file.WriteString(TableSection("Practice", index), "PayLines", "1",
                                 machine.files.mainPath);
    }
    ports.analysisFiles = std::nullopt;
    const auto askedLast = [&](int index) {
        look = [index](GameReportPages& pages) { pages.Show("Practice", index); };
        Command(1);
        return log.back().substr(0, 9);
    };
    EXPECT_EQ(askedLast(99), "ask files");
    answers = {"no", "yes"};
    EXPECT_EQ(askedLast(100), "ask Run A");
    EXPECT_EQ(askedLast(100), "ask files");
}

}  // namespace
