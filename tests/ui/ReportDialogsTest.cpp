// The reports on a hand, on the errors and on all that was played, and the charts in them, with the
// keys and clicks of a person.
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolButton>
#include <QToolTip>
#include <map>

#include "core/store/ErrorLog.h"
#include "game/reports/HandReport.h"
#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/charts/CreditChart.h"
#include "ui/charts/HoldChart.h"
#include "ui/charts/ShareChart.h"
#include "ui/parts/ReportBox.h"
#include "ui/reports/ErrorLogDialog.h"
#include "ui/reports/HandAnalysisDialog.h"
#include "ui/reports/StatisticsDialog.h"
#include "ui/tables/ReportTableView.h"

namespace {

class ReportDialogTest : public testing::Test {
  protected:
    void Play(const std::string& game, int gameId) {
        machine = std::make_unique<TestMachine>(game, gameId);
    }
    template <typename Dialog, typename... Subjects>
    void Show(Subjects&&... subjects) {
        dialog = std::make_unique<Dialog>(std::forward<Subjects>(subjects)..., nullptr);
        ShowDialog(*dialog);
    }

    template <typename Widget>
    Widget& Part(const QString& name) {
        return PartOf<Widget>(*dialog, name);
    }
    QString Text(const char* box) { return Part<ReportBox>(box).toPlainText(); }
    QString NameOf(const QString& part) { return Part<QWidget>(part).accessibleName(); }
    bool IsOn(const char* part) { return Part<QWidget>(part).isEnabled(); }
    void Click(const char* name) { QTest::mouseClick(&Part<QWidget>(name), Qt::LeftButton); }
    void PressKey(Qt::Key key) { QTest::keyClick(dialog->focusWidget(), key); }

    // What is written from the context menu of a box.
    std::string Saved(const char* name, const char* proposed) {
        auto& box = Part<ReportBox>(name);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, box.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&box, &event);
        Answer({TypeFile("Save As", machine->folder.Path("saved"), proposed)},
               [&] { box.findChild<QAction*>("saveAsText")->trigger(); });
        return machine->folder.Read("saved.txt");
    }
    // What is told where the pointer rests.
    static std::string ToolTipAt(QWidget& widget, QPoint place) {
        QHelpEvent rests(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &rests);
        return QToolTip::text().toStdString();
    }

    PictureStore store;
    std::unique_ptr<TestMachine> machine = std::make_unique<TestMachine>();
    std::unique_ptr<QDialog> dialog;
};

class HandAnalysisDialogTest : public ReportDialogTest {
  protected:
    void Open(const std::string& game, int gameId, std::string_view cards) {
        Play(game, gameId);
        spare.settings = machine->engine.settings;
        LoadGame(spare, machine->files, machine->tables);
        machine->Deal(cards);
        LendHand(machine->engine, spare);
        Show<HandAnalysisDialog>(spare, store);
        EXPECT_EQ(Part<QWidget>("firstDrawCard").isVisible(), gameId == kSneakPeakGameId);
    }
    void OpenJacks() { Open("Jacks or Better", 300, "AS KS QS JS 9S 2D"); }
    std::string BestLine() { return Text("report").split(u'\n').value(2).toStdString(); }
    HoldChart& Chart() { return Part<HoldChart>("chart"); }
    std::string BestBar() { return Chart().Holds().front().cards.join(" ").toStdString(); }

    GameEngine spare;
};

TEST_F(HandAnalysisDialogTest, TheHandInPlayIsShownAndCountedAsTheRadiosSay) {
    OpenJacks();
    EXPECT_TRUE(BestLine().starts_with("AKQJ_\t92.")) << BestLine();
    EXPECT_NE(BestLine().find("\t47\t23\t24\t12\t"), std::string::npos) << BestLine();
    EXPECT_EQ(NameOf("placeRank1"), "place 2, king of spades");
    QTest::keyClick(dialog.get(), Qt::Key_E, Qt::AltModifier);
    const auto isShare = [&] { return BestLine().find("\t100.00\t0\t") != std::string::npos; };
    EXPECT_TRUE(QTest::qWaitFor(isShare));
    EXPECT_FALSE(machine->engine.handOver || machine->engine.fixedHand) << "left alone";
    const std::string saved = Saved("report", "Jacks or Better hand.txt");
    EXPECT_NE(saved.find("\t100.00\t0\t"), std::string::npos) << saved;
    EXPECT_TRUE(
        saved.starts_with("Hand Analysis\nGame: Jacks or Better\nTable: 0\nBet: 5 coins\n"
                          "Coin: $1.00\nCards: AS KS QS JS 9S\nDate: 20"))
        << saved;
}

