#include "app/CMorvikDoc.h"

#include <QApplication>
#include <utility>

#include "app/MenuTable.h"
#include "core/profile/ProfileFile.h"
#include "game/AnalyzeGame.h"
#include "game/DealSteps.h"
#include "game/FileCommands.h"
#include "game/FixedHand.h"
#include "game/GameSelection.h"
#include "game/SaveGame.h"
#include "game/ShowTable.h"
#include "game/SpareEngine.h"
#include "game/StartAndStop.h"
#include "game/TableCommands.h"
#include "ui/dialogs/AboutDialog.h"
#include "ui/dialogs/CombinationsDialog.h"
#include "ui/dialogs/ErrorLogDialog.h"
#include "ui/dialogs/HandAnalysisDialog.h"
#include "ui/dialogs/HelpWindow.h"
#include "ui/table/Commands.h"

namespace {

constexpr int kResetShown = 1500;  // milliseconds, during a hand

}  // namespace

CMorvikDoc::CMorvikDoc(GameEngine& engine, GameEngine& spareEngine, ProfileFile& file,
                       DataFilePaths dataPaths, QWidget& parent, PictureStore& store, Clock& clock,
                       Sounds& sounds)
    : files{file, dataPaths.mainProfile, dataPaths.defaultGame},
      player(parent, store, clock),
      reports(parent),
      manager(parent),
      actions(table),
      table{.engine = engine,
            .files = files,
            .tables = lineTables,
            .display = *this,
            .player = player,
            .sounds = sounds,
            .clock = clock},
      paths(std::move(dataPaths)),
      spare(spareEngine),
      window(parent),
      pictures(store) {
    resetRead.setSingleShot(true);
    resetRead.setInterval(kResetShown);
    connect(&resetRead, &QTimer::timeout, this, &CMorvikDoc::AskForHoldsAgain);
    // A menu that is open when a count-up begins ends it like one that is opened later.
    table.usesUpPresses = [this] {
        return actions.DropPresses(Press::State::kUsedUp) || QApplication::activePopupWidget();
    };
    actions.settled = [this] { emit Settled(); };
    player.showAnalysis = [this](QWidget& over) { AnalyzeHand(over); };
    player.beep = [this] { table.sounds.Sound(Beep::kExclamation); };
    StartGame(table, paths);
    ShowAtRest(table);
}

CMorvikDoc::~CMorvikDoc() = default;

void CMorvikDoc::OnNewDocument(const std::string& gameFile) {
    actions.Run([this, gameFile] {
        FinishStart(table, gameFile);
        emit TitleChanged();
    });
}

bool CMorvikDoc::OnCloseDocument() { return StopGame(table, paths); }

void CMorvikDoc::SaveForNow() {
    StoreCurrentGamePath(files.gamePath, paths, files.file);
    SaveGameQuietly(table);  // the desktop waits
    files.file.Flush();
}

// The window hurries what runs when it is closed, so the exit need not wait.
void CMorvikDoc::Run(int command) {
    if (command == kExit) {
        emit ExitChosen();
        return;
    }
    PressInHand choice;
    actions.Begin(choice, PressKind::kOther, [this, command] {
        if (IsEnabled(GreyOf(command), table.engine)) Dispatch(command);
    });
}

void CMorvikDoc::RunKey(int command) {
    const bool editsTable = command == kEditPayTable || command == kEditCurrentPayTable;
    if (editsTable && !IsEnabled(Grey::kDuringHand, table.engine)) return;
    Dispatch(command);
}

QString CMorvikDoc::Title() const {
    return QString::fromStdString(::Title(table, paths)) + tr(" - Tolvane");
}

void CMorvikDoc::RefuseQuestions() {
    reports.RefuseAll();
    player.RefuseAll();
}

void CMorvikDoc::AnswerQuestions() {
    reports.AnswerAgain();
    player.AnswerAgain();
}

void CMorvikDoc::Show(const TableScene& scene) {
    const bool inHand = scene.message == kResetMessage && !table.engine.handOver;
    if (inHand && !resetRead.isActive()) resetRead.start();
    emit SceneChanged();
}

