// The window on sessions, the long run and luck, used by its fields and keys.
#include "ui/reports/BankrollWindow.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>
#include <QTabWidget>

#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "ui/charts/LawChart.h"
#include "ui/tables/ReportTableView.h"

namespace {

struct BankrollWindowTest : testing::Test, TestMachine {
    static bool Says(const QWidget& window, const char* label, const QString& words) {
        const auto& said = PartOf<QLabel>(window, label);
        const bool comes = QTest::qWaitFor([&] { return said.text().contains(words); }, 30'000);
        EXPECT_TRUE(comes) << said.text().toStdString();
        return comes;
    }
    static void Type(QWidget& window, const char* box, const QString& value) {
        auto& field = PartOf<QAbstractSpinBox>(window, box);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, value);
        QTest::keyClick(&field, Qt::Key_Return);
    }
};

TEST_F(BankrollWindowTest, TheAnswerFollowsWhatIsTyped) {
    engine.settings.bet = 5;
    engine.settings.coin = 1;
    BankrollWindow window(engine);
    window.Open();
    EXPECT_TRUE(Says(window, "sessionWords",
                     "35 of 100 such sessions end ahead; the middle one "
                     "loses $125.00."));
    EXPECT_FALSE(PartOf<QWidget>(window, "goal").isEnabled()) << "without a bankroll";
    Type(window, "money", "1000");
    EXPECT_TRUE(Says(window, "sessionWords", "1 in 1,000 are broke before the end."));
    Type(window, "goal", "2000");
    EXPECT_TRUE(Says(window, "sessionWords", "3 of 100 reach the goal"));
    Type(window, "hours", "20");
    EXPECT_EQ(PartOf<QSpinBox>(window, "hands").value(), 10'000);
    EXPECT_TRUE(Says(window, "sessionWords", "65 of 100 are broke before the end, and 19 of 100"));
    Type(window, "hands", "500");
    EXPECT_EQ(PartOf<QDoubleSpinBox>(window, "hours").value(), 1);
    EXPECT_TRUE(Says(window, "sessionWords", "1 of 100 reach the goal"));
    const auto& chart = PartOf<LawChart>(window, "sessionLaw");
    EXPECT_GT(chart.Points(), 20);
    EXPECT_NE(chart.Svg().indexOf("Result, dollars"), -1);
    EXPECT_EQ(PartOf<ReportTableView>(window, "sessionTable").Table().rows.size(), 21U);

    EXPECT_TRUE(Says(window, "longWords", "Ruin is certain; cash back of 0.456 %"));
    QTest::keyClick(&window, Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(PartOf<QTabWidget>(window, "tabs").currentIndex(), 1);
    Type(window, "longCashBack", "1");
    Type(window, "longMoney", "5460.32");
    EXPECT_TRUE(Says(window, "longWords", "50 of 100 who begin with $5,460.32"));
    EXPECT_EQ(PartOf<ReportTableView>(window, "riskTable").Table().rows.at(0).cells[1].text,
              "1,092.1");
    Type(window, "lines", "3");
    EXPECT_TRUE(Says(window, "longWords", "56 of 100 who begin"));
}

TEST_F(BankrollWindowTest, TheHandsAtTheMachineAreFollowedAndMarked) {
    engine.settings.bet = 5;
    BankrollWindow window(engine);
    window.Open();
    EXPECT_TRUE(Says(window, "luckWords", "No hand of this game has been played"));
    Deal("2S 4S 6S 8S TS");
    Draw(kStandPat);
    window.Follow();
    EXPECT_TRUE(Says(window, "luckWords",
                     "1 hand has brought back 600.00 % of what was bet. Of "
                     "100 players with one hand 97 have less."));
    const auto said = [&] { return PartOf<QLabel>(window, "luckWords").text(); };
    const QString after = said();
    Deal("2S 4S 6S 8S TS");
    window.Follow();
    QTest::qWait(20);
    EXPECT_EQ(said(), after) << "a bet in play is of no hand played yet";
    Draw(0);
    engine.settings.gameName = "Another";
    window.Follow();
    EXPECT_EQ(window.windowTitle(), "Bankroll: Another(0)") << "of the same pays";
    Type(window, "hours", "5000000");
    EXPECT_EQ(PartOf<QSpinBox>(window, "hands").value(), 10'000'000);
    const auto& chart = PartOf<LawChart>(window, "luckLaw");
    EXPECT_NE(chart.accessibleDescription().indexOf("Your hands: $25.00"), -1)
        << chart.accessibleDescription().toStdString();
    EXPECT_EQ(chart.TextOf(chart.Points() - 1).indexOf("From $"), 0);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
