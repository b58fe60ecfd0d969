// The play statistics with what the exact analysis expects, which comes from a thread of its own.
#include "ui/reports/StatisticsPage.h"

#include <QTabWidget>

#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "ui/charts/CreditChart.h"
#include "ui/parts/ReportBox.h"
#include "ui/reports/AsideWindows.h"
#include "ui/reports/StatisticsDialog.h"
#include "ui/tables/ReportTableView.h"

namespace {

struct StatisticsPageTest : testing::Test, TestMachine {
    void PlayHands(int count) {
        for (int i = 0; i < count; ++i) {
            Deal("2S 4S 6S 8S TS");
            Draw(kStandPat);
        }
    }
    // Of the table's row of hands won: seen in the session, and expected.
    static std::string HandsWon(const QWidget& page) {
        const auto& table = PartOf<ReportTableView>(page, "statisticsTable").Table();
        const auto& cells = table.rows.at(1).cells;
        if (table.columns.size() == 3) return cells[1].text;
        return cells[2].text + " of " + cells[3].text;
    }
    static std::string Course(const QWidget& page) {
        const auto& chart = PartOf<CreditChart>(page, "creditChart");
        return chart.Points() > 0 ? chart.TextOf(chart.Points() - 1).toStdString() : "none";
    }
    static bool Comes(const QWidget& page, const std::string& handsWon) {
        return QTest::qWaitFor([&] { return HandsWon(page) == handsWon; }, 30'000);
    }
};

TEST_F(StatisticsPageTest, WhatIsExpectedComesAndIsThatOfTheHandsBet) {
    engine.settings.bet = 1;
    PlayHands(2);
    engine.settings.bet = 5;
    PlayHands(2);
    const StatisticsPage page(engine, 0, nullptr, nullptr);
    EXPECT_EQ(HandsWon(page), "4");
    EXPECT_EQ(Course(page), "Hand 4: $60.00");
    EXPECT_TRUE(Comes(page, "4 of 1.82")) << HandsWon(page);
    // Each coin returns 0.995439 of five and 0.983735 of one.
    EXPECT_EQ(Course(page), "Hand 4: $60.00; expected $-0.08, give or take $31.39");
    const std::string svg = PartOf<CreditChart>(page, "creditChart").Svg().toStdString();
    EXPECT_NE(svg.find(">Jacks or Better(0), 5 × $1.00, "), std::string::npos);
}

// Of 200 hands of 9/6, one of twenty loses more than 45 bets of five dollars, and one wins more
// than 45.
TEST_F(StatisticsPageTest, HandsOfOneBetHaveTheExactBandOfTheirNumber) {
    engine.settings.bet = 5;
    PlayHands(200);
    const StatisticsPage page(engine, 0, nullptr, nullptr);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return Course(page).ends_with("; nine of ten lie between $-225.00 and $225.00"); },
        30'000))
        << Course(page);
    EXPECT_NE(PartOf<CreditChart>(page, "creditChart").Svg().indexOf("Nine of ten sessions"), -1);
}

TEST_F(StatisticsPageTest, APageThatIsPutAsideKeepsItsMomentUntilItIsRefreshed) {
    PlayHands(3);
    std::unique_ptr<ReportPage> copy;
    {
        const StatisticsPage page(engine, 0, &engine, nullptr);
        copy = page.Copy();
    }
    Play("Sneak Peak Poker", kSneakPeakGameId);
    EXPECT_TRUE(Comes(*copy, "3 of 1.36")) << HandsWon(*copy);
    EXPECT_EQ(copy->Caption(), "Game Play Analysis: Jacks or Better(0)");
    copy->Refresh();
    EXPECT_EQ(copy->Caption(), "Game Play Analysis: Sneak Peak Poker(0)");
    EXPECT_EQ(HandsWon(*copy), "0");
    EXPECT_EQ(Course(*copy), "none");
    EXPECT_TRUE(PartOf<ReportBox>(*copy, "lines").toPlainText().startsWith("Sneak Peak Poker\t"));
    EXPECT_FALSE(QTest::qWaitFor([&] { return HandsWon(*copy) != "0"; }, 300));
    Play("Jacks or Better", 300);
    PlayHands(1);
    for (int i = 0; i < 20; ++i) copy->Refresh();  // each ends the analysis before it
    EXPECT_TRUE(Comes(*copy, "1 of 0.4546")) << HandsWon(*copy);
    PlayHands(1);
    copy->Refresh();
    EXPECT_EQ(HandsWon(*copy), "2 of 0.9091") << "what is expected of this table is known";
}

TEST_F(StatisticsPageTest, TheDialogIsPutAsideAndOpensAsItWasLeft) {
    AsideWindows aside;
    const auto open = [&](const DialogRobot::Step& step) {
        Answer({step}, [&] { StatisticsDialog(engine, 0, nullptr, &engine, &aside).exec(); });
    };
    open([](QDialog& dialog) {
        auto& tabs = PartOf<QTabWidget>(dialog, "tabs");
        EXPECT_EQ(tabs.currentIndex(), 0);
        tabs.setCurrentIndex(2);
        PartOf<QPushButton>(dialog, "putAside").click();
    });
    const auto windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::ranges::any_of(windows, [](const QWidget* window) {
        return window->objectName() == "statisticsAside" && window->isVisible();
    }));
    open([](QDialog& dialog) {
        EXPECT_EQ(PartOf<QTabWidget>(dialog, "tabs").currentIndex(), 2);
        dialog.reject();
    });
}

}  // namespace
