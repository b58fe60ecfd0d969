// The game analysis at the window: report, tables, runs and the pictures of what they found.
#include "ui/reports/GameAnalysisDialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextOption>
#include <map>

#include "app/WindowPlayer.h"
#include "game/session/AnalyzeGame.h"
#include "tests/game/FakePorts.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/charts/CreditChart.h"
#include "ui/charts/HoldChart.h"
#include "ui/charts/ShareChart.h"

namespace {

DialogRobot::Step SpaceOn(const QString& name) {
    return [=](QDialog& dialog) {
        auto* widget = dialog.findChild<QWidget*>(name);
        ASSERT_NE(widget, nullptr) << name.toStdString();
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Space);
    };
}

class GameAnalysisDialogTest : public testing::Test {
  protected:
    void SetUp() override {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void Command(std::initializer_list<DialogRobot::Step> steps) {
        const DialogRobot robot(steps);
        AnalyzeGameCommand(seat, spare, paths);
    }

    // Notes what the dialog shows.
    DialogRobot::Step Look() {
        return [this](QDialog& dialog) {
            names.append(dialog.objectName());
            if (const auto* box = dialog.findChild<QPlainTextEdit*>("report")) {
                report = box->toPlainText();
            }
            if (const auto* box = dialog.findChild<QLineEdit*>("index")) index = box->text();
            if (const auto* chart = dialog.findChild<ShareChart*>()) {
                shares = chart->accessibleDescription();
            }
        };
    }

    QWidget window;
    PictureStore store;
    TestMachine machine;
    Recorder ports{machine.engine};
    WindowPlayer player{window, store, ports};
    GameEngine spare;
    Seat seat = SeatOf(machine, ports, player);
    const DataFilePaths& paths = machine.paths;
    QStringList names;
    QString report;
    QString index;
    QString shares;
};

TEST_F(GameAnalysisDialogTest, ARunIsAskedForAndItsReportFollows) {
    Command({Look(), SpaceOn("run"), Look(), Press(Qt::Key_Return), Look(), Press(Qt::Key_Return)});
    EXPECT_EQ(names, QStringList({"gameAnalysis", "createAnalysisFiles", "gameAnalysis"}));
    EXPECT_TRUE(report.contains("Game Payout\t99.5439%\n"));
    EXPECT_TRUE(shares.startsWith("ROYAL FLUSH: 2.0 % of the return, 81.0 % of the variance\n"));
}

TEST_F(GameAnalysisDialogTest, FilesAreMadeWhenTheirBoxesAreChecked) {
    QString summaryText;
    Command({ClickOn("run"),
             [&](QDialog& dialog) {
                 EXPECT_FALSE(dialog.findChild<QCheckBox*>("summary")->isChecked());
                 summaryText = dialog.findChild<QPlainTextEdit*>("summaryText")->toPlainText();
             },
             SpaceOn("detail"), ClickOn("ok"), Press(Qt::Key_Escape)});
    EXPECT_TRUE(summaryText.endsWith("The file will be named " +
                                     QString::fromStdString(machine.folder.Path()) +
                                     "/Jacks or Better(0) Summary.txt."));
    EXPECT_EQ(machine.folder.Read("Jacks or Better(0) Summary.txt"), "(missing)");
    EXPECT_NE(machine.folder.Read("Jacks or Better(0) Detail.txt"), "(missing)");
}

TEST_F(GameAnalysisDialogTest, GamesAndTablesAreBrowsedByKeysWithoutTouchingTheGameInPlay) {
    machine.files.mainPath = machine.folder.Write(
        "own.ini",
        "[Jacks or Better(0)]\nNextIndex=2\nPayLines=1\nRank0=11\nPayout0=1\n"
        "[Jacks or Better(2)]\nPrevIndex=0\nPayLines=1\nRank0=11\nPayout0=7\n"
        "[User Games]\n3=9003,Own\n[Own(0)]\nPayLines=1\nRank0=11\nDescr0=OWN LINE\nPayout0=9\n");
    // What the dialog shows, and "<" and ">" for the tables before and after it.
    std::vector<std::string> shown;
    const auto note = [&](QDialog& dialog) {
        Look()(dialog);
        const auto enabled = [&](const char* name) {
            return dialog.findChild<QPushButton*>(name)->isEnabled();
        };
        shown.push_back((enabled("previousTable") ? "<" : "") + (index + report).toStdString() +
                        (enabled("nextTable") ? ">" : ""));
    };
    Command({note, SpaceOn("nextTable"), note, SpaceOn("previousTable"),
             Press(Qt::Key_G, Qt::AltModifier), Press(Qt::Key_End), note, Press(Qt::Key_Escape)});
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_TRUE(shown[0].starts_with("0") && shown[0].ends_with(">")) << shown[0];
    EXPECT_TRUE(shown[1].starts_with("<2Game:\tJacks or Better\n\n\t7\n")) << shown[1];
    EXPECT_TRUE(shown[2].starts_with("0Game:\tOwn\n\nOWN LINE\t9\n")) << shown[2];
    EXPECT_FALSE(shown[1].ends_with(">") || shown[2].ends_with(">"));
    EXPECT_EQ(machine.engine.settings.gameName, "Jacks or Better");
}

TEST_F(GameAnalysisDialogTest, ColumnsHaveRoomForTheirWidestNumbers) {
    Command({ClickOn("run"), ClickOn("ok"), [](QDialog& dialog) {
                 const auto* box = dialog.findChild<QPlainTextEdit*>("report");
                 const QFontMetricsF font(box->font());
                 const auto tabs = box->document()->defaultTextOption().tabs();
                 ASSERT_EQ(tabs.size(), 12);
                 for (int i = 1; i < tabs.size(); ++i) {
                     EXPECT_GT(tabs[i].position - tabs[i - 1].position,
                               font.horizontalAdvance("999,999,999,999,999"));
                 }
                 dialog.reject();
             }});
}

TEST_F(GameAnalysisDialogTest, TheChartsKeepTheirContrastOnLightAndDarkGround) {
    ShareChart shares(nullptr);
    shares.SetShares({{"ROYAL FLUSH", 25, 3, 40, 80}, {"FLUSH", 37.5, 0.75, 60, 20}});
    HoldChart holds(nullptr);
    holds.ShowHolds({{{"A", "K"}, 4.5, "", true}, {{"A", "-"}, 1.5, "", false}});
    for (const QColor& ground : {QColor(Qt::white), QColor(30, 30, 30)}) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, ground.lightness() > 128 ? Qt::black : Qt::white);
        for (QWidget* chart : std::initializer_list<QWidget*>{&shares, &holds}) {
            chart->setPalette(palette);
            chart->resize(chart->sizeHint());
            const QImage image = chart->grab().toImage();
            std::map<QRgb, int> counts;
            for (int i = 0; i < image.width() * image.height(); ++i) {
                ++counts[image.pixel(i % image.width(), i / image.width())];
            }
            // Without the many colours of antialiased edges.
            std::erase_if(counts, [](const auto& colour) { return colour.second <= 150; });
            EXPECT_TRUE(counts.size() >= 3 && counts.erase(ground.rgb()) == 1);
            for (const auto& [colour, count] : counts) {
                EXPECT_GT(std::abs(qGray(colour) - qGray(ground.rgb())), 20) << colour;
            }
        }
    }
}

