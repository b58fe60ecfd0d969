// The windows on all games, on one game and on the error log in the running program, used as a
// player uses them.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>

#include "core/store/AnalysisCache.h"
#include "core/store/ErrorLog.h"
#include "game/commands/GameSelection.h"
#include "game/reports/AllGamesRows.h"
#include "tests/ui/TestProgram.h"
#include "ui/tables/ReportTableView.h"

namespace {

// A window beside the machine's, with the keys.
QWidget& TopLevel(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() != name || !window->isVisible()) continue;
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return *window;
    }
    throw std::runtime_error(name);
}

QTableView& TableIn(const QWidget& window, const char* name) {
    return PartOf<QTableView>(PartOf<ReportTableView>(window, name), "table");
}

std::string TextAt(const QTableView& table, int row, int column) {
    return table.model()->index(row, column).data().toString().toStdString();
}

// The row of that first cell becomes the current one.
void GoTo(QTableView& table, const std::string& first) {
    for (int row = 0; row < table.model()->rowCount(); ++row) {
        if (TextAt(table, row, 0) == first)
            return table.setCurrentIndex(table.model()->index(row, 0));
    }
    ADD_FAILURE() << "no row " << first;
}

void Click(QWidget& window, const char* name) {
    QTest::mouseClick(&PartOf<QWidget>(window, name), Qt::LeftButton);
}

class ReportWindowsTest : public ProgramTest {
  protected:
    // Of all tables but some, as if they had been analysed.
    void KeepAnalyses(TestProgram& p, const std::vector<int>& but) {
        const ProfileOnDisk main{p.file, p.paths.mainProfile};
        for (const ListedTable& table : ListTables(main)) {
            if (std::ranges::count(but, table.place.gameId) > 0) continue;
            WriteToCache({{"ER", "", "1"}, {"Payout%", "", "50"}},
                         {0, PaysHash(table.table), std::nullopt},
                         TableSection(table.place.gameName, table.place.tableIndex),
                         {p.file, p.paths.analysisCache});
        }
    }
    void LogErrors(TestProgram& p, int errors) {
        for (int i = 0; i < errors; ++i) {
            // By turns a pat hand and four of a suit.
            const HoldMask best = i % 2 == 0 ? 31 : 30;
            const double cost = (i * 37) % 100 / 8.0;
            const ErrorLogEntry entry{{0, 1, 2, 3, 20 + i % 10}, {}, best, 0, cost, 0, 1 + i};
            AppendError(p.document->PlayersSeat().files.Game(), "Jacks or Better(0)", entry,
                        p.engine.statistics.nextError);
        }
        p.engine.statistics.playErrors.total = errors;
    }
};

TEST_F(ReportWindowsTest, AllGamesAnalyzesWhatIsMissingWhileTheMachineIsPlayed) {
    TestProgram& p = Start();
    KeepAnalyses(p, {300, 330, 351});
    p.Choose(kAllGames);
    QWidget* window = &TopLevel("allGames");
    auto& games = TableIn(*window, "games");
    EXPECT_EQ(games.model()->rowCount(), 42);
    EXPECT_EQ(TextAt(games, games.currentIndex().row(), 0), "Jacks or Better") << "is played";
    EXPECT_EQ(PartOf<QLabel>(*window, "state").text(), "2 tables are not analyzed");
    QTest::keyClick(window, Qt::Key_M, Qt::AltModifier);
    const auto& progress = PartOf<QWidget>(*window, "progress");
    EXPECT_TRUE(QTest::qWaitFor([&] { return progress.isVisible(); }));
    p.Deal(kNothing);
    EXPECT_FALSE(PartOf<QWidget>(*window, "play").isEnabled()) << "while a hand is in play";
    p.Key(Qt::Key_D);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !progress.isVisible(); }, 60'000));
    EXPECT_EQ(PartOf<QLabel>(*window, "state").text(), "All tables are analyzed");
    PartOf<QWidget>(*window, "filter").setFocus();
    QTest::keyClicks(&PartOf<QLineEdit>(*window, "filter"), "deuces wild");
    ASSERT_EQ(games.model()->rowCount(), 3);
    QTest::keyClick(&PartOf<QLineEdit>(*window, "filter"), Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible() && games.model()->rowCount() == 42) << "that ends the filter";
    QTest::keyClicks(&PartOf<QLineEdit>(*window, "filter"), "deuces wild");
    GoTo(games, "Deuces Wild");
    EXPECT_EQ(TextAt(games, games.currentIndex().row(), 2), "100.7620");
    auto& play = PartOf<QWidget>(*window, "play");
    play.setFocus();
    QTest::keyClick(&play, Qt::Key_Space);
    EXPECT_EQ(p.engine.settings.gameName, "Deuces Wild");
    EXPECT_TRUE(play.isEnabled() && play.hasFocus());
    p.clock.inPause = [&] {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        EXPECT_FALSE(play.isEnabled()) << "the machine is busy";
    };
    p.frame->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(p.frame.get()));
    p.Deal(kNothing);
    p.Key(Qt::Key_D);
    EXPECT_TRUE(play.isEnabled());
    Answer({[](QDialog& dialog) {
               EXPECT_TRUE(PartOf<QPlainTextEdit>(dialog, "report")
                               .toPlainText()
                               .startsWith("Game:\tDeuces Wild\n"));
               dialog.reject();
           }},
           [&] { Click(*window, "analyze"); });
    EXPECT_EQ(Told([&] { Click(*window, "edit"); }), "Pay Table Manager");
}

