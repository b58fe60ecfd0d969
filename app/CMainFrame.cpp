#include "app/CMainFrame.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QFontMetrics>
#include <QLabel>
#include <QMenuBar>
#include <QShortcut>
#include <algorithm>

#include "app/CMorvikDoc.h"
#include "app/CommandMenu.h"
#include "app/CommandTable.h"
#include "app/DesktopPortal.h"
#include "app/WindowPlaces.h"
#include "core/paytable/GameCatalogue.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/CMorvikView.h"

namespace {

constexpr int kLastGameFiles = 4;
constexpr int kWidestFileName = 320;  // pixels
constexpr int kNoteMargin = 8;
constexpr int kNarrowestNote = 80;

// A name may hold a '&', which would mark a letter in a menu.
QString MenuText(QString name) { return name.replace("&", "&&"); }
QString MenuText(std::string_view name) { return MenuText(QString::fromUtf8(name)); }

// Of these one is chosen at a time.
bool IsChoice(int id) {
    return IsGame(id) || (id >= kModeCasino && id <= kModeErrorLog) ||
           (id >= kCoinNickel && id <= kCoinDollar) || (id >= kSpeedFast && id <= kSpeedSlow) ||
           (id >= kFirstCardBack && id < kFirstCardBack + DesktopSettings::kCardBacks);
}

// What is on or off has a box, full or empty; of a choice only what is chosen has a mark, or the
// long list of the games would be read through a column of rings.
void ShowState(QAction& action, const CMorvikDoc& document) {
    const int id = action.data().toInt();
    const bool checked = document.IsChecked(id);
    action.setCheckable(checked || (CanBeChecked(id) && !IsChoice(id)));
    action.setChecked(checked);
    action.setEnabled(document.IsEnabled(id));
}

}  // namespace

CMainFrame::CMainFrame() {
    setObjectName("mainFrame");
    setWindowIcon(ProgramIcon());
}

// The view that loses the focus reaches what would be gone in the destructors that follow.
CMainFrame::~CMainFrame() { hide(); }

void CMainFrame::Show(CMorvikDoc& shown, PictureStore& pictures) {
    document = &shown;
    view = new CMorvikView(shown.PlayersSeat(), pictures, shown.Actions(),
                           {CommandOfKey, [this](int command) { document->RunKey(command); }});
    setCentralWidget(view);
    AskForReducedMotion();
    MakeMenus();
    connect(document, &CMorvikDoc::SceneChanged, view, &CMorvikView::ShowScene);
    connect(document, &CMorvikDoc::PayTableChanged, view, &CMorvikView::LayOutMachine);
    connect(document, &CMorvikDoc::TitleChanged, this, &CMainFrame::UpdateTitle);
    connect(document, &CMorvikDoc::Settled, this, &CMainFrame::UpdateActions);
    connect(view, &CMorvikView::LaidOut, this, &CMainFrame::UpdateTitle);
    connect(&document->Desktop(), &DesktopSettings::Changed, this,
            &CMainFrame::ApplyDesktopSettings);
    leaveFullScreen = new QShortcut(Qt::Key_Escape, this);
    leaveFullScreen->setEnabled(false);
    connect(leaveFullScreen, &QShortcut::activated, this, [this] { document->Run(kFullScreen); });
    ApplyDesktopSettings();
    UpdateTitle();
    ShowAsItWasLeft(*this, view->sizeHint(), document->Desktop());
    view->setFocus();
}

// The newer of the two keys says it plainly, the older one is that of one desktop.
void CMainFrame::AskForReducedMotion() {
    AskDesktop(view, "org.freedesktop.appearance", "reduced-motion", [this](const QVariant& value) {
        if (value.toUInt() == 1) view->SetReducedMotion(true);
    });
    AskDesktop(view, "org.gnome.desktop.interface", "enable-animations",
               [this](const QVariant& value) {
                   const bool none = value.typeId() == QMetaType::Bool && !value.toBool();
                   if (none) view->SetReducedMotion(true);
               });
}

// All that the player has chosen for the desktop is handed on here.
void CMainFrame::ApplyDesktopSettings() {
    const DesktopSettings& desktop = document->Desktop();
    view->SetCardStyle({desktop.FourColourDeck(), desktop.CardBack()});
    view->SetAnimation(desktop.Animation());
    UpdateActions();
}