TEST_F(GameAnalysisDialogTest, HandsOfTheSessionAreReadByPointerAndKeys) {
    CreditHistory history;
    for (int hand = 1; hand <= 10; ++hand) history.Record(hand, 15 - 5 * hand, 0.25);
    CreditChart chart(history, nullptr);
    chart.resize(chart.sizeHint());
    chart.show();
    EXPECT_EQ(chart.accessibleDescription(), "Hand 10: $-8.75");
    EXPECT_EQ(chart.TextOf(0), "Hand 1: $2.50");
    const QImage before = chart.grab().toImage();
    QTest::keyClick(&chart, Qt::Key_Home);
    const QImage first = chart.grab().toImage();
    EXPECT_NE(first, before);
    QTest::mouseMove(&chart, chart.Plot().center().toPoint());
    EXPECT_TRUE(QTest::qWaitFor([&] { return chart.grab().toImage() != first; }));
}

TEST_F(GameAnalysisDialogTest, AnySessionCanBeDrawn) {
    constexpr std::int64_t kMost = 2147483647;
    using Session = std::vector<std::int64_t>;
    for (const Session& session : {Session{}, {0}, {7, 7, 7}, {kMost, -kMost, kMost}}) {
        CreditHistory history;
        std::int64_t hand = 0;
        for (const std::int64_t credits : session) history.Record(++hand, credits, 1000);
        CreditChart chart(history, nullptr);
        for (const QSize size : {QSize(1, 1), chart.sizeHint()}) {
            chart.resize(size);
            EXPECT_FALSE(chart.grab().isNull());
            QTest::keyClick(&chart, Qt::Key_PageUp);
        }
    }
}

}  // namespace
