// The window of the strategy charts, and the reasons below other reports, in the running program.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTabWidget>
#include <QTableView>

#include "core/store/StrategyCharts.h"
#include "core/strategy/RowText.h"
#include "tests/ui/TestProgram.h"
#include "ui/charts/LossChart.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr const char* kSection = "Jacks or Better(0)";
constexpr const char* kShort =
    "pat straight or better\nhigh pair\n4 to a flush\npair\ndiscard everything";
constexpr const char* kLong =
    "pat straight or better\nthree of a kind\ntwo pair\nhigh pair\n4 to a flush\npair\n"
    "4 to a straight, 2 straights\ndiscard everything";

class StrategyWindowTest : public ProgramTest {
  protected:
    TestProgram& StartWithCharts(SearchReach reach = SearchReach::kWhole) {
        TestProgram& p = Start();
        const TableCharts charts{
            1,
            99.543904,
            {{{ParseChart(kShort).rows, 20}, {ParseChart(kLong).rows, 3}}, reach},
            {}};
        EXPECT_TRUE(KeepCharts(File(p), kSection, p.engine.payTable, charts));
        return p;
    }
    static ProfileOnDisk File(TestProgram& p) { return {p.file, p.paths.strategyCharts}; }

    QWidget& Open() {
        program->Choose(kStrategy);
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() != "strategy" || !window->isVisible()) continue;
            EXPECT_TRUE(QTest::qWaitForWindowActive(window));
            return *window;
        }
        throw std::runtime_error("no window");
    }
    static QTableView& Table(QWidget& window, const char* name) {
        return PartOf<QTableView>(PartOf<ReportTableView>(window, name), "table");
    }
    static bool WaitForRows(QWidget& window, int rows) {
        auto& table = Table(window, "lines");
        return QTest::qWaitFor([&] { return table.model()->rowCount() == rows; }, 60'000);
    }
    static QString Says(QWidget& window, const char* label) {
        return PartOf<QLabel>(window, label).text();
    }
};

TEST_F(StrategyWindowTest, AKeptChartIsReadByKeysAlone) {
    StartWithCharts();
    QWidget& window = Open();
    ASSERT_TRUE(WaitForRows(window, 8)) << "the standard chart is the better one";
    EXPECT_TRUE(Says(window, "price").startsWith("8 lines: "));
    EXPECT_TRUE(Says(window, "price").endsWith(" an hour at dollars and 600 hands"));
    EXPECT_EQ(Says(window, "state"), "Charts of all lengths have been searched for");
    auto& slider = PartOf<QSlider>(window, "length");
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_Home);
    ASSERT_TRUE(WaitForRows(window, 5));
    EXPECT_TRUE(slider.accessibleDescription().startsWith("5 lines: "));
    QTest::keyClick(&slider, Qt::Key_Right);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(slider.value(), 7);
    EXPECT_TRUE(Says(window, "price").startsWith("5 lines: ")) << "the best one of seven at most";
    auto& curve = PartOf<LossChart>(window, "lossChart");
    EXPECT_EQ(curve.Points(), 2);
    QTest::keyClick(&window, Qt::Key_V, Qt::AltModifier);
    curve.setFocus();
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Return}) QTest::keyClick(&curve, key);
    ASSERT_TRUE(WaitForRows(window, 8));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(StrategyWindowTest, AfterTheStandardChartTheOthersAreSearchedForUntilThatIsStopped) {
    StartWithCharts(SearchReach::kStandard);
    QWidget& window = Open();
    const auto searches = [&] { return Says(window, "state").startsWith("Searching"); };
    ASSERT_TRUE(QTest::qWaitFor(searches));
    QTest::mouseClick(&PartOf<QWidget>(window, "cancelSearch"), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !searches(); }, 60'000));
    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_FALSE(QTest::qWaitFor(searches, 1000)) << "begins by itself no more";
}

TEST_F(StrategyWindowTest, TheSameRowsHaveAnotherPriceWhereTheTablePaysOtherwise) {
    TestProgram& p = StartWithCharts();
    QWidget& window = Open();
    ASSERT_TRUE(WaitForRows(window, 8));
    const QString before = Says(window, "price");
    p.file.WriteString(kSection, "MaxPayout2", "130", p.paths.mainProfile);
    PayTable better = p.engine.payTable;
    better.lines[2].maxPayout = 130;
    const TableCharts charts{1, 99.8, {{{ParseChart(kLong).rows, 3}}, SearchReach::kWhole}, {}};
    ASSERT_TRUE(KeepCharts(File(p), kSection, better, charts));
    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return Says(window, "price") != before &&
                   PartOf<QWidget>(window, "saveCard").isEnabled();
        },
        60'000))
        << before.toStdString();
}

