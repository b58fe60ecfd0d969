#include "game/AnalyzeGame.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/analysis/AnalysisFiles.h"
#include "tests/game/FakePorts.h"

namespace {

// Leaves each report by the next of the codes, after a look at it, and the last one for good.
class ScriptedReports : public GameReports {
  public:
    std::deque<int> codes;
    std::optional<AnalysisFilesChoice> choice = AnalysisFilesChoice{};
    std::function<void(GameReportPages&)> look;
    std::vector<std::string> shown;  // "Jacks or Better(0)" for each report
    std::vector<std::string> asked;  // paths of Summary files
    std::string lastReport;

    int ReadsGameReport(GameReportPages& pages) override {
        shown.push_back(TableSection(pages.GameName(), pages.TableIndex()));
        lastReport = pages.Report();
        if (look) look(pages);
        if (codes.empty()) return 1;
        const int code = codes.front();
        codes.pop_front();
        return code;
    }
    std::optional<AnalysisFilesChoice> ChoosesFiles(const AnalysisFilePaths& files) override {
        asked.push_back(files.summary);
        return choice;
    }
};

struct AnalyzedTable : TestTable {
    explicit AnalyzedTable(const std::string& game = "Jacks or Better", int gameId = 300)
        : TestTable(game, gameId) {}

    void Command(std::deque<int> codes) {
        reports.codes = std::move(codes);
        AnalyzeGameCommand(table, spare, reports, paths);
    }
    std::string Cached(const std::string& section, const std::string& key) {
        return machine.file.GetString(section, key, "(none)", 300, paths.analysisCache);
    }

