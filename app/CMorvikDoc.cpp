#include "app/CMorvikDoc.h"

#include <QApplication>
#include <QFileInfo>
#include <algorithm>
#include <utility>

#include "core/cards/CardText.h"
#include "core/profile/ProfileFile.h"
#include "core/text/Ranks.h"
#include "game/commands/FileCommands.h"
#include "game/commands/GameSelection.h"
#include "game/commands/MachineCommands.h"
#include "game/paytables/EditPayTable.h"
#include "game/reports/HandReport.h"
#include "game/saving/SaveGame.h"
#include "game/seat/ShowScene.h"
#include "game/seat/Wins.h"
#include "game/session/AnalyzeGame.h"
#include "game/session/StartAndStop.h"
#include "ui/machine/Commands.h"
#include "ui/machine/SceneSounds.h"
#include "ui/parts/DialogParts.h"
#include "ui/reports/HandPage.h"

namespace {

constexpr int kResetShown = 1500;  // milliseconds, during a hand

}  // namespace

CMorvikDoc::CMorvikDoc(const ProgramParts& parts, QWidget& window)
    : paths(parts.paths),
      files{parts.file, paths.mainProfile, paths.defaultGame},
      player(window, parts.pictures, parts.clock),
      actions(seat),
      seat{.engine = parts.engine,
           .files = files,
           .tables = lineTables,
           .display = *this,
           .player = player,
           .sounds = parts.sounds,
           .clock = parts.clock},
      charts(seat, paths),
      desk{.seat = seat,
           .spare = parts.spare,
           .paths = paths,
           .pictures = parts.pictures,
           .desktop = desktop,
           .aside = aside,
           .charts = charts,
           .window = window} {
    resetRead.setSingleShot(true);
    resetRead.setInterval(kResetShown);
    connect(&resetRead, &QTimer::timeout, this, &CMorvikDoc::AskForHoldsAgain);
    // A menu that is open when a count-up begins ends it like one that is opened later.
    seat.usesUpPresses = [this] {
        return actions.DropPresses(Press::State::kUsedUp) || QApplication::activePopupWidget();
    };
    actions.settled = [this] {
        CountHands();
        if (allGames) allGames->UpdateButtons();
        if (bankroll) bankroll->Follow();
        emit Settled();
        OpenWaitingFile();
    };
    seat.showsHints = desktop.HandsPlayed() < DesktopSettings::kHintedHands;
    player.showAnalysis = [this](QWidget& over) { ShowHandAnalysis(desk, over); };
    player.aside = &aside;
    player.charts = &charts;
    desk.showAllGames = [this] { ShowAllGames(); };
    desk.showStrategy = [this] { ShowStrategy(); };
    desk.showCompare = [this] { OpenWhatIf(compare); };
    desk.showMeter = [this] { OpenWhatIf(meter); };
    desk.showBankroll = [this] { ShowBankroll(); };
    player.machine = &seat.engine;
    player.beep = [this] { seat.sounds.Sound(Beep::kExclamation); };
    StartGame(seat, paths);
    ShowAtRest(seat);
}

CMorvikDoc::~CMorvikDoc() = default;

void CMorvikDoc::OnNewDocument(const std::string& gameFile) {
    actions.Run([this, gameFile] {
        FinishStart(seat, gameFile);
        emit TitleChanged();
    });
}

bool CMorvikDoc::OnCloseDocument() {
    charts.Stop();
    return StopGame(seat, paths);
}

void CMorvikDoc::SaveForNow() {
    StoreCurrentGamePath(files.gamePath, paths, files.file);
    SaveGameQuietly(seat);  // the desktop waits
    files.file.Flush();
}

// The window hurries what runs when it is closed, so the exit need not wait.
void CMorvikDoc::Run(int command) {
    if (IsDoneAtOnce(command)) return Dispatch(command);
    PressInHand choice;
    actions.Begin(choice, PressKind::kOther, [this, command] {
        if (IsEnabled(command)) Dispatch(command);
    });
}

void CMorvikDoc::OpenFile(const QString& path) {
    waitingFile = path;
    OpenWaitingFile();
    emit TitleChanged();
}

void CMorvikDoc::OpenWaitingFile() {
    if (waitingFile.isEmpty() || actions.Busy() || !IsEnabled(kFileOpen)) return;
    actions.Run([this, path = std::exchange(waitingFile, {})] {
        OpenNamedGameFile(seat, path.toStdString());
        if (!QFileInfo::exists(path)) desktop.ForgetGameFile(path);
        emit TitleChanged();
    });
}

void CMorvikDoc::RunKey(int command) {
    if (IsEnabledByKey(command, seat.engine)) Dispatch(command);
}

QString CMorvikDoc::Title() const {
    const QString title = QString::fromStdString(::Title(seat, paths)) + tr(" - Tolvane");
    return waitingFile.isEmpty() ? title : WaitingNote() + " - " + title;
}

QString CMorvikDoc::WaitingNote() const {
    if (waitingFile.isEmpty()) return {};
    return tr("%1 waits to be opened").arg(QFileInfo(waitingFile).fileName());
}

// Nothing is deleted yet: what was begun in one of the windows may be waiting further up the stack.
void CMorvikDoc::CloseReports() {
    aside.CloseAll();
    for (BesideWindow* window : Beside()) {
        if (window) window->hide();
    }
}

