// Poses the real program, without a screen, and takes the pictures of docs/screenshots into the
// folder that TOLVANE_SCREENSHOTS names. Every table is dealt and played by real input.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QTabWidget>
#include <cstdlib>
#include <functional>

#include "app/PaletteKeeper.h"
#include "tests/ui/Palettes.h"
#include "tests/ui/TestProgram.h"
#include "ui/help/HelpWindow.h"
#include "ui/parts/FocusStyle.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr QSize kSmallWindow{640, 480};
constexpr QSize kWindow{1024, 700};
constexpr QSize kLargeWindow{1920, 1080};

class Studio {
  public:
    explicit Studio(QString target) : target(std::move(target)), program(FolderWithGame()) {
        program.frame->showNormal();
        program.view->SetAnimation(false);  // as all looks once nothing moves
        program.document->PlayersSeat().showsHints = false;
    }

    TestProgram& Play(int game, QSize size, std::string_view cards, std::size_t count) {
        program.document->Run(game);
        Resize(size);
        program.engine.settings.credits = 400;
        program.Stack(cards, count);
        program.Key(Qt::Key_D);
        return program;
    }

    void Resize(QSize client) {
        program.frame->resize(client + program.frame->size() - program.view->size());
        QApplication::processEvents();
    }

    void Shoot(const QString& name) { Save(*program.frame, name); }

    void Save(QWidget& widget, const QString& name) {
        QApplication::processEvents();
        EXPECT_TRUE(widget.grab().save(target + "/" + name + ".png")) << qPrintable(name);
    }

    // On a light and on a dark desktop, on a screen of single and of double density.
    void SaveEachWay(QWidget& widget, const QString& name) {
        const QPalette light = QApplication::palette();
        for (const auto& [palette, kind] : {std::pair{light, ""}, {DarkPalette(), "-dark"}}) {
            QApplication::setPalette(palette);
            Save(widget, name + kind);
            QPixmap dense(widget.size() * 2);
            dense.setDevicePixelRatio(2);
            widget.render(&dense);
            EXPECT_TRUE(dense.save(target + "/" + name + kind + "-2x.png")) << qPrintable(name);
        }
        QApplication::setPalette(light);
        QApplication::processEvents();
    }

    TestProgram& Program() { return program; }

  private:
    const TemporaryFolder& FolderWithGame() {
        QFile::copy(TOLVANE_DATA_FOLDER "/Tolvane.ini", folder.Path("Tolvane.ini").c_str());
        QFile::copy(QCoreApplication::applicationDirPath() + "/Game Analyses.114",
                    folder.Path("Game Analyses.dat").c_str());
        folder.Write("Default.qdx",
                     "[main]\nMode=1\nCoin=0.25\nCredits=400\nBet=5\nSpeed=3\nShowDollar=0\n"
                     "Sounds=0\n");
        return folder;
    }

    QString target;
    TemporaryFolder folder;
    TestProgram program;
};

void Hold(TestProgram& program, std::initializer_list<Qt::Key> keys) { program.Keys(keys); }

void ShootGames(Studio& studio) {
    TestProgram& p = studio.Play(300, kWindow, "AS KS 9H QS JS TS", 6);
    Hold(p, {Qt::Key_1, Qt::Key_2, Qt::Key_4, Qt::Key_5});
    studio.Shoot("jacks-or-better-held");
    p.Key(Qt::Key_D);
    studio.Shoot("jacks-or-better-won");
    studio.Resize(kLargeWindow);
    studio.Shoot("royal-flush-1920x1080");

    studio.Play(330, kSmallWindow, "2S 2H KD KC 7S", 5);
    Hold(p, {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4});
    studio.Shoot("deuces-wild-640x480");
    p.Key(Qt::Key_D);

    studio.Play(346, kLargeWindow, "W AS KD 5C 5H", 5);
    Hold(p, {Qt::Key_1, Qt::Key_4, Qt::Key_5});
    studio.Shoot("five-jokers-1920x1080");
    p.Key(Qt::Key_D);

    // What is drawn in place of all five loses, or the machine would ask about a second draw.
    studio.Play(318, kWindow, "AS AH TC 9H 2S 3C 4D 6H 7S 8C", 10);
    Hold(p, {Qt::Key_1, Qt::Key_2});
    studio.Shoot("double-draw");
    Hold(p, {Qt::Key_1, Qt::Key_2});
    p.Key(Qt::Key_D);

    p.document->Run(kModeAutoHold);
    studio.Play(350, kWindow, "KS QD KC 9H 2S 3C 4D 5H", 8);
    studio.Shoot("pick-em");
    p.Key(Qt::Key_Left);
    studio.Play(351, kWindow, "JS JD TC 9H 2S JC", 6);
    studio.Shoot("sneak-peak");
    p.Key(Qt::Key_D);
    p.document->Run(kModeCasino);
}