void CMorvikDoc::Dispatch(int command) {
    if (IsGame(command)) {
        ChooseGame(command);
    } else if (!DispatchFile(command) && !DispatchOption(command)) {
        DispatchDialog(command);
    }
    emit TitleChanged();
}

void CMorvikDoc::ChooseGame(int id) {
    if (id >= kFirstUserGame) {
        ChooseUserGame(table, id, paths, manager);
    } else {
        ::ChooseGame(table, id);
    }
}

// Between hands the message of a reset stays, as others do; in a hand the meter is needed.
void CMorvikDoc::AskForHoldsAgain() {
    if (table.scene.message == kResetMessage && !table.engine.handOver) ShowMeters(table);
}

void CMorvikDoc::AnalyzeHand(QWidget& over) {
    LoadSpare(table, spare);
    LendHand(table.engine, spare);
    HandAnalysisDialog(spare, pictures, &over).exec();
}

void CMorvikDoc::ViewErrorLog() {
    if (TellIfErrorLogIsEmpty(table)) return;
    ErrorLogDialog(table.engine, files, pictures, &window).exec();
}

bool CMorvikDoc::DispatchFile(int command) {
    switch (command) {
        case kFileNew:
            NewGameFile(table);
            return true;
        case kFileOpen:
            OpenGameFile(table);
            return true;
        case kFileSave:
            SaveGameFile(table);
            return true;
        case kFileSaveAs:
            SaveGameFileAs(table);
            return true;
        default:
            return false;
    }
}

bool CMorvikDoc::DispatchOption(int command) {
    switch (command) {
        case kCashOut:
            CashOut(table);
            return true;
        case kEnterCredits:
            EnterCredits(table);
            return true;
        case kResetStatistics:
            ResetAllStatistics(table);
            return true;
        case kClearErrorLog:
            ForgetErrors(table);
            return true;
        case kAssignFixedHand:
            AssignFixedHand(table);
            return true;
        case kToggleSounds:
            ToggleSounds(table);
            return true;
        case kToggleDoubleUp:
            ToggleDoubleUp(table);
            return true;
        case kToggleShowDollar:
            ToggleShowDollar(table);
            return true;
        case kModeCasino:
        case kModeWarning:
        case kModeAutoHold:
        case kModeErrorLog:
            ChooseMode(table, static_cast<PlayMode>(command - kModeCasino + 1));
            return true;
        case kFixedHand:
            ToggleFixedHand(table);
            return true;
        case kSpeedFast:
            ChooseSpeed(table, Speed::kFast);
            return true;
        case kSpeedNormal:
            ChooseSpeed(table, Speed::kNormal);
            return true;
        case kSpeedSlow:
            ChooseSpeed(table, Speed::kSlow);
            return true;
        default:
            return DispatchCoin(command);
    }
}

bool CMorvikDoc::DispatchCoin(int command) {
    switch (command) {
        case kCoinNickel:
            ChooseCoin(table, 0.05);
            return true;
        case kCoinQuarter:
            ChooseCoin(table, 0.25);
            return true;
        case kCoinHalf:
            ChooseCoin(table, 0.5);
            return true;
        case kCoinDollar:
            ChooseCoin(table, 1.0);
            return true;
        default:
            return false;
    }
}

void CMorvikDoc::DispatchDialog(int command) {
    switch (command) {
        case kAutoplay:
            RunAutoplay(table, spare);
            break;
        case kCombinations:
            CombinationsDialog(&window).exec();
            break;
        case kPlayStatistics:
            player.ReadsStatistics(table.engine);
            break;
        case kEditPayTable:
            EditPayTable(table, paths, manager);
            break;
        case kEditCurrentPayTable:
            EditCurrentPayTable(table, paths, manager);
            break;
        case kAnalyzeGame:
            AnalyzeGameCommand(table, spare, reports, paths);
            break;
        case kAnalyzeHand:
            AnalyzeHand(window);
            break;
        case kViewErrorLog:
            ViewErrorLog();
            break;
        case kHelpIndex:
            if (!help) help = new HelpWindow(&window);
            help->Open();
            break;
        case kAbout:
            AboutDialog(&window).exec();
            break;
        default:
            break;
    }
}