    GameEngine spare;
    ScriptedReports reports;
    DataFilePaths paths{.folder = machine.folder.Path() + "/",
                        .releaseFolder = "",
                        .mainProfile = "",
                        .defaultGame = "",
                        .analysisCache = machine.folder.Path("Game Analyses.ini")};
};

constexpr const char* kOwnGame =
    "[User Games]\n7=9007,Practice\n8=9008,Empty\n"
    "[Practice(0)]\nPrevIndex=5\nNextIndex=1\nPayLines=1\nRank0=11\nDescr0=PAIR\nPayout0=1\n"
    "[Practice(1)]\nPrevIndex=0\nNextIndex=3\nPayLines=1\nRank0=11\nPayout0=2\nMaxPayout0=10\n"
    "[Practice(3)]\nPrevIndex=1\nNextIndex=-1\nPayLines=1\nRank0=11\nPayout0=3\n";

struct OwnGame : AnalyzedTable {
    OwnGame() : AnalyzedTable("Practice", 9007) {
        machine.files.mainPath = machine.folder.Write("own.ini", kOwnGame);
    }
};

std::string Golden(const std::string& name) {
    const std::ifstream file(TOLVANE_TEST_DATA "/../game/golden/game_" + name + ".txt",
                             std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The golden texts of analysed games were written by another program from the rules of the text;
// returns and variances are those known of the games.
TEST(AnalyzeGameTest, TheReportOnARunIsRightToTheLastTab) {
    const std::tuple<const char*, int, const char*> games[] = {
        {"Jacks or Better", 300, "jacks_or_better"},
        {"Pick Em Poker", 350, "pick_em"},
        {"Dbl Draw Bonus", 318, "double_draw"},
    };
    for (const auto& [game, id, golden] : games) {
        AnalyzedTable t(game, id);
        t.Command({kRunTable});
        EXPECT_EQ(t.reports.lastReport, Golden(golden));
        EXPECT_EQ(t.reports.shown.size(), 2U);
        EXPECT_EQ(t.machine.folder.FileCount(), 2) << "the cache, and the game file";
    }
}

TEST(AnalyzeGameTest, ATableNotAnalyzedShowsItsPays) {
    AnalyzedTable t;
    t.Command({});
    EXPECT_EQ(t.reports.lastReport, Golden("not_analyzed"));
    EXPECT_EQ(t.TakeLog(), "");
}

TEST(AnalyzeGameTest, GamesThatCannotBeAnalyzedAreRefused) {
    AnalyzedTable sneak("Sneak Peak Poker", 351);
    sneak.Command({});
    EXPECT_EQ(sneak.TakeLog(),
              "told Game Analysis Not Available: Game analysis not available for Sneak Peak "
              "Poker.\n");
    AnalyzedTable empty;
    empty.engine.settings.gameName = "Empty";
    empty.Command({});
    EXPECT_EQ(empty.TakeLog(),
              "told Missing pay table: Pay table does not exist for this game. Select "
              "Options->Edit Pay Table to create pay table.\n");
    EXPECT_TRUE(sneak.reports.shown.empty() && empty.reports.shown.empty());
}

TEST(AnalyzeGameTest, ARunShowsItsProgressAndLeavesThePlayersMachineAlone) {
    AnalyzedTable t;
    t.engine.settings.credits = 99;
    const Statistics statistics = t.engine.statistics;
    t.Command({kRunTable});
    const std::string log = t.TakeLog();
    EXPECT_TRUE(log.starts_with("progress Analyzing game...0%\n"));
    EXPECT_NE(log.find("progress Analyzing game...1% (1)\n"), std::string::npos);
    EXPECT_NE(log.find("progress Analyzing game...99% (99)\n"), std::string::npos);
    EXPECT_EQ(t.engine.settings.credits, 99);
    EXPECT_EQ(t.engine.statistics, statistics);
}

TEST(AnalyzeGameTest, FilesAreMadeWhereTheDialogSays) {
    AnalyzedTable t;
    const TemporaryFolder& folder = t.machine.folder;
    folder.Write("Jacks or Better(0) Summary.txt", "old");
    t.reports.choice = AnalysisFilesChoice{.summary = true, .detail = true};
    t.Command({kRunTable});
    EXPECT_EQ(t.reports.asked, std::vector{folder.Path("Jacks or Better(0) Summary.txt")});
    const std::string summary = folder.Read("Jacks or Better(0) Summary.txt");
    EXPECT_NE(summary.find("Payout%;99.5439\n"), std::string::npos);
    const std::string detail = folder.Read("Jacks or Better(0) Detail.txt");
    EXPECT_EQ(std::ranges::count(detail, '\n'), 135746 + 1);
    EXPECT_EQ(folder.FileCount(), 4);
}

TEST(AnalyzeGameTest, CodesAskForRunsForTheCurrentGameOrForNothing) {
    AnalyzedTable t;
    const std::string question =
        "ask Run Analysis: Tolvane has not analyzed this game and/or pay table. Would you like to "
        "run analysis now?\n";
    for (const int code : {0, 1, 2, 99, 201, 299, -100}) {
        t.Command({code, kRunTable});
        EXPECT_EQ(t.TakeLog(), "") << code;
    }
    t.answers = {"no"};
    t.Command({kOfferRun, kRunTable});
    EXPECT_EQ(t.TakeLog(), question);
    t.answers = {"yes"};
    t.Command({kOfferRun});
    EXPECT_TRUE(t.TakeLog().starts_with(question + "progress "));

    t.reports.shown.clear();
    t.reports.look = [](GameReportPages& pages) { pages.Show("Deuces Wild", 0); };
    t.Command({kReportCurrent, kRunTable});
    EXPECT_EQ(t.reports.shown, (std::vector<std::string>{"Jacks or Better(0)", "Jacks or Better(0)",
                                                         "Deuces Wild(0)"}))
        << "after a run, what was run";
    EXPECT_EQ(RunCode(7), 107);
    EXPECT_EQ(RunCode(100), 400) << "200 is taken";
    EXPECT_EQ(RunCode(-1), 0);
    EXPECT_EQ(RunCode(2147483647), 0);
}

TEST(AnalyzeGameTest, ARunThatIsCancelledInTimeLeavesNothing) {
    AnalyzedTable t;
    t.reports.choice = std::nullopt;
    t.Command({kRunTable, kRunTable});
    EXPECT_EQ(t.reports.shown.size(), 1U);
    EXPECT_EQ(t.TakeLog(), "");
    EXPECT_EQ(t.machine.folder.FileCount(), 1);
}

TEST(AnalyzeGameTest, ACancelledRunEndsSoonWithWholeFilesOfItsHands) {
    AnalyzedTable t;
    t.reports.choice = AnalysisFilesChoice{.summary = true, .detail = true};
    t.ports.progressSteps = 1;
    t.Command({kRunTable});
    EXPECT_EQ(t.reports.shown.size(), 2U) << "the report follows";
    const std::string detail = t.machine.folder.Read("Jacks or Better(0) Detail.txt");
    EXPECT_EQ(std::ranges::count(detail, '\n'), 128 + 1) << "two looks at the player";
    EXPECT_EQ(detail.back(), '\n');
    EXPECT_EQ(t.machine.folder.FileCount(), 4);
    for (const char* key : {"Coin", "ER", "Cost", "Payout%", "Var", "InitHands", "Final",
                            "Payline0", "Payline8", "Nothing"}) {
        EXPECT_NE(t.Cached("Jacks or Better(0)", key), "(none)") << key;
    }
    EXPECT_EQ(t.Cached("Jacks or Better(0)", "Cost"), "12,994,800.0000");
}

TEST(AnalyzeGameTest, FilesThatCannotBeWrittenStayAsTheyAre) {
    AnalyzedTable t;
    const std::string detail = t.machine.folder.Path("Jacks or Better(0) Detail.txt");
    std::filesystem::create_directories(detail + "/inside");
    t.reports.choice = AnalysisFilesChoice{.summary = false, .detail = true};
    t.Command({kRunTable});
    EXPECT_TRUE(std::filesystem::is_directory(detail + "/inside"));
    EXPECT_EQ(t.reports.lastReport, Golden("jacks_or_better"));
    EXPECT_EQ(t.machine.folder.FileCount(), 3) << "nothing beside it";
}

TEST(AnalyzeGameTest, ASlashInAGamesNameLeadsToNoOtherFolder) {
    AnalyzedTable t;
    EXPECT_EQ(AnalysisFilesOf("9/6 Jacks", 2, t.paths).detail,
              t.machine.folder.Path("9_6 Jacks(2) Detail.txt"));
}

TEST(AnalyzeGameTest, TheTablesOfAGameAreReachedAlongTheirChain) {
    OwnGame t;
    GameReportPages pages(t, t.spare, t.paths);
    pages.Show("Practice", 0);
    EXPECT_FALSE(pages.HasPrevious()) << "whatever stands in the file";
    EXPECT_EQ(t.spare.payTable.lines[0].payout, 1);
    pages.ShowPrevious();
    EXPECT_EQ(pages.TableIndex(), 0);
    pages.ShowNext();
    EXPECT_EQ(pages.TableIndex(), 1);
    pages.ShowNext();
    EXPECT_EQ(pages.TableIndex(), 3);
    EXPECT_EQ(t.spare.payTable.lines[0].payout, 3);
    EXPECT_FALSE(pages.HasNext());
    pages.ShowNext();
    EXPECT_EQ(pages.TableIndex(), 3);
    pages.ShowPrevious();
    EXPECT_EQ(pages.TableIndex(), 1);
    EXPECT_EQ(t.machine.file.GetInt("ActiveTbl", "Practice", -1, t.machine.files.gamePath), -1)
        << "the table in play stays";
}

TEST(AnalyzeGameTest, AGameIsChosenAtTheTableItWasLastPlayedOn) {
    OwnGame t;
    t.machine.file.WriteInt("ActiveTbl", "Practice", 3, t.machine.files.gamePath);
    GameReportPages pages(t, t.spare, t.paths);
    const auto games = pages.Games();
    EXPECT_EQ(games.back(), "Practice") << "no game without a pay table";
    EXPECT_EQ(std::ranges::count(games, "Sneak Peak Poker"), 0);
    EXPECT_TRUE(pages.Choose("Practice"));
    EXPECT_EQ(pages.TableIndex(), 3);
    EXPECT_FALSE(pages.Choose("sneak peak POKER"));
    EXPECT_EQ(t.TakeLog(),
              "told Game Analysis Not Available: Analysis not available for this game\n");
    EXPECT_EQ(pages.GameName(), "Practice");
}

TEST(AnalyzeGameTest, ATableIsRunByItsCodeAndOneThatIsMissingIsNot) {
    OwnGame t;
    t.Command({kRunTable + 3, kRunTable + 2});
    EXPECT_NE(t.Cached("Practice(3)", "ER"), "(none)");
    EXPECT_EQ(t.Cached("Practice(0)", "ER"), "(none)");
    EXPECT_TRUE(t.log.back().starts_with("told Missing pay table: "));
    EXPECT_EQ(t.reports.shown,
              (std::vector<std::string>{"Practice(0)", "Practice(3)", "Practice(3)"}));
}

// What the player does while a run lets him.
class BusyPlayer : public Recorder {
  public:
    using Recorder::Recorder;
    std::function<void()> duringRun;

    std::unique_ptr<Progress> SeesProgress(const std::string& text) override {
        if (const auto act = std::exchange(duringRun, nullptr)) act();
        return Recorder::SeesProgress(text);
    }
};

TEST(AnalyzeGameTest, ARunIsNotDisturbedByAnotherOneOnTheSameEngine) {
    AnalyzedTable t;
    BusyPlayer busy(t.engine);
    GameTable table{.engine = t.engine,
                    .files = t.machine.files,
                    .tables = t.machine.tables,
                    .display = busy,
                    .player = busy,
                    .sounds = busy,
                    .clock = busy};
    busy.duringRun = [&] {
        ScriptedReports inner;
        inner.look = [](GameReportPages& pages) { pages.Show("Deuces Wild", 0); };
        inner.codes = {kRunTable};
        AnalyzeGameCommand(table, t.spare, inner, t.paths);
    };
    t.reports.codes = {kRunTable};
    AnalyzeGameCommand(table, t.spare, t.reports, t.paths);
    EXPECT_EQ(t.reports.lastReport, Golden("jacks_or_better"));
    EXPECT_EQ(t.Cached("Deuces Wild(0)", "Payout%"), "100.7620") << "as published";
}

}  // namespace
