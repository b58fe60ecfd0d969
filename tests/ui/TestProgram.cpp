#include "tests/ui/TestProgram.h"

#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QTemporaryDir>
#include <filesystem>

#include "game/Dealing.h"

namespace {

constexpr int kAceHigh = 14;
constexpr std::size_t kDealersCard = 4;

int DuelValue(const Deck& deck, std::size_t at) {
    const int rank = deck.table.cards[static_cast<std::size_t>(deck.order[at])].rank;
    return rank == 1 ? kAceHigh : rank;
}

void CallOnce(std::function<void()>& hook) {
    if (const auto action = std::exchange(hook, nullptr)) action();
}

std::string Describe(const PlaceLook& place) {
    return std::to_string(place.card) + (place.held ? " held" : "") + " button " +
           std::to_string(static_cast<int>(place.holdButton)) + " pile " +
           std::to_string(place.pileDepth) + " " + place.label;
}

std::string ButtonsOf(const TableScene& scene) {
    std::string looks;
    for (const ButtonLook look : scene.buttons) looks += std::to_string(static_cast<int>(look));
    return looks;
}

}  // namespace

void TestClock::Pause(int /*milliseconds*/) {
    if (paints) QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    CallOnce(inPause);
}

void TestClock::PauseWithInput(int /*milliseconds*/) {
    ++pausesWithInput;
    if (paints) QApplication::processEvents();
    CallOnce(inPauseWithInput);
}

TestProgram::TestProgram(const TemporaryFolder& folder, bool realPauses)
    : paths{.folder = folder.Path() + "/",
            .releaseFolder = TOLVANE_DATA_FOLDER "/",
            .mainProfile = folder.Path("Tolvane.ini"),
            .defaultGame = folder.Path("Default.qdx"),
            .analysisCache = folder.Path("Game Analyses.dat")} {
    engine.deck.clock = spare.deck.clock = [] { return std::int64_t{1'790'000'000}; };
    frame = std::make_unique<CMainFrame>();
    frame->hurryClock = [this](bool on) { windowClock.Hurry(on); };
    Clock& used = realPauses ? static_cast<Clock&>(windowClock) : clock;
    document =
        std::make_unique<CMorvikDoc>(engine, spare, file, paths, *frame, pictures, used, sounds);
    frame->Show(*document, pictures);
    EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
    view = frame->View();
    document->OnNewDocument();
}

TestProgram::~TestProgram() {
    frame.reset();
    document.reset();
}

void TestProgram::Stack(std::string_view cards, std::size_t count) {
    auto next = engine.deck.order.begin();
    for (const CardCode code : Cards(engine.payTable, cards, count)) {
        const auto end = engine.deck.order.begin() + engine.deck.table.deckSize;
        std::iter_swap(next, std::find(next, end, code));
        ++next;
    }
}

void TestProgram::DecideNextDuel(int wanted) {
    for (std::uint32_t seed = 1;; ++seed) {
        engine.deck.random.RandomInit(seed);
        Deck deck = engine.deck;
        deck.Shuffle(5);
        const int difference = DuelValue(deck, 0) - DuelValue(deck, kDealersCard);
        if ((difference > 0) - (difference < 0) == wanted) return;
    }
}

void TestProgram::DecideFeatures(const std::function<bool(CombinedRandom)>& wanted) {
    for (std::uint32_t seed = 1;; ++seed) {
        document->table.random.RandomInit(seed);
        if (wanted(document->table.random)) return;
    }
}

void TestProgram::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(view, key, modifiers);
}

void TestProgram::Keys(std::initializer_list<Qt::Key> keys) const {
    for (const Qt::Key key : keys) Key(key);
}

void TestProgram::Press(const QRect& place) const {
    QTest::mousePress(view, Qt::LeftButton, {}, place.center());
}

void TestProgram::Release(const QRect& place) const {
    QTest::mouseRelease(view, Qt::LeftButton, {}, place.center());
}

void TestProgram::Click(const QRect& place) const {
    Press(place);
    Release(place);
}

void TestProgram::RightPress(const QRect& place) const {
    QTest::mousePress(view, Qt::RightButton, {}, place.center());
    QTest::mouseRelease(view, Qt::RightButton, {}, place.center());
}

void TestProgram::DoubleClick(const QRect& place) const {
    Click(place);
    QTest::mouseDClick(view, Qt::LeftButton, {}, place.center());  // the second press only
    Release(place);
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

HoldMask TestProgram::Held() const { return HeldMask(engine); }

void TestProgram::ExpectAtRest(const std::string& when) const {
    EXPECT_FALSE(document->actions.Busy()) << when;
    const TableScene& scene = document->scene;
    TableScene rest = SceneOf(document->table, scene.message);
    // A bet that is changed takes the mark of the hand before off the table.
    const bool unmarked =
        std::ranges::all_of(scene.lines, [](const LineLook& line) { return line == LineLook{}; });
    if (unmarked && engine.handOver && !engine.doubleUpPick) {
        rest.lines = scene.lines;
        rest.charlie = scene.charlie;
    }
    EXPECT_TRUE(scene == rest) << when << ", message " << scene.message;
    EXPECT_EQ(scene.credits, rest.credits) << when;
    EXPECT_EQ(scene.bet, rest.bet) << when;
    EXPECT_EQ(scene.coin, rest.coin) << when;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        EXPECT_EQ(Describe(scene.places[i]), Describe(rest.places[i])) << when << ", place " << i;
    }
    EXPECT_EQ(scene.charlie, rest.charlie) << when;
    EXPECT_EQ(scene.firstDraw, rest.firstDraw) << when;
    EXPECT_TRUE(scene.lines == rest.lines) << when << ": lines";
    EXPECT_EQ(scene.Button(TableButton::kDoubleUp), rest.Button(TableButton::kDoubleUp))
        << when << ": double up button; offered " << engine.doubleUpOffered << ", won "
        << engine.handWins << ", option " << engine.settings.doubleUp;
    EXPECT_EQ(ButtonsOf(scene), ButtonsOf(rest)) << when << ": buttons";
    EXPECT_TRUE(scene.doubleUp == rest.doubleUp) << when << ": double up";
    EXPECT_EQ(scene.featureLabel, rest.featureLabel) << when;
    EXPECT_TRUE(scene.spin == rest.spin) << when << ": spin";
    EXPECT_TRUE(scene.targets == rest.targets) << when << ": targets";
    EXPECT_TRUE(scene.redBlack == rest.redBlack) << when << ": red or black";
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