TEST_F(ReportWindowsTest, AllGamesHasTheHiddenGamesTooAndARunCanBeCancelled) {
    TestProgram& p = Start();
    KeepAnalyses(p, {300, 317, 351});  // one of them takes long
    p.Choose(kAllGames);
    QWidget* window = &TopLevel("allGames");
    auto& games = TableIn(*window, "games");
    GoTo(games, "Sneak Peak Poker");
    EXPECT_FALSE(PartOf<QWidget>(*window, "analyze").isEnabled());
    GoTo(games, "Spin Bonus Poker");
    Click(*window, "play");
    EXPECT_EQ(p.engine.settings.gameId, 354);
    Click(*window, "analyzeMissing");
    QTest::keyClick(window->focusWidget(), Qt::Key_Space);  // the focus is on Cancel
    const auto& progress = PartOf<QWidget>(*window, "progress");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !progress.isVisible(); }, 20'000));
    EXPECT_TRUE(PartOf<QWidget>(*window, "analyzeMissing").isEnabled());
    EXPECT_TRUE(ReadStamp({p.file, p.paths.analysisCache}, "One-Eyed Jacks(0)").pays.empty());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ReportWindowsTest, TheGameReportSaysWhatItsFiguresAreOfAndComesBackAsItWasLeft) {
    TestProgram& p = Start();
    KeepAnalyses(p, {});
    const ProfileOnDisk cache{p.file, p.paths.analysisCache};
    p.file.WriteString("Jacks or Better(0)", "Stopped", "24 %", cache.path);
    const QSize small(640, 470);
    const auto first = [&](QDialog& dialog) {
        auto& tabs = PartOf<QTabWidget>(dialog, "tabs");
        EXPECT_EQ(tabs.currentWidget()->objectName(), "report");
        EXPECT_TRUE(
            PartOf<QLabel>(dialog, "band").text().endsWith("24 %: not the return of the game"));
        EXPECT_TRUE(PartOf<QWidget>(dialog, "band").isVisible());
        dialog.resize(small);
        QTest::keyClick(&dialog, Qt::Key_T, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return tabs.currentIndex() == 2; }));
        EXPECT_FALSE(PartOf<QWidget>(dialog, "band").isVisible()) << "one is enough";
        EXPECT_TRUE(PartOf<QLabel>(PartOf<QWidget>(dialog, "lines"), "warning").isVisible());
        Click(dialog, "run");
    };
    const auto afterTheRun = [&](QDialog& dialog) {
        EXPECT_EQ(PartOf<QTabWidget>(dialog, "tabs").currentIndex(), 2);
        EXPECT_EQ(dialog.size(), small);
        const auto& lines = TableIn(dialog, "lines");
        EXPECT_EQ(lines.model()->rowCount(), 10);
        EXPECT_EQ(TextAt(lines, 0, 3), "40,390.55");
        EXPECT_FALSE(PartOf<QLabel>(PartOf<QWidget>(dialog, "lines"), "warning").isVisible());
        Click(dialog, "putAside");
    };
    Answer({first, ClickOn("ok"), afterTheRun}, [&] { p.Choose(kAnalyzeGame); });
    QWidget* aside = &TopLevel("gameAside");
    EXPECT_EQ(aside->windowTitle(), "Game Analysis: Jacks or Better, table 0");
    p.Choose(330);
    p.file.WriteString("Jacks or Better(0)", "Pays", "0", cache.path);
    const auto& warning = PartOf<QLabel>(PartOf<QWidget>(*aside, "lines"), "warning");
    EXPECT_FALSE(warning.isVisible()) << "the moment in which it was put aside";
    QTest::keyClick(&TopLevel("gameAside"), Qt::Key_F5);
    EXPECT_TRUE(warning.text().contains("of other pays")) << warning.text().toStdString();
    EXPECT_EQ(aside->windowTitle(), "Game Analysis: Jacks or Better, table 0");
}