std::array<BesideWindow*, 5> CMorvikDoc::Beside() const {
    return {allGames.get(), strategy.get(), compare.get(), meter.get(), bankroll.get()};
}

void CMorvikDoc::ShowAllGames() {
    if (!allGames) allGames = std::make_unique<AllGamesWindow>(seat, paths, ActionsOnTables());
    allGames->Open();
}

void CMorvikDoc::ShowStrategy() {
    if (!strategy) {
        const auto analyze = [this](const TableOfGame& table, const std::string& hand) {
            RunAs(kAnalyzeHand, [this, table, hand] { ShowHandOfTable(desk, table, hand); });
        };
        strategy = std::make_unique<StrategyWindow>(seat, charts, analyze);
    }
    strategy->Open();
}

template <typename Window>
void CMorvikDoc::OpenWhatIf(std::unique_ptr<Window>& window) {
    if (!window) {
        window = std::make_unique<Window>(
            seat, [this](const TableOfGame& place, const PayTable& table, const Hand& hand) {
                ShowHandOf(place, table, hand);
            });
    }
    window->Open();
}

// At the full bet, in a window of its own that holds all it shows.
void CMorvikDoc::ShowHandOf(const TableOfGame& place, const PayTable& table, const Hand& hand) {
    auto engine = std::make_unique<GameEngine>(seat.engine);
    SetCurrentTable(engine->settings, place);
    engine->settings.bet = std::min(kFullBet, table.maxBet);
    UseTable(*engine, table, lineTables);
    std::string text;
    for (const CardFace face : hand) {
        text += std::string(1, RankChar(face.rank)) +
                (face.IsJoker() ? "" : std::string(1, SuitChar(face.suit))) + " ";
    }
    if (!TakeTypedHand(*engine, text).empty()) return;
    aside.PutAside(HandPage(std::move(engine), desk.pictures, nullptr, nullptr), "hand");
}

void CMorvikDoc::ShowBankroll() {
    if (!bankroll) bankroll = std::make_unique<BankrollWindow>(seat.engine);
    bankroll->Open();
}

TableActions CMorvikDoc::ActionsOnTables() {
    return {.play =
                [this](const TableOfGame& table) {
                    RunAs(table.gameId,
                          [this, table] { ChooseGame(seat, table.gameId, table.tableIndex); });
                },
            .edit =
                [this](const TableOfGame& table) {
                    RunAs(kEditPayTable, [this, table] { EditPayTableAt(seat, paths, table); });
                },
            .analyze =
                [this](const TableOfGame& table) {
                    RunAs(kAnalyzeGame,
                          [this, table] { AnalyzeTableCommand(seat, desk.spare, paths, table); });
                },
            .mayChange = [this] { return IsEnabled(kEditPayTable); },
            .isBusy = [this] { return actions.Busy(); }};
}

// Runs what a command of the menus would do in another way, when that may be given.
void CMorvikDoc::RunAs(int command, const std::function<void()>& action) {
    PressInHand choice;
    actions.Begin(choice, PressKind::kOther, [this, command, action] {
        if (!IsEnabled(command)) return;
        action();
        emit TitleChanged();
        if (allGames) allGames->Reload();
    });
}

void CMorvikDoc::RefuseQuestions() {
    player.RefuseAll();
    aside.RefuseQuestions();  // one may have come up in a pause of the flow that is to end
    for (BesideWindow* window : Beside()) {
        if (window) RefuseDialogsOver(*window);
    }
}

void CMorvikDoc::AnswerQuestions() { player.AnswerAgain(); }

void CMorvikDoc::Show(const Scene& scene) {
    SoundChange(scene);
    const bool inHand = scene.message == kResetMessage && !seat.engine.handOver;
    if (inHand && !resetRead.isActive()) resetRead.start();
    emit SceneChanged();
}

// Hands that are played by another copy of the program count as well.
void CMorvikDoc::CountHands() {
    const std::int32_t played = seat.engine.statistics.handsPlayed.session;
    if (played > handsCounted && seat.showsHints) {
        desktop.CountHand();
        seat.showsHints = desktop.HandsPlayed() < DesktopSettings::kHintedHands;
        if (!seat.showsHints) {
            seat.scene.hint.clear();
            ::Show(seat);
        }
    }
    handsCounted = played;
}

// Cards that are dealt all but at once make one sound.
void CMorvikDoc::SoundChange(const Scene& scene) {
    constexpr qint64 kBetweenCards = 60;  // milliseconds
    const auto wave = SoundOfChange(heard, scene);
    heard = scene;
    const bool tooSoon = sinceCard.isValid() && !sinceCard.hasExpired(kBetweenCards);
    if (!wave || (wave == Wave::kCard && tooSoon)) return;
    if (wave == Wave::kCard) sinceCard.start();
    Play(seat, *wave);
}

void CMorvikDoc::Dispatch(int command) {
    RunCommand(command, desk);
    emit TitleChanged();
}

// Between hands the message of a reset stays, as others do; in a hand the meter is needed.
void CMorvikDoc::AskForHoldsAgain() {
    if (seat.scene.message == kResetMessage && !seat.engine.handOver) ShowMeters(seat);
}
