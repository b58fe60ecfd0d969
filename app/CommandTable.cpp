#include "app/CommandTable.h"

#include <QMetaObject>
#include <QWidget>
#include <Qt>
#include <array>
#include <memory>
#include <optional>
#include <utility>

#include "app/DesktopSettings.h"
#include "app/WindowPlaces.h"
#include "game/commands/FileCommands.h"
#include "game/commands/GameSelection.h"
#include "game/commands/MachineCommands.h"
#include "game/engine/Autoplay.h"
#include "game/flows/DealSteps.h"
#include "game/flows/FixedHand.h"
#include "game/paytables/EditPayTable.h"
#include "game/reports/ErrorLogReport.h"
#include "game/reports/HandReport.h"
#include "game/saving/SaveGame.h"
#include "game/session/AnalyzeGame.h"
#include "game/session/SpareEngine.h"
#include "ui/help/AboutDialog.h"
#include "ui/help/HelpWindow.h"
#include "ui/parts/DialogParts.h"
#include "ui/questions/CombinationsDialog.h"
#include "ui/reports/AsideWindows.h"
#include "ui/reports/ErrorLogDialog.h"
#include "ui/reports/HandAnalysisDialog.h"
#include "ui/reports/HandPage.h"

namespace {

// What the rows do. The window is closed from the event loop, so that no command is left behind it.
void Exit(CommandDesk& desk, int) {
    QMetaObject::invokeMethod(&desk.window, "close", Qt::QueuedConnection);
}
void DoNothing(CommandDesk&, int) {}

template <void (*kCommand)(Seat&)>
void AtSeat(CommandDesk& desk, int) {
    kCommand(desk.seat);
}

void PlayGame(CommandDesk& desk, int id) {
    if (id >= kFirstUserGame) {
        ChooseUserGame(desk.seat, id, desk.paths);
    } else {
        ChooseGame(desk.seat, id);
    }
}
template <PlayMode kMode>
void PlayIn(CommandDesk& desk, int) {
    ChooseMode(desk.seat, kMode);
}
template <int kCents>
void PayWith(CommandDesk& desk, int) {
    ChooseCoin(desk.seat, kCents / 100.0);
}
template <Speed kSpeed>
void RunAt(CommandDesk& desk, int) {
    ChooseSpeed(desk.seat, kSpeed);
}

void PlayByItself(CommandDesk& desk, int) { RunAutoplay(desk.seat, desk.spare); }
void ReadStatistics(CommandDesk& desk, int) { desk.seat.player.ShowStatistics(desk.seat.engine); }
void EditAnyTable(CommandDesk& desk, int) { EditPayTable(desk.seat, desk.paths); }
void EditTable(CommandDesk& desk, int) { EditCurrentPayTable(desk.seat, desk.paths); }
void ReadGame(CommandDesk& desk, int) { AnalyzeGameCommand(desk.seat, desk.spare, desk.paths); }
void ReadAllGames(CommandDesk& desk, int) {
    if (desk.showAllGames) desk.showAllGames();
}
void ReadStrategy(CommandDesk& desk, int) {
    if (desk.showStrategy) desk.showStrategy();
}
void CompareTables(CommandDesk& desk, int) {
    if (desk.showCompare) desk.showCompare();
}
void WatchMeter(CommandDesk& desk, int) {
    if (desk.showMeter) desk.showMeter();
}
void ReadBankroll(CommandDesk& desk, int) {
    if (desk.showBankroll) desk.showBankroll();
}
void ReadHand(CommandDesk& desk, int) { ShowHandAnalysis(desk, desk.window); }

void TellOfMissingCard(QWidget& over) {
    ShowMessage("missingCard", QMessageBox::Critical, QObject::tr("Missing Card"),
                QObject::tr("A card of this hand is missing in the log, so that it cannot be "
                            "analyzed. Delete the entry, or mend it in the game file."),
                &over);
}

void ShowLoggedHand(const CommandDesk& desk, const ErrorLogView& log, int index, QWidget& over) {
    LoadSpare(desk.seat, desk.spare);
    LendHand(desk.seat.engine, desk.spare);
    const auto at = static_cast<std::size_t>(index);
    if (!LendLoggedHand(log.errors.at(at), desk.spare)) return TellOfMissingCard(over);
    HandAnalysisDialog(desk.spare, desk.pictures, &over, desk.seat.engine, desk.aside, &desk.charts)
        .exec();
}

// The machine may be playing another game by now, so the log lends its own.
void PutLoggedHandAside(const CommandDesk& desk, const ErrorLogView& log, int index,
                        QWidget& over) {
    auto engine = std::make_unique<GameEngine>(log.engine);
    const auto at = static_cast<std::size_t>(index);
    if (!LendLoggedHand(log.errors.at(at), *engine)) return TellOfMissingCard(over);
    HandPage page(std::move(engine), desk.pictures, &desk.seat.engine, nullptr);
    page.TellReasons(&desk.charts);
    desk.aside.PutAside(page, "hand");
}

void ReadErrorLog(CommandDesk& desk, int) {
    if (TellIfErrorLogIsEmpty(desk.seat)) return;
    std::optional<int> toDeal;
    const ErrorActions actions{
        .analyze = [&desk](const ErrorLogView& log, int index,
                           QWidget& over) { ShowLoggedHand(desk, log, index, over); },
        .analyzeAside = [&desk](const ErrorLogView& log, int index,
                                QWidget& over) { PutLoggedHandAside(desk, log, index, over); },
        .deal = [&toDeal](int index) { toDeal = index; },
        .forget = [&desk](int index) { ForgetError(desk.seat, index); },
        .mayChange = [&desk] { return !PaidHandIsOpen(desk.seat.engine); }};
    ErrorLogDialog dialog(desk.seat.engine, desk.seat.files, desk.pictures, &desk.window, actions,
                          &desk.aside, &desk.charts);
    dialog.exec();
    if (toDeal) DealLoggedHand(desk.seat, *toDeal);
}
void CountCombinations(CommandDesk& desk, int) { CombinationsDialog(&desk.window).exec(); }
void OpenHelp(CommandDesk& desk, int) {
    if (!desk.help) desk.help = new HelpWindow(&desk.window);
    desk.help->Open();
}
void ShowAbout(CommandDesk& desk, int) { AboutDialog(&desk.window).exec(); }

// What belongs to the desktop.
void ToggleAnimation(CommandDesk& desk, int) {
    desk.desktop.SetAnimation(!desk.desktop.Animation());
}
void ToggleFourColourDeck(CommandDesk& desk, int) {
    desk.desktop.SetFourColourDeck(!desk.desktop.FourColourDeck());
}
void ChooseCardBack(CommandDesk& desk, int id) { desk.desktop.SetCardBack(id - kFirstCardBack); }
void ChangeFullScreen(CommandDesk& desk, int) { ToggleFullScreen(desk.window, desk.desktop); }

// When they have a check mark.
const MachineSettings& SettingsOf(const CommandDesk& desk) { return desk.seat.engine.settings; }
bool IsPlayed(const CommandDesk& desk, int id) { return id == SettingsOf(desk).gameId; }
bool IsPractice(const CommandDesk& desk, int) { return desk.seat.engine.fixedHand; }
template <bool MachineSettings::*kFlag>
bool Has(const CommandDesk& desk, int) {
    return SettingsOf(desk).*kFlag;
}
template <PlayMode kMode>
bool PlaysIn(const CommandDesk& desk, int) {
    return SettingsOf(desk).mode == kMode;
}
template <int kCents>
bool PaysWith(const CommandDesk& desk, int) {
    return SettingsOf(desk).coin == kCents / 100.0;
}
template <Speed kSpeed>
bool RunsAt(const CommandDesk& desk, int) {
    return SettingsOf(desk).speed == kSpeed;
}
bool IsAnimated(const CommandDesk& desk, int) { return desk.desktop.Animation(); }
bool HasFourColours(const CommandDesk& desk, int) { return desk.desktop.FourColourDeck(); }
bool HasBack(const CommandDesk& desk, int id) {
    return desk.desktop.CardBack() == id - kFirstCardBack;
}
bool IsFullScreen(const CommandDesk& desk, int) { return desk.window.isFullScreen(); }

constexpr bool kAtOnce = true;

using enum Grey;
using enum PlayMode;
using enum Speed;
using Row = CommandRow;
using Set = MachineSettings;

// A letter or digit is its own Qt::Key. The table has nothing to edit; the entries are where
// players look for them.
// clang-format off
constexpr auto kRows = std::to_array<MenuRow>({
    // command              caption                   key  shortcut  greyed           does                             checked
    PopupRow{"fileMenu", "&File"},
    Row{kFileNew,           "&New",                   0,   "Ctrl+N", kDuringHand,     AtSeat<NewGameFile>},
    Row{kFileOpen,          "&Open...",               0,   "Ctrl+O", kDuringHand,     AtSeat<OpenGameFile>},
    Row{kFileSave,          "&Save",                  0,   "Ctrl+S", kDuringHand,     AtSeat<SaveGameFile>},
    Row{kFileSaveAs,        "Save &As...",            0,   "",       kDuringHand,     AtSeat<SaveGameFileAs>},
    SeparatorRow{},
    LastGameFilesRow{},
    Row{kExit,              "E&xit",                  0,   "Ctrl+Q", kNever,          Exit,                           nullptr, kAtOnce},

    PopupRow{"editMenu", "&Edit"},
    Row{kEditUndo,          "&Undo",                  0,   "Ctrl+Z", kAlways,         DoNothing},
    Row{kEditCut,           "Cu&t",                   0,   "Ctrl+X", kAlways,         DoNothing},
    Row{kEditCopy,          "&Copy",                  0,   "Ctrl+C", kAlways,         DoNothing},
    Row{kEditPaste,         "&Paste",                 0,   "Ctrl+V", kAlways,         DoNothing},

    PopupRow{"gamesMenu", "&Games"},
    GameRows{300, 329},
    SeparatorRow{},
    GameRows{330, 339},
    SeparatorRow{},
    GameRows{340, 349},
    SeparatorRow{},
    UserGamesRow{"userGamesMenu", "User Games"},
    SeparatorRow{},
    GameRows{350, kLastGame},

    PopupRow{"optionsMenu", "&Options"},
    Row{kCashOut,           "Cash Out",               'O', "",       kNever,          AtSeat<CashOut>},
    Row{kEnterCredits,      "Enter Credits",          0,   "",       kNever,          AtSeat<EnterCredits>},
    Row{kResetStatistics,   "Reset Statistics to 0",  0,   "",       kNever,          AtSeat<ResetAllStatistics>},
    Row{kViewErrorLog,      "View Error Log",         0,   "",       kNever,          ReadErrorLog},
    Row{kClearErrorLog,     "Clear Error Log",        0,   "",       kDuringHand,     AtSeat<ForgetErrors>},
    Row{kEditPayTable,      "Edit Pay Table",         'E', "",       kDuringHand,     EditAnyTable},
    Row{kAssignFixedHand,   "Assign Fixed Hand",      'A', "",       kNever,          AtSeat<AssignFixedHand>},
    SeparatorRow{},
    Row{kToggleSounds,      "Sound Effects",          0,   "",       kDuringHand,     AtSeat<ToggleSounds>,           Has<&Set::sounds>},
    Row{kToggleDoubleUp,    "Double Up",              0,   "",       kDuringHand,     AtSeat<ToggleDoubleUp>,         Has<&Set::doubleUp>},
    Row{kToggleShowDollar,  "Show Credits as Cash",   'C', "",       kMenuDuringHand, AtSeat<ToggleShowDollar>,       Has<&Set::showDollar>},
    SeparatorRow{},
    Row{kCombinations,      "Calculate Combinations", 0,   "",       kNever,          CountCombinations},
    SeparatorRow{},
    Row{kAnimation,         "Animation",              0,   "",       kNever,          ToggleAnimation,                IsAnimated, kAtOnce},
    Row{kFourColourDeck,    "Four-Colour Deck",       0,   "",       kNever,          ToggleFourColourDeck,           HasFourColours, kAtOnce},
    ChoiceRow{"cardBackMenu", "Card Back"},
    Row{kFirstCardBack,     "Crimson",                0,   "",       kNever,          ChooseCardBack,                 HasBack, kAtOnce},
    Row{kFirstCardBack + 1, "Blue Waves",             0,   "",       kNever,          ChooseCardBack,                 HasBack, kAtOnce},
    Row{kFirstCardBack + 2, "Black and Gold",         0,   "",       kNever,          ChooseCardBack,                 HasBack, kAtOnce},
    EndOfChoiceRow{},
    Row{kFullScreen,        "Full Screen",            0,   "F11",    kNever,          ChangeFullScreen,               IsFullScreen, kAtOnce},

    PopupRow{"playModeMenu", "&Play Mode"},
    Row{kModeCasino,        "Casino",                 0,   "",       kDuringHand,     PlayIn<kCasino>,                 PlaysIn<kCasino>},
    Row{kModeWarning,       "Warning",                0,   "",       kDuringHand,     PlayIn<kWarning>,                PlaysIn<kWarning>},
    Row{kModeAutoHold,      "AutoHold",               0,   "",       kDuringHand,     PlayIn<kAutoHold>,               PlaysIn<kAutoHold>},
    Row{kModeErrorLog,      "Error Log",              0,   "",       kDuringHand,     PlayIn<kErrorLog>,               PlaysIn<kErrorLog>},
    Row{kAutoplay,          "Autoplay",               0,   "",       kNever,          PlayByItself},
    SeparatorRow{},
    Row{kFixedHand,         "Fixed Hand",             0,   "",       kDuringHand,     AtSeat<ToggleFixedHand>,        IsPractice},

    PopupRow{"coinMenu", "&Coin"},
    Row{kCoinNickel,        "Nickel",                 0,   "",       kNever,          PayWith<5>,                      PaysWith<5>},
    Row{kCoinQuarter,       "Quarter",                0,   "",       kNever,          PayWith<25>,                     PaysWith<25>},
    Row{kCoinHalf,          "50 Cents",               0,   "",       kNever,          PayWith<50>,                     PaysWith<50>},
    Row{kCoinDollar,        "Dollar",                 0,   "",       kNever,          PayWith<100>,                    PaysWith<100>},

    PopupRow{"speedMenu", "&Speed"},
    Row{kSpeedFast,         "Fast",                   0,   "",       kNever,          RunAt<kFast>,                    RunsAt<kFast>},
    Row{kSpeedNormal,       "Normal",                 0,   "",       kNever,          RunAt<kNormal>,                  RunsAt<kNormal>},
    Row{kSpeedSlow,         "Slow",                   0,   "",       kNever,          RunAt<kSlow>,                    RunsAt<kSlow>},

    PopupRow{"analyzeMenu", "&Analyze"},
    Row{kPlayStatistics,    "Game Play",              'S', "",       kNever,          ReadStatistics},
    Row{kAnalyzeHand,       "Hand",                   'H', "",       kNever,          ReadHand},
    Row{kAnalyzeGame,       "Game",                   0,   "",       kNever,          ReadGame},
    Row{kAllGames,          "All Games",              0,   "",       kNever,          ReadAllGames},
    Row{kStrategy,          "Strategy",               0,   "",       kNever,          ReadStrategy},
    Row{kCompare,           "Compare",                0,   "",       kNever,          CompareTables},
    Row{kMeter,             "Meter",                  0,   "",       kNever,          WatchMeter},
    Row{kBankroll,          "Bankroll",               0,   "",       kNever,          ReadBankroll},

    PopupRow{"helpMenu", "&Help"},
    Row{kHelpIndex,         "Help Index",     Qt::Key_F1,  "F1",     kNever,          OpenHelp},
    Row{kAbout,             "&About Tolvane...",      0,   "",       kNever,          ShowAbout},

    NoMenuRow{},
    Row{kEditCurrentPayTable,   "",                   'T', "",       kDuringHand,     EditTable},
    Row{kResetStatisticsAlone,  "",                   '0', "",       kNever,          AtSeat<ResetStatisticsOnly>},
});
// clang-format on

// The row of all games, those of the player's own too.
constexpr Row kAnyGame{.grey = kDuringHand, .run = PlayGame, .isChecked = IsPlayed};

template <typename Is>
const CommandRow* FindRow(Is isWanted) {
    for (const MenuRow& row : kRows) {
        const auto* command = std::get_if<CommandRow>(&row);
        if (command && isWanted(*command)) return command;
    }
    return nullptr;
}

// nullptr when there is none.
const CommandRow* RowOf(int id) {
    if (IsGame(id)) return &kAnyGame;
    return FindRow([id](const CommandRow& row) { return row.id == id; });
}

}  // namespace