TEST_F(ReportWindowsTest, TheLongestNamesAndFifteenLinesHaveTheirPlace) {
    const std::string name(80, 'W');
    std::string lines = "PayLines=15\n";
    for (int i = 0; i < 15; ++i) {
        const std::string n = std::to_string(i);
        lines += "Rank" + n + "=" + n + "\nPayout" + n + "=1\nMaxPayout" + n + "=5\nDescr" + n +
                 "=" + std::string(80, 'M') + "\n";
    }
    TestProgram& p = Start();
    p.file.WriteString("User Games", "1", "9001," + name, p.paths.mainProfile);
    p.file.SetSectionText(name + "(0)", lines, p.paths.mainProfile);
    p.Choose(kAllGames);
    QWidget& window = TopLevel("allGames");
    auto& games = TableIn(window, "games");
    EXPECT_EQ(games.model()->rowCount(), 43);
    GoTo(games, name);
    const auto look = [&](QDialog& dialog) {
        PartOf<QTabWidget>(dialog, "tabs").setCurrentIndex(2);
        EXPECT_EQ(TableIn(dialog, "lines").model()->rowCount(), 16);
        EXPECT_TRUE(dialog.screen()->availableSize().width() >= dialog.width());
        EXPECT_EQ(PartOf<QComboBox>(dialog, "game").currentText().toStdString(), name);
        dialog.reject();
    };
    Answer({look}, [&] { QTest::keyClick(&games, Qt::Key_Return); });
}