TEST_F(HandAnalysisDialogTest, PatternsOfHoldsAreOfOneWidthAndTheColumnsStayInLine) {
    OpenJacks();
    const QTextDocument& text = *Part<ReportBox>("report").document();
    const auto placeOf = [&](int line, int character) {
        return text.findBlockByNumber(line).layout()->lineAt(0).cursorToX(character);
    };
    const qreal letter = placeOf(2, 1) - placeOf(2, 0);
    for (int line = 2; line < text.blockCount(); ++line) {
        for (int i = 0; i < 5; ++i)
            EXPECT_NEAR(placeOf(line, i + 1) - placeOf(line, i), letter, 0.1);
        EXPECT_EQ(placeOf(line, 6), placeOf(0, 5)) << "the column behind the tab";
    }
}

TEST_F(HandAnalysisDialogTest, AHandIsTypedAndWhatIsWrongIsSaidInPlace) {
    OpenJacks();
    QTest::keyClick(dialog.get(), Qt::Key_T, Qt::AltModifier);
    auto& typed = Part<QLineEdit>("typedHand");
    ASSERT_TRUE(QTest::qWaitFor([&] { return typed.hasFocus(); }));
    EXPECT_EQ(typed.text(), "AS KS QS JS 9S");
    QTest::keyClicks(&typed, "as 1x");
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(NameOf("handProblem").startsWith("\"1x\" is not a card")) << "and not closed";
    EXPECT_TRUE(BestLine().starts_with("AKQJ_"));
    typed.selectAll();
    QTest::keyClicks(&typed, "10s as ks qs js");
    EXPECT_EQ(NameOf("handProblem"), "");
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(BestLine().starts_with("TAKQJ\t4,000.0000"));
    EXPECT_EQ(BestBar(), "T♠ A♠ K♠ Q♠ J♠");
    EXPECT_EQ(NameOf("placeRank0"), "place 1, 10 of spades");
    auto& holds = Part<ReportTableView>("holds");
    EXPECT_EQ(holds.Table().head[4].value, "TS AS KS QS JS");
    EXPECT_EQ(holds.Table().columns.back().unit, "%");
    QTest::keyClick(dialog.get(), Qt::Key_L, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return holds.isVisible(); }));
    Click("figureHands");
    EXPECT_EQ(holds.Table().columns.back().unit, "draws");
    EXPECT_EQ(holds.Shown().rows.size(), kHolds);
}

TEST_F(HandAnalysisDialogTest, AMissingCardIsAskedForUntilItIsThere) {
    OpenJacks();
    // The nine, in the last place, goes back, and in the end the ten takes its place.
    Answer({ClickOn("placeRank4"), Press(Qt::Key_Return), Choose(QMessageBox::Ok),
            ClickOn("card1-10"), Press(Qt::Key_Return)},
           [this] { Click("changeHand"); });
    EXPECT_TRUE(BestLine().starts_with("AKQJT\t4,000.0000\t1\t1\t0")) << BestLine();
    EXPECT_EQ(NameOf("placeRank4"), "place 5, 10 of spades");
    EXPECT_EQ(Chart().Holds().front().value, 4000);
    std::string told;
    Answer({ClickOn("clear"), Press(Qt::Key_Return), Note(told)},
           [this] { Click("placeSuit2"); });  // a picture opens the editor, too
    EXPECT_EQ(told,
              "Missing Card: You must assign a card to each hand position to perform a hand "
              "analysis");
    EXPECT_FALSE(dialog->isVisible()) << "cancelled at the question";
    OpenJacks();
    Answer({Press(Qt::Key_Escape)}, [this] { Click("changeHand"); });
    EXPECT_FALSE(dialog->isVisible()) << "cancelled in the editor";
}

TEST_F(HandAnalysisDialogTest, TheChartShowsTheBestHoldFirstAndNamesIt) {
    OpenJacks();
    QTest::keyClick(dialog.get(), Qt::Key_H, Qt::AltModifier);
    ASSERT_TRUE(Chart().isVisible());
    const HoldChart::Hold& best = Chart().Holds().front();
    EXPECT_EQ(BestBar(), "A♠ K♠ Q♠ J♠ –");
    EXPECT_TRUE(best.best);
    EXPECT_EQ(std::ranges::count(Chart().Holds(), true, &HoldChart::Hold::best), 1);
    EXPECT_TRUE(Chart().accessibleDescription().startsWith(best.note));
    EXPECT_EQ(Chart().RowAt({0, 0}), -1);
    const std::string note = ToolTipAt(Chart(), Chart().RowRect(0).center());
    EXPECT_TRUE(
        note.starts_with("Best hold: ace of spades, king of spades, queen of spades, jack "
                         "of spades\nreturns $92."))
        << note;
    EXPECT_TRUE(note.ends_with("\n47 draws, 23 of them win")) << note;
}

