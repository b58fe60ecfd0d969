// The windows of reports: how they were left is remembered, and one that is put aside stays beside
// the machine, which is played on.
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QTabWidget>
#include <QTimer>
#include <filesystem>

#include "tests/ui/TestProgram.h"
#include "ui/parts/ReportBox.h"
#include "ui/tables/ReportTableView.h"

namespace {

class PutAsideTest : public ProgramTest {
  protected:
    // Opens the report on the hand and takes the step in it.
    void OpenHand(const DialogRobot::Step& step) {
        Answer({step}, [this] { program->Choose(kAnalyzeHand); });
    }
    void PutHandAside() { OpenHand(ClickOn("putAside")); }

    // Those that are seen, the oldest first.
    static std::vector<QWidget*> Aside() {
        std::vector<QWidget*> windows;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "handAside" && window->isVisible())
                windows.push_back(window);
        }
        return windows;
    }
    static std::string CardsOf(const QWidget& window) {
        return PartOf<QLineEdit>(window, "typedHand").text().toStdString();
    }
    // All that it says.
    static std::string Contents(const QWidget& window) {
        return window.windowTitle().toStdString() +
               PartOf<ReportBox>(window, "report").toPlainText().toStdString() + CardsOf(window);
    }
};

TEST_F(PutAsideTest, TheMachineIsPlayedOnBesideAReportThatKeepsItsMoment) {
    TestProgram& p = Start();
    p.Deal("AS KS QS JS 9S");
    p.Key(Qt::Key_1);
    PutHandAside();
    ASSERT_EQ(Aside().size(), 1U);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    QWidget& first = *Aside()[0];
    const auto& holds = PartOf<ReportTableView>(first, "holds").Table();
    EXPECT_EQ(std::ranges::find(holds.rows, 16, &ReportRow::id)->remark, "your hold");
    EXPECT_NE(first.windowTitle().indexOf("AS KS QS JS 9S"), -1);
    const std::string before = Contents(first);

    p.HoldAll();
    p.Key(Qt::Key_D);
    EXPECT_TRUE(p.engine.handOver);
    std::filesystem::copy(folder.Path("Default.qdx"), folder.Path("Other.qdx"));
    p.document->OpenFile(QString::fromStdString(folder.Path("Other.qdx")));
    p.Choose(330);
    ASSERT_NE(p.engine.settings.gameName, "Jacks or Better");
    p.Deal(kNothing);
    PutHandAside();
    ASSERT_EQ(Aside().size(), 2U);
    OpenHand([&](QDialog& dialog) {  // on the spare engine
        auto& typed = PartOf<QLineEdit>(dialog, "typedHand");
        typed.selectAll();
        QTest::keyClicks(&typed, "2C 2D 2H 3S 3C");
        QTest::keyClick(&typed, Qt::Key_Return);
        dialog.accept();
    });
    EXPECT_EQ(Contents(first), before);
    // A hand is chosen in the window without the machine.
    auto& typed = PartOf<QLineEdit>(first, "typedHand");
    typed.selectAll();
    QTest::keyClicks(&typed, "AS AH AD AC 2S");
    QTest::keyClick(&typed, Qt::Key_Return);
    EXPECT_EQ(CardsOf(first), "AS AH AD AC 2S");
    EXPECT_EQ(p.HandText(), kNothing);
    first.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&first));
    QTest::keyClick(&first, Qt::Key_F5);
    EXPECT_TRUE(first.windowTitle().contains(QString::fromStdString(p.engine.settings.gameName)));
    EXPECT_EQ(CardsOf(first), kNothing);
    QTest::keyClick(&first, Qt::Key_L, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return PartOf<QWidget>(first, "holds").isVisible(); }));
    QTest::keyClick(&first, Qt::Key_F, Qt::ControlModifier);
    for (const std::size_t left : {2U, 1U}) {  // the first ends the search
        QTest::keyClick(first.focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(Aside().size(), left);
    }
}

TEST_F(PutAsideTest, NothingThatIsAsideHoldsTheEndUp) {
    TestProgram& p = Start();
    p.Deal(kNothing);
    PutHandAside();
    PutHandAside();
    // Even while one of them waits for an answer.
    QWidget& change = PartOf<QWidget>(*Aside()[0], "changeHand");
    QTimer::singleShot(0, [&] {
        Answer({[&](QDialog&) { p.frame->close(); }},
               [&] { QTest::mouseClick(&change, Qt::LeftButton); });
    });
    QTimer guard;
    QObject::connect(&guard, &QTimer::timeout, [] { QApplication::exit(1); });
    guard.start(5000);
    EXPECT_EQ(QApplication::exec(), 0) << "the program has not ended";
    EXPECT_FALSE(p.frame->isVisible());
    EXPECT_TRUE(Aside().empty());
}

TEST_F(PutAsideTest, AReportOpensAsItWasLeft) {
    TestProgram& p = Start();
    p.Deal(kNothing);
    QSize left;
    OpenHand([&](QDialog& dialog) {
        EXPECT_EQ(PartOf<QTabWidget>(dialog, "tabs").currentIndex(), 0) << "at first";
        QTest::mouseClick(&PartOf<QWidget>(dialog, "displayOdds"), Qt::LeftButton);
        PartOf<QTabWidget>(dialog, "tabs").setCurrentIndex(2);
        PartOf<ReportTableView>(dialog, "holds").SortBy("-Draws");
        left = dialog.size() - QSize(40, 30);
        dialog.resize(left);
        dialog.move(40, 50);
        dialog.accept();
    });
    const auto asLeft = [&](QWidget& window) {
        EXPECT_EQ(PartOf<QTabWidget>(window, "tabs").currentIndex(), 2);
        EXPECT_TRUE(PartOf<QAbstractButton>(window, "displayOdds").isChecked());
        EXPECT_TRUE(PartOf<ReportBox>(window, "report").toPlainText().contains("1:"));
        EXPECT_EQ(PartOf<ReportTableView>(window, "holds").SortedBy(), "-Draws");
        EXPECT_EQ(PartOf<ReportTableView>(window, "holds").Shown().rows[0].id, 0);
    };
    OpenHand([&](QDialog& dialog) {
        asLeft(dialog);
        EXPECT_EQ(dialog.size(), left);
        EXPECT_EQ(dialog.pos(), QPoint(40, 50));
        dialog.move(50'000, 50'000);  // to a screen that is taken away
        QTest::mouseClick(&PartOf<QWidget>(dialog, "putAside"), Qt::LeftButton);
    });
    ASSERT_EQ(Aside().size(), 1U);
    asLeft(*Aside()[0]);
    OpenHand([](QDialog& dialog) {
        EXPECT_TRUE(dialog.screen()->availableGeometry().contains(dialog.geometry()));
        dialog.accept();
    });
    p.frame->close();
    EXPECT_TRUE(Aside().empty());
}

}  // namespace
