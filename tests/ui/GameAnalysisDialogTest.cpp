// The game analysis at the window: report, tables, runs and the pictures of what they found.
#include "ui/dialogs/GameAnalysisDialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTextOption>
#include <QTimer>
#include <map>
#include <set>

#include "tests/game/FakePorts.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/dialogs/CreditChart.h"
#include "ui/dialogs/ShareChart.h"
#include "ui/dialogs/WindowPlayer.h"
#include "ui/dialogs/WindowReports.h"

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
        AnalyzeGameCommand(table, spare, reports, paths);
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

    bool Analyzed(const std::string& section) {
        return !machine.file.GetString(section, "ER", "", 80, paths.analysisCache).empty();
    }

    QWidget window;
    PictureStore store;
    TestMachine machine;
    Recorder ports{machine.engine};
    WindowPlayer player{window, store, ports};
    WindowReports reports{window};
    GameEngine spare;
    GameTable table = TableOf(machine, ports, player);
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
    EXPECT_EQ(index, "0");
    EXPECT_TRUE(shares.startsWith("ROYAL FLUSH: 2.0 % of the return, 81.0 % of the variance\n"));
    EXPECT_EQ(machine.folder.FileCount(), 2);
}

TEST_F(GameAnalysisDialogTest, FilesAreMadeWhenTheirBoxesAreChecked) {
    QString summaryText;
    Command({ClickOn("run"),
             [&](QDialog& dialog) {
                 const auto* summary = dialog.findChild<QCheckBox*>("summary");
                 EXPECT_FALSE(summary->isChecked());
                 EXPECT_FALSE(dialog.findChild<QCheckBox*>("detail")->isChecked());
                 summaryText = dialog.findChild<QPlainTextEdit*>("summaryText")->toPlainText();
                 EXPECT_TRUE(dialog.findChild<QPlainTextEdit*>("detailText")
                                 ->toPlainText()
                                 .endsWith("create a best play strategy. The file will be named " +
                                           QString::fromStdString(machine.folder.Path()) +
                                           "/Jacks or Better(0) Detail.txt."));
             },
             SpaceOn("summary"), SpaceOn("detail"), ClickOn("ok"), Press(Qt::Key_Escape)});
    EXPECT_EQ(summaryText,
              "The summary file is a semicolon delimited text file that contains the information "
              "in the game analysis dialog box. The file will be named " +
                  QString::fromStdString(machine.folder.Path()) +
                  "/Jacks or Better(0) Summary.txt.");
    EXPECT_NE(machine.folder.Read("Jacks or Better(0) Summary.txt"), "(missing)");
    EXPECT_NE(machine.folder.Read("Jacks or Better(0) Detail.txt"), "(missing)");
}

TEST_F(GameAnalysisDialogTest, CancelBeforeARunEndsTheCommand) {
    Command({ClickOn("run"), Press(Qt::Key_Escape)});
    EXPECT_FALSE(Analyzed("Jacks or Better(0)"));
}

TEST_F(GameAnalysisDialogTest, ARunningAnalysisIsCancelledAtOnce) {
    machine.engine.settings.gameName = "Joker Poker - Kings or Better";
    QTimer watch;
    int percent = -1;
    QElapsedTimer sinceCancel;
    QObject::connect(&watch, &QTimer::timeout, &window, [&] {
        auto* meter = window.findChild<QDialog*>("progress");
        if (!meter || !meter->isVisible() || sinceCancel.isValid()) return;
        EXPECT_TRUE(meter->isModal()) << "the table must take nothing meanwhile";
        percent = meter->findChild<QProgressBar*>("bar")->value();
        sinceCancel.start();
        QTest::keyClick(meter, Qt::Key_Escape);
    });
    watch.start(0);
    Command({ClickOn("run"), ClickOn("ok"), Look(), Press(Qt::Key_Escape)});
    EXPECT_TRUE(sinceCancel.isValid());
    EXPECT_LT(percent, 50);
    EXPECT_TRUE(report.contains("Break Even ($)\t14,348,425.0000\n")) << report.toStdString();
    EXPECT_FALSE(report.contains("\t2,869,685\n")) << "not all starting hands";
    EXPECT_EQ(window.findChild<QDialog*>("progress"), nullptr);
}

TEST_F(GameAnalysisDialogTest, GamesAndTablesAreBrowsedByKeysWithoutTouchingTheGameInPlay) {
    machine.files.mainPath = machine.folder.Write(
        "own.ini",
        "[Jacks or Better(0)]\nNextIndex=2\nPayLines=1\nRank0=11\nPayout0=1\n"
        "[Jacks or Better(2)]\nPrevIndex=0\nPayLines=1\nRank0=11\nPayout0=7\n"
        "[User Games]\n3=9003,Own\n[Own(0)]\nPayLines=1\nRank0=11\nDescr0=OWN LINE\nPayout0=9\n");
    const auto enabled = [](bool previous, bool next) {
        return [=](QDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QPushButton*>("previousTable")->isEnabled(), previous);
            EXPECT_EQ(dialog.findChild<QPushButton*>("nextTable")->isEnabled(), next);
        };
    };
    QString second;
    Command({enabled(false, true), SpaceOn("nextTable"), Look(), enabled(true, false),
             [&](QDialog& /*dialog*/) { second = index + report; }, SpaceOn("previousTable"),
             enabled(false, true), Press(Qt::Key_G, Qt::AltModifier), Press(Qt::Key_End), Look(),
             enabled(false, false), Press(Qt::Key_Escape)});
    EXPECT_TRUE(second.startsWith("2Game:\tJacks or Better\n\n\t7\n")) << second.toStdString();
    EXPECT_TRUE(report.startsWith("Game:\tOwn\n\nOWN LINE\t9\n")) << report.toStdString();
    EXPECT_EQ(machine.engine.settings.gameName, "Jacks or Better");
}

