#include "tests/ui/TestProgram.h"

#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QTemporaryDir>
#include <filesystem>

#include "game/seat/ShowScene.h"
#include "ui/machine/SceneDescription.h"

namespace {

void CallOnce(std::function<void()>& hook) {
    if (const auto action = std::exchange(hook, nullptr)) action();
}

}  // namespace

void TestClock::Pause(int /*milliseconds*/) {
    if (countingUp) ++pausesWithInput;
    if (paints) QApplication::processEvents();
    CallOnce(countingUp ? inPauseWithInput : inPause);
    if (inEveryPause) inEveryPause();
}

TestProgram::TestProgram(const TemporaryFolder& folder, bool realPauses)
    : paths{.folder = folder.Path() + "/",
            .releaseFolder = TOLVANE_DATA_FOLDER "/",
            .mainProfile = folder.Path("Tolvane.ini"),
            .defaultGame = folder.Path("Default.qdx"),
            .analysisCache = folder.Path("Game Analyses.dat"),
            .strategyCharts = folder.Path("Strategy Charts.ini")} {
    engine.deck.clock = spare.deck.clock = [] { return std::int64_t{1'790'000'000}; };
    frame = std::make_unique<CMainFrame>();
    frame->hurryClock = [this](bool on) { windowClock.Hurry(on); };
    Clock& used = realPauses ? static_cast<Clock&>(windowClock) : clock;
    document = std::make_unique<CMorvikDoc>(
        ProgramParts{engine, spare, file, paths, pictures, used, sounds}, *frame);
    frame->Show(*document, pictures);
    EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
    view = frame->View();
    document->OnNewDocument();
}

TestProgram::~TestProgram() {
    frame.reset();
    document.reset();
}

void TestProgram::DecideFeatures(const std::function<bool(CombinedRandom)>& wanted) {
    for (std::uint32_t seed = 1;; ++seed) {
        document->PlayersSeat().random.RandomInit(seed);
        if (wanted(document->PlayersSeat().random)) return;
    }
}

void TestProgram::Choose(int command) const {
    for (auto* menu : frame->menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        emit menu->aboutToShow();
    }
    QAction* action = Action(command);
    ASSERT_NE(action, nullptr) << command;
    action->trigger();
}

QAction* TestProgram::Action(int command) const {
    return frame->findChild<QAction*>("command" + QString::number(command));
}

std::string TestProgram::HandText() const {
    std::string text;
    for (const CardCode card : engine.hand) {
        text += (text.empty() ? "" : " ") + CardText(engine.deck.table, card);
    }
    return text;
}

void TestProgram::ExpectAtRest(const std::string& when) const {
    EXPECT_FALSE(document->Actions().Busy()) << when;
    const Scene rest = SceneOf(document->PlayersSeat());
    const auto inWords = [this](const Scene& shown) {
        return "\n" + Describe(shown, engine.payTable, engine.deck.table);
    };
    EXPECT_TRUE(ShownScene() == rest) << when << inWords(ShownScene()) << inWords(rest);
    for (const PlaceLook& place : rest.places) {
        EXPECT_NE(place.holdButton, ButtonLook::kPressed) << when;
    }
    EXPECT_NE(rest.buttons.deal, ButtonLook::kPressed) << when;
}

ProgramTest::ProgramTest() {
    QSettings().clear();
    for (const char* name : {"Tolvane.ini", "Default.qdx"}) {
        std::filesystem::copy(std::string(TOLVANE_DATA_FOLDER "/") + name, folder.Path(name));
    }
    Set("Credits", "100");
    Set("ShowDollar", "0");
    Set("Speed", "3");
}

void ProgramTest::Set(std::string_view key, std::string_view value) {
    ProfileFile().WriteString("main", key, value, folder.Path("Default.qdx"));
}

void ProgramTest::SetInTable(const std::string& game, std::string_view key,
                             std::string_view value) {
    ProfileFile().WriteString(game + "(0)", key, value, folder.Path("Tolvane.ini"));
}

TestProgram& ProgramTest::Start(bool realPauses) {
    program.reset();
    program = std::make_unique<TestProgram>(folder, realPauses);
    return *program;
}

TestProgram& ProgramTest::Start(const std::string& game, int gameId) {
    Set("GameName", game);
    Set("GameID", std::to_string(gameId));
    return Start();
}

std::string ProgramTest::Stored(std::string_view key, std::string_view section,
                                const std::string& name) {
    return ProfileFile().GetString(section, key, "(missing)", ProfileFile::kWholeValue,
                                   folder.Path(name));
}

void ProgramTest::TearDown() {
    if (program) program->ExpectAtRest("at the end");
}

// The windows' settings go to a folder of their own, so that a player's are left alone.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QApplication::setOrganizationName("TolvaneTest");
    QApplication::setApplicationName("TolvaneTest");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