// What the plate says stands here where the machine has no room for it.
void CMainFrame::UpdateTitle() {
    document->Desktop().NoteGameFile(document->GameFile());
    QString title = document->Title();
    if (view->places.plate.isEmpty()) {
        const PlateLook& plate = document->PlayersSeat().scene.plate;
        title += QString::fromStdString(" [" + plate.details + "]");
    }
    setWindowTitle(title);
    ShowWaitingNote();
}

// A full screen has no title. The note takes no room from the menus, which a narrow window needs.
void CMainFrame::ShowWaitingNote() {
    const QString note = document->WaitingNote();
    const QRect lastMenu = menuBar()->actionGeometry(menuBar()->actions().constLast());
    const int room = menuBar()->width() - lastMenu.right() - 4 * kNoteMargin;
    const QFontMetrics metrics(waitingNote->font());
    waitingNote->setText(
        metrics.elidedText(note, Qt::ElideMiddle, std::min(room, kWidestFileName)));
    waitingNote->setVisible(!note.isEmpty() && room >= kNarrowestNote);
}

void CMainFrame::MakeMenus() {
    waitingNote = new QLabel;
    waitingNote->setObjectName("waitingNote");
    waitingNote->setContentsMargins(kNoteMargin, 0, kNoteMargin, 0);
    waitingNote->setTextFormat(Qt::PlainText);
    menuBar()->setCornerWidget(waitingNote);
    CommandMenu* menu = nullptr;
    for (const MenuRow& row : MenuRows()) {
        if (std::holds_alternative<NoMenuRow>(row)) break;
        menu = AddRow(menu, row);
    }
}

// Returns the menu that takes the next row.
CommandMenu* CMainFrame::AddRow(CommandMenu* menu, const MenuRow& row) {
    if (const auto* popup = std::get_if<PopupRow>(&row)) {
        return AddPopup(tr(popup->caption), popup->name);
    }
    if (const auto* few = std::get_if<ChoiceRow>(&row)) {
        return AddSubmenu(*menu, tr(few->caption), few->name);
    }
    if (std::holds_alternative<EndOfChoiceRow>(row)) {
        return qobject_cast<CommandMenu*>(menu->parent());
    }
    if (const auto* games = std::get_if<GameRows>(&row)) {
        AddGames(*menu, games->firstId, games->lastId);
    } else if (const auto* own = std::get_if<UserGamesRow>(&row)) {
        AddUserGames(*menu, tr(own->caption), own->name);
    } else if (const auto* command = std::get_if<CommandRow>(&row)) {
        const bool hasShortcut = *command->shortcut != '\0';
        const QString caption =
            CommandMenu::WithKey(tr(command->caption), hasShortcut ? 0 : command->key);
        commands.push_back(AddCommand(*menu, command->id, caption, command->shortcut));
    } else if (std::holds_alternative<LastGameFilesRow>(row)) {
        AddLastGameFiles(*menu);
    } else if (std::holds_alternative<SeparatorRow>(row)) {
        menu->addSeparator();
    }
    return menu;
}

CommandMenu* CMainFrame::AddSubmenu(CommandMenu& menu, const QString& caption, const char* name) {
    auto* submenu = new CommandMenu(caption, &menu);
    menu.addMenu(submenu);
    submenu->setObjectName(name);
    return submenu;
}

CommandMenu* CMainFrame::AddPopup(const QString& caption, const char* name) {
    auto* menu = new CommandMenu(caption, menuBar());
    menuBar()->addMenu(menu);
    menu->setObjectName(name);
    connect(menu, &QMenu::aboutToShow, this, &CMainFrame::PrepareMenu);
    connect(menu, &QMenu::aboutToHide, this, &CMainFrame::LeaveMenus, Qt::QueuedConnection);
    return menu;
}

QAction* CMainFrame::AddCommand(CommandMenu& menu, int id, const QString& caption,
                                const char* shortcut) {
    QAction* action = menu.addAction(caption);
    action->setObjectName("command" + QString::number(id));
    action->setData(id);
    action->setShortcut(QKeySequence(shortcut));
    action->setMenuRole(QAction::NoRole);
    if (IsChoice(id)) menu.AddChoice(*action);
    connect(action, &QAction::triggered, this, [this, id] { document->Run(id); });
    return action;
}

void CMainFrame::AddGames(CommandMenu& menu, int firstId, int lastId) {
    for (const BuiltInGame& game : BuiltInGames()) {
        if (!game.offered || game.id < firstId || game.id > lastId) continue;
        commands.push_back(AddCommand(menu, game.id, MenuText(game.name)));
    }
}