TEST_F(HandAnalysisDialogTest, PickEmShowsTwoHoldsAndAnEmptyPlaceAndSneakPeakTheSixthCard) {
    Open("Pick Em Poker", 350, "7S 8S JH 2D 3D 9S");
    EXPECT_EQ(NameOf("placeRank2"), "place 3, no card");
    EXPECT_EQ(NameOf("placeRank4"), "place 5, 9 of spades");
    EXPECT_EQ(Chart().Holds().size(), 2U);
    EXPECT_EQ(BestBar(), "7♠ 8♠ – – 9♠");
    Open("Sneak Peak Poker", 351, "AS AH KD 7C 2S 7D");
    EXPECT_EQ(NameOf("knownCard"), "7 of diamonds");
    EXPECT_EQ(BestBar(), "A♠ A♥ D 7♣ –");
}

class ErrorLogDialogTest : public ReportDialogTest {
  protected:
    // Entry i has the card of the deck of that number in its first place, and cost i dollars.
    void Open(int errors) {
        GameEngine& engine = machine->engine;
        for (int i = 0; i < errors; ++i) {
            const CardCode first = i % 40;
            const ErrorLogEntry entry{
                {first, 40, 41, 42, 43}, {44, 45, 46, 47, 48}, 31, 0, i + 1.0, 1.0};
            AppendError(machine->files.Game(), StatsSection(engine), entry,
                        engine.statistics.nextError);
        }
        engine.statistics.handsPlayed = {200, 200};
        Show<ErrorLogDialog>(engine, machine->files, store);
    }
    int Index() { return dynamic_cast<ErrorLogDialog&>(*dialog).Index(); }
};

TEST_F(ErrorLogDialogTest, KeysTurnThePagesOfAFullLogWhereverTheFocusIs) {
    constexpr int kLast = kErrorLogSize - 1;
    Open(kErrorLogSize);
    for (const char* name : {"title", "entry", "summary", "ok"}) {
        Part<QWidget>(name).setFocus();
        const std::pair<Qt::Key, int> keys[] = {
            {Qt::Key_End, kLast}, {Qt::Key_PageDown, kLast}, {Qt::Key_PageUp, kLast - 1},
            {Qt::Key_Home, 0},    {Qt::Key_PageUp, 0},       {Qt::Key_PageDown, 1}};
        for (const auto& [key, index] : keys) {
            PressKey(key);
            EXPECT_EQ(Part<QLineEdit>("title").text(), QString("Error %1").arg(index + 1)) << name;
            EXPECT_TRUE(Text("entry").contains(QString("\nCost ($)\t%1.0000").arg(index)));
            EXPECT_TRUE(IsOn("previous") == (index > 0) && IsOn("next") == (index < kLast));
        }
    }
}

TEST_F(ErrorLogDialogTest, PilesAndTheSixthCardHaveTheirPlaces) {
    Play("Pick Em Poker", 350);
    Open(1);
    EXPECT_EQ(NameOf("place2"), "no card");
    EXPECT_EQ(NameOf("place4"), "6 of diamonds");
    EXPECT_FALSE(IsOn("next") || IsOn("previous") || Part<QWidget>("firstDrawCard").isVisible());
    EXPECT_TRUE(Part<QWidget>("ok").hasFocus());
    Play("Sneak Peak Poker", 351);
    Open(1);
    EXPECT_TRUE(Part<QWidget>("firstDrawCard").isVisible());
    EXPECT_EQ(NameOf("knownCard"), "6 of diamonds");
}

TEST_F(ErrorLogDialogTest, AKeyHeldDownAtTheEndTurnsBackAndWhatIsShownCanBeSaved) {
    machine->engine.settings.gameName = "Foo %1";
    Open(2);
    for (const int index : {1, 0, 1}) {
        PressKey(Qt::Key_Space);
        EXPECT_EQ(Index(), index);
    }
    EXPECT_EQ(NameOf("place0"), "2 of spades");
    const std::string saved = Saved("entry", "Foo %1 error 2.txt");
    EXPECT_TRUE(saved.starts_with("Error 2\nBest Play\t22345\nYour Play\t_____\n\n")) << saved;
    EXPECT_NE(saved.find("\n\nGame Summary\nHands Played\t200\n"), std::string::npos) << saved;
}