TEST_F(StrategyWindowTest, AnExceptionOpensItsHandAndACardIsSaved) {
    TestProgram& p = StartWithCharts();
    QWidget& window = Open();
    ASSERT_TRUE(WaitForRows(window, 8));
    PartOf<QTabWidget>(window, "tabs").setCurrentIndex(1);
    auto& groups = Table(window, "exceptions");
    const int count = groups.model()->rowCount();
    ASSERT_GT(count, 2);
    auto& group = PartOf<QComboBox>(window, "group");
    ASSERT_EQ(group.count(), count + 1);
    group.setFocus();
    QTest::keyClick(&group, Qt::Key_Down);
    ASSERT_GT(groups.model()->rowCount(), 1) << "the hands of the first group";
    const auto hand = groups.model()->index(0, 0).data().toString();
    EXPECT_TRUE(QString("%1 ").arg(hand).count(' ') == 5) << hand.toStdString();
    groups.setFocus();
    groups.setCurrentIndex(groups.model()->index(0, 0));
    const GameEngine before = p.engine;
    Answer({[&](QDialog& dialog) {
               EXPECT_EQ(dialog.objectName(), "handAnalysis");
               EXPECT_EQ(PartOf<QLineEdit>(dialog, "typedHand").text(), hand);
               const auto& reason = PartOf<QLabel>(dialog, "chartReason");
               EXPECT_TRUE(reason.isVisible());
               EXPECT_TRUE(reason.text().contains("an exception of the chart, worth"))
                   << reason.text().toStdString();
               dialog.reject();
           }},
           [&] { QTest::keyClick(&groups, Qt::Key_Return); });
    EXPECT_EQ(p.engine.dealtCopy, before.dealtCopy);
    EXPECT_EQ(p.engine.settings, before.settings);
    const std::string card = folder.Path("card.svg");
    Answer({TypeFile("Save Card", card)},
           [&] { QTest::mouseClick(&PartOf<QWidget>(window, "saveCard"), Qt::LeftButton); });
    EXPECT_NE(folder.Read("card.svg").find(">Jacks or Better, table 0<"), std::string::npos);
}

TEST_F(StrategyWindowTest, OtherPaysHaveNoChartAndOtherGamesNone) {
    StartWithCharts();
    SetInTable("Jacks or Better", "MaxPayout3", "40");
    QWidget& window = Open();
    EXPECT_TRUE(Says(window, "price").isEmpty());
    EXPECT_FALSE(PartOf<QWidget>(window, "saveCard").isEnabled());
    auto& game = PartOf<QComboBox>(window, "game");
    game.setFocus();
    while (game.currentText() != "Pick Em Poker") QTest::keyClick(&game, Qt::Key_Down);
    EXPECT_TRUE(
        Says(window, "state")
            .startsWith("There is no strategy chart for Pick Em Poker, which is played by piles"));
    EXPECT_FALSE(PartOf<QWidget>(window, "findCharts").isEnabled());
}

// The window is closed, and opened a second time, in the middle of the search; the program ends in
// it, and what was found is there at the next start.
TEST_F(StrategyWindowTest, ASearchGoesOnBehindAClosedWindowAndIsKeptWhenTheProgramEnds) {
    TestProgram& p = Start();
    {
        QWidget& window = Open();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return PartOf<QWidget>(window, "cancelSearch").isVisible(); }, 5000))
            << "without a chart the search begins by itself";
        QTest::keyClick(&window, Qt::Key_Escape);
    }
    p.Deal(kNothing);
    p.Key(Qt::Key_D);
    EXPECT_TRUE(p.engine.handOver);
    QWidget& again = Open();
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return PartOf<QSlider>(again, "length").isEnabled(); }, 60'000));
    EXPECT_TRUE(PartOf<QWidget>(again, "cancelSearch").isVisible()) << "and there is a chart";
    EXPECT_TRUE(p.document->OnCloseDocument());
    ProfileFile nextStart;
    const auto kept = ReadCharts({nextStart, p.paths.strategyCharts}, kSection, p.engine.payTable);
    ASSERT_TRUE(kept);
    EXPECT_FALSE(kept->plain.lists.empty());
    EXPECT_LT(kept->plain.reach, SearchReach::kWhole);
    EXPECT_NEAR(kept->best, 99.543904, 0.000001);
}

TEST_F(StrategyWindowTest, APlayErrorIsToldTheReasonBelowItsBox) {
    TestProgram& p = StartWithCharts();
    p.Choose(kModeWarning);
    p.Deal("2S 5S 8S TS TD");
    p.Keys({Qt::Key_4, Qt::Key_5});
    Answer({[](QDialog& dialog) {
               ASSERT_EQ(dialog.objectName(), "bestPlayError");
               const auto& reason = PartOf<QLabel>(dialog, "chartReason");
               EXPECT_EQ(reason.text(),
                         "Strategy chart: 4 to a flush (line 5) stands above pair "
                         "(line 6).");
               EXPECT_GT(reason.y(), PartOf<QWidget>(dialog, "message").y());
               dialog.reject();
           }},
           [&] { p.Key(Qt::Key_D); });
    p.Keys({Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_5});
    p.Key(Qt::Key_D);
    Answer({[](QDialog& dialog) {
               EXPECT_TRUE(PartOf<QLabel>(dialog, "chartReason").text().contains("stands above"));
               dialog.reject();
           }},
           [&] { p.Choose(kViewErrorLog); });
}

}  // namespace