void CMainFrame::AddUserGames(CommandMenu& menu, const QString& caption, const char* name) {
    userGames = AddSubmenu(menu, caption, name);
    connect(&menu, &QMenu::aboutToShow, this, &CMainFrame::ListUserGames);
}

// An opening menu ends a count-up, and shows the machine as it stands.
void CMainFrame::PrepareMenu() {
    document->Actions().EndCountUp();
    UpdateActions();
}

// Left with Esc, the menu bar would keep the keys to itself. Meanwhile another menu may be open, or
// a dialog that was chosen.
void CMainFrame::LeaveMenus() {
    if (!QApplication::activePopupWidget() && isActiveWindow()) view->setFocus();
}

void CMainFrame::ListUserGames() {
    userGames->clear();
    for (const UserGame& game : UserGames(document->PlayersSeat().files.Main())) {
        if (!IsGame(game.id)) continue;  // a number in the file must not choose another command
        ShowState(*AddCommand(*userGames, game.id, MenuText(game.name)), *document);
    }
    userGames->setEnabled(!userGames->isEmpty());
}

void CMainFrame::AddLastGameFiles(QMenu& menu) {
    fileMenu = &menu;
    endOfLastGameFiles = menu.addSeparator();
    menu.setToolTipsVisible(true);
    connect(&menu, &QMenu::aboutToShow, this, &CMainFrame::ListLastGameFiles);
    ListLastGameFiles();
}

// All but the one in use, with its folder where two are called the same.
void CMainFrame::ListLastGameFiles() {
    for (QAction* old : lastGameFiles) delete old;
    lastGameFiles.clear();
    QStringList files = document->Desktop().GameFiles();
    files.removeAll(document->GameFile());
    QStringList names;
    for (const QString& path : files) names += QFileInfo(path).fileName();
    const QFontMetrics metrics(fileMenu->font());
    files = files.mid(0, kLastGameFiles);
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString& path = files[i];
        const QString folder = tr(" in %1").arg(QFileInfo(path).absolutePath());
        const QString name = names[i] + (names.count(names[i]) > 1 ? folder : QString());
        const QString shown = metrics.elidedText(name, Qt::ElideMiddle, kWidestFileName);
        auto* action = new QAction(QString("&%1 %2").arg(i + 1).arg(MenuText(shown)), fileMenu);
        action->setObjectName("lastGameFile" + QString::number(i + 1));
        action->setToolTip(QDir::toNativeSeparators(path));
        action->setEnabled(document->IsEnabled(kFileOpen));
        connect(action, &QAction::triggered, this, [this, path] { document->OpenFile(path); });
        fileMenu->insertAction(endOfLastGameFiles, action);
        lastGameFiles.push_back(action);
    }
    endOfLastGameFiles->setVisible(!lastGameFiles.empty());
}

void CMainFrame::UpdateActions() {
    for (QAction* action : commands) ShowState(*action, *document);
}

// What was pressed before a question came up was not meant for what follows its answer: the second
// half of a double click must not pick a card of the next double up.
bool CMainFrame::event(QEvent* event) {
    if (event->type() == QEvent::WindowUnblocked && document) {
        document->Actions().DropPresses();
        view->ForgetPresses();
    }
    return QMainWindow::event(event);
}

void CMainFrame::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange && document) {
        leaveFullScreen->setEnabled(isFullScreen());
        UpdateActions();
    }
    QMainWindow::changeEvent(event);
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    if (!closed) FinishAndClose();
    event->setAccepted(closed);
}

// The flow that is running must come to its end first; nothing holds it up any more, and nothing
// that waits behind it is begun.
void CMainFrame::FinishAndClose() {
    document->RefuseQuestions();
    if (hurryClock) hurryClock(true);
    document->Actions().DropWaiting();
    document->Actions().Run([this] {
        document->AnswerQuestions();
        if (hurryClock) hurryClock(false);
        if (!SaveToClose()) return;
        document->ForgetWaitingFile();
        document->Actions().DropWaiting();
        close();
    });
}

// False when the player would rather stay than lose what could not be saved.
bool CMainFrame::SaveToClose() {
    const bool saved = document->OnCloseDocument();
    closed = saved || document->PlayersSeat().player.SaysYes(
                          tr("Save Error").toStdString(),
                          tr("The game could not be saved. Close all the same, and lose what was "
                             "played since the last time it was?")
                              .toStdString());
    if (!closed) return false;
    document->CloseReports();
    NotePlace(*this, document->Desktop());
    return true;
}