TEST_F(GameAnalysisDialogTest, ColumnsHaveRoomForTheirWidestNumbers) {
    Command({ClickOn("run"), ClickOn("ok"), [](QDialog& dialog) {
                 const auto* box = dialog.findChild<QPlainTextEdit*>("report");
                 const QFontMetricsF font(box->font());
                 const auto tabs = box->document()->defaultTextOption().tabs();
                 ASSERT_EQ(tabs.size(), 12);
                 EXPECT_NEAR(tabs[0].position, font.horizontalAdvance("   STRAIGHT FLUSH W/2: "),
                             4);
                 for (int i = 1; i < tabs.size(); ++i) {
                     EXPECT_GT(tabs[i].position - tabs[i - 1].position,
                               font.horizontalAdvance("999,999,999,999,999"));
                 }
                 dialog.reject();
             }});
}

TEST_F(GameAnalysisDialogTest, TheReportCanBeSelectedAndCopied) {
    Command({[](QDialog& dialog) {
                 auto* box = dialog.findChild<QPlainTextEdit*>("report");
                 box->setFocus();
                 QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
                 QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
             },
             Press(Qt::Key_Escape)});
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Game:\tJacks or Better"));
}

TEST_F(GameAnalysisDialogTest, AWindowThatClosesShowsNoMoreReports) {
    reports.RefuseAll();
    Command({});
    EXPECT_EQ(reports.ChoosesFiles({}).has_value(), false);
}

// Colours of a picture, without the many of antialiased edges.
std::set<QRgb> FrequentColours(const QImage& image) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
    }
    std::set<QRgb> frequent;
    for (const auto& [colour, count] : counts) {
        if (count > 150) frequent.insert(colour);
    }
    return frequent;
}

TEST_F(GameAnalysisDialogTest, TheChartsKeepTheirContrastOnLightAndDarkGround) {
    for (const QColor& ground : {QColor(Qt::white), QColor(30, 30, 30)}) {
        QPalette palette;
        const bool light = ground.lightness() > 128;
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, light ? Qt::black : Qt::white);
        ShareChart chart(nullptr);
        chart.setPalette(palette);
        chart.SetShares({{"ROYAL FLUSH", 25, 3, 40, 80}, {"FLUSH", 37.5, 0.75, 60, 20}});
        const auto colours = FrequentColours(chart.grab().toImage());
        EXPECT_TRUE(colours.contains(ground.rgb()));
        EXPECT_GE(colours.size(), 3U);
        for (const QRgb colour : colours) {
            if (colour == ground.rgb()) continue;
            const int difference = std::abs(qGray(colour) - qGray(ground.rgb()));
            EXPECT_GT(difference, 20) << QColor(colour).name().toStdString();
        }
    }
}

TEST_F(GameAnalysisDialogTest, HandsOfTheSessionAreReadByPointerAndKeys) {
    CreditHistory history;
    history.Begin(400);
    for (int hand = 1; hand <= 10; ++hand) history.Record(hand, 400 - 5 * hand);
    CreditChart chart(history, {.dollars = true, .coin = 0.25}, nullptr);
    chart.resize(chart.sizeHint());
    chart.show();
    EXPECT_EQ(chart.accessibleDescription(), "Start: $100.00. Hand 10: $87.50");
    EXPECT_EQ(chart.TextOf(0), "Hand 1: $98.75");
    const QRectF plot = chart.Plot();
    EXPECT_TRUE(QRectF(chart.rect()).contains(plot));
    const QImage before = chart.grab().toImage();
    QTest::keyClick(&chart, Qt::Key_Home);
    const QImage first = chart.grab().toImage();
    EXPECT_NE(first, before);
    QTest::mouseMove(&chart, plot.center().toPoint());
    EXPECT_TRUE(QTest::qWaitFor([&] { return chart.grab().toImage() != first; }));

    CreditChart credits(history, {.dollars = false, .coin = 0.25}, nullptr);
    EXPECT_EQ(credits.TextOf(9), "Hand 10: 350");
}

TEST_F(GameAnalysisDialogTest, AnySessionCanBeDrawn) {
    constexpr std::int32_t kMost = 2147483647;
    const std::vector<std::vector<std::int32_t>> sessions = {{}, {0}, {7, 7, 7}, {kMost, 0, kMost}};
    for (const auto& session : sessions) {
        for (const int hands : {1, 3000}) {
            CreditHistory history;
            history.Begin(session.empty() ? 0 : session[0]);
            std::int64_t hand = 0;
            for (int i = 0; i < hands; ++i) {
                for (const std::int32_t credits : session) history.Record(++hand, credits);
            }
            CreditChart chart(history, {.dollars = hands == 1, .coin = 0.05}, nullptr);
            for (const QSize size : {QSize(1, 1), chart.sizeHint()}) {
                chart.resize(size);
                EXPECT_FALSE(chart.grab().isNull());
                QTest::mouseMove(&chart, QPoint(0, 0));
                QTest::keyClick(&chart, Qt::Key_Left);
                QTest::keyClick(&chart, Qt::Key_PageUp);
            }
        }
    }
}

}  // namespace