void ShootDoubleUp(Studio& studio) {
    TestProgram& p = studio.Play(300, kWindow, "JS JD TC TH 2S", 5);
    Hold(p, {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5});
    p.Key(Qt::Key_D);
    p.DecideNextDuel(1);
    p.Key(Qt::Key_U);
    studio.Shoot("double-up");
    DialogRobot robot({[&](QDialog& dialog) {
        studio.Shoot("double-up-won");
        dialog.reject();
    }});
    p.Key(Qt::Key_2);
}

// Plays hands of a game until the generator of the features gives the draw that is wanted.
void ShootFeature(Studio& studio, int game, int draw, std::string_view cards, const QString& name,
                  std::initializer_list<Qt::Key> keys) {
    TestProgram& p = studio.Play(game, kWindow, cards, 5);
    Hold(p, {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5});
    p.DecideFeatures(
        [draw](CombinedRandom random) { return draw == 0 || random.IRandom(1, 150) == draw; });
    p.Key(Qt::Key_D);
    p.Keys(keys);
    studio.Shoot(name);
    p.document->Run(300);
}

void ShootFeatures(Studio& studio) {
    ShootFeature(studio, 354, 2, "2S 4D 6C 8H TS", "spin", {});
    ShootFeature(studio, 355, 149, "2S 4D 6C 8H TS", "target", {Qt::Key_2, Qt::Key_4});
    ShootFeature(studio, 352, 0, "2D 4D 6H 8H TD", "red-or-black", {Qt::Key_R});
    ShootFeature(studio, 353, 0, "2S 2D 3C 3H AC", "five-card-charlie", {});
}

// Pictures of a window, and of each of its further tabs under a name of its own.
void ShootTabs(Studio& studio, QWidget& window, const QString& name, const QStringList& further) {
    auto* tabs = window.findChild<QTabWidget*>();
    if (tabs) tabs->setCurrentIndex(0);
    studio.SaveEachWay(window, name);
    for (int i = 0; tabs && i < further.size(); ++i) {
        tabs->setCurrentIndex(i + 1);
        studio.SaveEachWay(window, further[i]);
    }
}