std::span<const MenuRow> MenuRows() { return kRows; }

int CommandOfKey(int key) {
    const CommandRow* row =
        FindRow([key](const CommandRow& command) { return command.key == key && key != 0; });
    return row ? row->id : kNoCommand;
}

bool CanBeChecked(int id) {
    const CommandRow* row = RowOf(id);
    return row && row->isChecked;
}

bool IsChecked(int id, const CommandDesk& desk) {
    const CommandRow* row = RowOf(id);
    return row && row->isChecked && row->isChecked(desk, id);
}

bool IsDoneAtOnce(int id) {
    const CommandRow* row = RowOf(id);
    return row && row->atOnce;
}

bool IsEnabled(int id, const GameEngine& engine) {
    const CommandRow* row = RowOf(id);
    if (!row || row->grey == kAlways) return false;
    return row->grey == kNever || !PaidHandIsOpen(engine);
}

bool IsEnabledByKey(int id, const GameEngine& engine) {
    const CommandRow* row = RowOf(id);
    return IsEnabled(id, engine) || (row && row->grey == kMenuDuringHand);
}

void RunCommand(int id, CommandDesk& desk) {
    if (const CommandRow* row = RowOf(id)) row->run(desk, id);
}

void ShowHandAnalysis(const CommandDesk& desk, QWidget& over) {
    LoadSpare(desk.seat, desk.spare);
    LendHand(desk.seat.engine, desk.spare);
    HandAnalysisDialog(desk.spare, desk.pictures, &over, desk.seat.engine, desk.aside, &desk.charts)
        .exec();
}

void ShowHandOfTable(const CommandDesk& desk, const TableOfGame& table, const std::string& hand) {
    LoadSpareTable(desk.seat, desk.spare, table);
    desk.spare.settings.bet = kFullBet;
    desk.spare.settings.coin = desk.seat.engine.settings.coin;
    if (!TakeTypedHand(desk.spare, hand).empty()) return;
    HandAnalysisDialog(desk.spare, desk.pictures, &desk.window, desk.seat.engine, desk.aside,
                       &desk.charts)
        .exec();
}