TEST_F(ReportWindowsTest, AWholeErrorLogIsSortedFilteredAndAddedUp) {
    TestProgram& p = Start();
    LogErrors(p, kErrorLogSize);
    const auto use = [&](QDialog& dialog) {
        const auto& summary = PartOf<QPlainTextEdit>(dialog, "summary");
        EXPECT_EQ(summary.verticalScrollBar()->maximum(), 0) << "all of it is seen";
        QTest::keyClick(&dialog, Qt::Key_A, Qt::AltModifier);
        auto& errors = TableIn(dialog, "entries");
        EXPECT_TRUE(QTest::qWaitFor([&] { return errors.isVisible(); }));
        EXPECT_EQ(errors.model()->rowCount(), kErrorLogSize);
        auto* view = dialog.findChild<ReportTableView*>("entries");
        view->SortBy("-Cost ($)");
        EXPECT_EQ(TextAt(errors, 0, 5), "12.3750");
        errors.setFocus();
        errors.setCurrentIndex(errors.model()->index(0, 0));
        QTest::keyClick(&errors, Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(errors.currentIndex().row(), kErrorLogSize - 1) << "and no page is turned";
        EXPECT_EQ(PartOf<QLineEdit>(dialog, "title").text(), "Error 1");

        QTest::keyClick(&dialog, Qt::Key_B, Qt::AltModifier);
        auto& kinds = TableIn(dialog, "kinds");
        EXPECT_TRUE(QTest::qWaitFor([&] { return kinds.isVisible(); }));
        EXPECT_EQ(kinds.model()->rowCount(), 2);
        GoTo(kinds, "Pat hand");
        EXPECT_EQ(TextAt(kinds, kinds.currentIndex().row(), 1), "50");
        QTest::keyClick(&kinds, Qt::Key_Return);
        EXPECT_EQ(PartOf<QComboBox>(dialog, "kind").currentText(), "Pat hand");
        EXPECT_EQ(errors.model()->rowCount(), 50);
        for (int row = 0; row < 50; ++row) EXPECT_EQ(TextAt(errors, row, 7), "Pat hand");
        dialog.reject();
    };
    Answer({use}, [&] { p.Choose(kViewErrorLog); });
}

TEST_F(ReportWindowsTest, ALogPutAsideIsReadAndAnalyzedWhileTheMachineIsPlayed) {
    TestProgram& p = Start();
    LogErrors(p, 2);
    p.Deal(kNothing);
    const auto look = [](QDialog& dialog) {
        PartOf<QTabWidget>(dialog, "tabs").setCurrentIndex(1);
        for (const char* name : {"dealHand", "deleteError"}) {
            const auto& button = PartOf<QWidget>(dialog, name);
            EXPECT_FALSE(button.isEnabled()) << name << ": the bet of the hand would be lost";
            EXPECT_EQ(button.toolTip(), "Not while a hand is in play: draw first");
        }
        Click(dialog, "putAside");
    };
    Answer({look}, [&] { p.Choose(kViewErrorLog); });
    p.Key(Qt::Key_D);
    ChooseGame(p.document->PlayersSeat(), kSneakPeakGameId);
    QWidget& log = TopLevel("errorsAside");
    EXPECT_EQ(log.findChild<QWidget*>("dealHand"), nullptr);
    GoTo(TableIn(log, "entries"), "2");
    Click(log, "analyzeHand");
    QWidget* hand = &TopLevel("handAside");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(hand->windowTitle().startsWith("Hand Analysis: Jacks or Better, "));
    const auto& holds = PartOf<ReportTableView>(*hand, "holds").Table();
    EXPECT_EQ(std::ranges::find(holds.rows, 0, &ReportRow::id)->remark, "your hold");

    auto& known = *PartOf<QWidget>(log, "knownCard").parentWidget();
    PartOf<QTabWidget>(log, "tabs").setCurrentIndex(0);
    EXPECT_FALSE(known.isVisible());
    QTest::keyClick(&TopLevel("errorsAside"), Qt::Key_F5);
    EXPECT_TRUE(known.isVisible()) << "of the game that is played now";
}

TEST_F(ReportWindowsTest, WhatAutoplayFoundStaysItsOwn) {
    TestProgram& p = Start();
    Answer({Type("10"), Press(Qt::Key_Return), ClickOn("putAside")}, [&] { p.Choose(kAutoplay); });
    QWidget& aside = TopLevel("statisticsAside");
    EXPECT_EQ(aside.windowTitle(), "Autoplay: Jacks or Better(0)");
    EXPECT_EQ(aside.findChild<QWidget*>("refresh"), nullptr);
    const auto& table = PartOf<ReportTableView>(aside, "statisticsTable").Table();
    QTest::keyClick(&aside, Qt::Key_F5);
    EXPECT_EQ(table.rows.at(0).cells.at(table.columns.size() == 3 ? 1 : 2).text, "10");
}

TEST_F(ReportWindowsTest, WhatAllGamesAsksEndsWithTheProgramAndHoldsTheMachineNotUp) {
    TestProgram& p = Start();
    p.Choose(kAllGames);
    const auto close = [&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
        p.frame->close();
    };
    Answer({close}, [&] { Click(TopLevel("allGames"), "saveTable"); });
    EXPECT_FALSE(p.frame->isVisible());
}

TEST_F(ReportWindowsTest, AnEntryIsAnalyzedDeletedAndDealt) {
    TestProgram& p = Start();
    LogErrors(p, 3);
    p.engine.replayIndex = 2;
    QDialog* log = nullptr;
    const auto toRow = [&](const char* number) -> DialogRobot::Step {
        return [&log, number](QDialog& dialog) {
            log = &dialog;
            PartOf<QTabWidget>(dialog, "tabs").setCurrentIndex(1);
            auto& errors = TableIn(dialog, "entries");
            errors.setFocus();
            GoTo(errors, number);
        };
    };
    std::string analyzed;
    const auto noteAnalysis = [&](QDialog& dialog) {
        analyzed = PartOf<QPlainTextEdit>(dialog, "report").toPlainText().toStdString();
        dialog.reject();
    };
    const auto pressOn = [](Qt::Key key) -> DialogRobot::Step {
        return [key](QDialog& dialog) { QTest::keyClick(&TableIn(dialog, "entries"), key); };
    };
    const auto expectRows = [](int rows) -> DialogRobot::Step {
        return [rows](QDialog& dialog) {
            EXPECT_EQ(TableIn(dialog, "entries").model()->rowCount(), rows);
        };
    };
    const auto deleteKey = pressOn(Qt::Key_Delete);
    Answer({toRow("2"), pressOn(Qt::Key_Return), noteAnalysis, deleteKey, Choose(QMessageBox::No),
            expectRows(3), deleteKey, Choose(QMessageBox::Yes), expectRows(2), toRow("2"),
            ClickOn("dealHand")},
           [&] { p.Choose(kViewErrorLog); });
    EXPECT_NE(analyzed.find("\nA234_"), std::string::npos) << analyzed;
    EXPECT_EQ(p.engine.statistics.nextError, 2);
    EXPECT_EQ(p.engine.statistics.playErrors.total, 3);
    EXPECT_EQ(p.engine.replayIndex, 1) << "of the same hand";
    EXPECT_TRUE(p.engine.fixedHand && !p.engine.handOver);
    EXPECT_EQ(p.engine.dealtCopy, (HandCards{0, 1, 2, 3, 22})) << "what was the third entry";
    EXPECT_EQ(p.engine.settings.credits, 100);
}

}  // namespace