// Opens a dialog by its command.
void ShootDialog(Studio& studio, int command, const QString& name,
                 const QStringList& further = {}) {
    DialogRobot robot({[&](QDialog& dialog) {
        // The pay table manager shows its return when that is reckoned.
        const auto* live = dialog.findChild<QLabel*>("live");
        EXPECT_TRUE(QTest::qWaitFor([live] { return !live || live->isEnabled(); }, 60'000));
        ShootTabs(studio, dialog, name, further);
        dialog.reject();
    }});
    studio.Program().document->Run(command);
}

void ShootAutoplay(Studio& studio) {
    DialogRobot robot({Type("1500"), Press(Qt::Key_Return), [&](QDialog& dialog) {
                           // The screen that is not there is smaller than most that are.
                           dialog.resize(dialog.sizeHint());
                           auto* table = dialog.findChild<ReportTableView*>();
                           const auto analysed = [table] {
                               return table->Table().columns.size() > 3;
                           };
                           EXPECT_TRUE(QTest::qWaitFor(analysed, 60'000));
                           ShootTabs(studio, dialog, "play-statistics",
                                     {"play-statistics-session", "play-statistics-table"});
                           dialog.reject();
                       }});
    studio.Program().document->Run(kAutoplay);
}

// Two play errors, which the log then holds.
void ShootErrors(Studio& studio) {
    TestProgram& p = studio.Program();
    p.document->Run(kModeWarning);
    for (const std::string_view cards : {"9S 9D TC 4H 2S", "KS QD JC TH 2H"}) {
        studio.Play(300, kWindow, cards, 5);
        DialogRobot robot({[&](QDialog& dialog) {
            studio.SaveEachWay(dialog, "best-play-error");
            dialog.accept();
        }});
        p.Key(Qt::Key_D);
    }
    p.document->Run(kModeCasino);
    ShootDialog(studio, kViewErrorLog, "error-log", {"error-log-all", "error-log-kinds"});
}

void ShootDialogs(Studio& studio) {
    TestProgram& p = studio.Play(300, kWindow, "AS KS QS JS 9H", 5);
    ShootDialog(studio, kAnalyzeHand, "hand-analysis",
                {"hand-analysis-chart", "hand-analysis-holds"});
    ShootDialog(studio, kAssignFixedHand, "fixed-hand");
    p.Key(Qt::Key_D);
    ShootDialog(studio, kAnalyzeGame, "game-analysis",
                {"game-analysis-shares", "game-analysis-lines"});
    ShootDialog(studio, kEditCurrentPayTable, "pay-table-manager");
    ShootDialog(studio, kCombinations, "combinations");
    ShootDialog(studio, kEnterCredits, "enter-dollars");
    ShootDialog(studio, kAbout, "about");
    ShootAutoplay(studio);
    ShootErrors(studio);
    for (const auto& [command, window, name] :
         {std::tuple(kHelpIndex, "help", "help"), {kAllGames, "allGames", "all-games"}}) {
        p.document->Run(command);
        for (QWidget* shown : QApplication::topLevelWidgets()) {
            if (shown->objectName() != window) continue;
            shown->resize(shown->size().expandedTo(kWindow));
            studio.SaveEachWay(*shown, name);
            shown->close();
        }
    }
}

// A window that stands beside the machine's, once the label says that its work is done.
void ShootBeside(Studio& studio, int command, const char* name, const char* label,
                 const char* saysAtTheEnd, const QStringList& further,
                 const std::function<void(QWidget&)>& pose = {}) {
    studio.Program().document->Run(command);
    for (QWidget* shown : QApplication::topLevelWidgets()) {
        if (shown->objectName() != name) continue;
        shown->resize(kWindow);
        if (pose) pose(*shown);
        const auto& words = PartOf<QLabel>(*shown, label);
        EXPECT_TRUE(QTest::qWaitFor([&] { return words.text().contains(saysAtTheEnd); }, 300'000))
            << name << ": " << words.text().toStdString();
        ShootTabs(studio, *shown, name, further);
        shown->close();
    }
}

void ShootWindowsBeside(Studio& studio) {
    ShootBeside(studio, kStrategy, "strategy", "state", "Charts of all",
                {"strategy-exceptions", "strategy-curve"});
    ShootBeside(studio, kCompare, "compare", "words", "hands are played differently",
                {"compare-lines"}, [](QWidget& window) {
                    auto& b = PartOf<QComboBox>(window, "tableB");
                    b.setCurrentIndex(b.findText("Bonus Poker, table 0"));
                });
    ShootBeside(studio, kMeter, "meter", "words", "It is even at", {"meter-turning-points"});
    ShootBeside(studio, kBankroll, "bankroll", "sessionWords", "sessions",
                {"bankroll-long-run", "bankroll-luck"});
}

// Not a test, but it needs the same program, set up in the same way.
TEST(MakeScreenshots, TakesThemAll) {
    const char* folder = std::getenv("TOLVANE_SCREENSHOTS");
    ASSERT_TRUE(folder && QDir().mkpath(folder)) << "TOLVANE_SCREENSHOTS must name a folder";
    QApplication::setStyle(new FocusStyle);
    const PaletteKeeper palettes;
    Studio studio(QString::fromLocal8Bit(folder));
    ShootGames(studio);
    ShootDoubleUp(studio);
    ShootFeatures(studio);
    ShootDialogs(studio);
    ShootWindowsBeside(studio);
}

}  // namespace