class StatisticsDialogTest : public ReportDialogTest {
  protected:
    void Open() {
        machine->engine.statistics.handsPlayed = {1000, 12345};
        machine->engine.payTable.lines[0].sessionWins = 3;
        Show<StatisticsDialog>(machine->engine, machine->engine.statistics.sessionStart);
    }
};

TEST_F(StatisticsDialogTest, TheDisplayChangesThePayTableAlone) {
    Open();
    const auto others = [this] { return Text("hands") + Text("credits") + Text("errors"); };
    const QString before = others();
    EXPECT_TRUE(Text("lines").contains("\nROYAL FLUSH\t3\t")) << Text("lines").toStdString();
    Part<QWidget>("displayHands").setFocus();
    PressKey(Qt::Key_Right);
    EXPECT_TRUE(Text("lines").contains("1:333.33"));
    Click("displayShare");
    EXPECT_EQ(others(), before);
    const std::string saved = Saved("credits", "Jacks or Better statistics.txt");
    EXPECT_TRUE(saved.starts_with("Hands\n\tSession\tGame\n\nHands Won:\t0\t0\n")) << saved;
    EXPECT_TRUE(saved.ends_with("\n\nPay Table\n" + Text("lines").toStdString() + "\n")) << saved;
    QTest::keyClick(&Part<ReportBox>("errors"), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible()) << "Enter is OK in a report too";
}

TEST_F(StatisticsDialogTest, ALongNameLeavesTheFiguresAsTheyAre) {
    const std::string name = "<b>" + std::string(77, 'W');
    machine->engine.settings.gameName = name;
    machine->engine.payTable.lines[1].description = std::string(80, 'M');
    Open();
    auto& box = Part<ReportBox>("lines");
    EXPECT_EQ(box.horizontalScrollBar()->maximum(), 0) << "no column is cut off";
    EXPECT_FALSE(Text("lines").contains("WWWW\tSession")) << "cut short";
    const std::string whole = "&lt;b&gt;" + name.substr(3) + "<br>" + std::string(80, 'M');
    EXPECT_NE(ToolTipAt(*box.viewport(), {5, 5}).find(whole), std::string::npos);
    EXPECT_NE(Saved("lines", nullptr).find("\n" + name + "\tSession\tGame\n"), std::string::npos);
}

TEST(ChartsTest, TheChartsKeepTheirContrastOnLightAndDarkGround) {
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
            chart->findChild<QToolButton*>("picture")->hide();
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

TEST(ChartsTest, HandsOfTheSessionAreReadByPointerAndKeys) {
    CreditHistory history;
    for (int hand = 1; hand <= 10; ++hand) history.Record(hand, 15 - 5 * hand, 0.25, 5);
    CreditChart chart(nullptr);
    chart.ShowSession(history);
    chart.resize(chart.sizeHint());
    chart.show();
    EXPECT_TRUE(chart.accessibleDescription().startsWith("Hand 10: $-8.75\n"));
    EXPECT_EQ(chart.TextOf(0), "Hand 1: $2.50");
    QTest::keyClick(&chart, Qt::Key_End);
    const QImage last = chart.grab().toImage();
    QTest::keyClick(&chart, Qt::Key_Home);
    const QImage first = chart.grab().toImage();
    EXPECT_NE(first, last);
    QTest::mouseMove(&chart, chart.Plot().center().toPoint());
    EXPECT_TRUE(QTest::qWaitFor([&] { return chart.grab().toImage() != first; }));
}

TEST(ChartsTest, AnySessionCanBeDrawn) {
    constexpr std::int64_t kMost = 2147483647;
    using Session = std::vector<std::int64_t>;
    for (const Session& session : {Session{}, {0}, {7, 7, 7}, {kMost, -kMost, kMost}}) {
        CreditHistory history;
        std::int64_t hand = 0;
        for (const std::int64_t credits : session) history.Record(++hand, credits, 1000, 5);
        CreditChart chart(nullptr);
        chart.ShowSession(history);
        for (const QSize size : {QSize(1, 1), chart.sizeHint()}) {
            chart.resize(size);
            EXPECT_FALSE(chart.grab().isNull());
            QTest::keyClick(&chart, Qt::Key_PageUp);
        }
        const QPoint inMark = chart.Plot().bottomRight().toPoint() - QPoint(2, 2);
        const QColor mark = chart.grab({inMark, QSize(1, 1)}).toImage().pixelColor(0, 0);
        EXPECT_EQ(mark == chart.palette().base().color(), session != Session{0}) << session.size();
    }
}

}  // namespace
