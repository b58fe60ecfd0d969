#include "app/CMainFrame.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>

#include "app/CMorvikDoc.h"
#include "app/CommandTable.h"
#include "core/paytable/GameCatalogue.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/CMorvikView.h"
#include "ui/machine/ReducedMotion.h"

namespace {

constexpr const char* kGeometryKey = "window/geometry";
constexpr const char* kMaximizedKey = "window/maximized";

// A name may hold a '&', which would mark a letter in a menu.
QString MenuText(std::string_view name) { return QString::fromUtf8(name).replace("&", "&&"); }

// An entry that can be checked and is not would show an empty box.
void ShowState(QAction& action, const GameEngine& engine) {
    const int id = action.data().toInt();
    const bool checked = IsChecked(id, engine);
    action.setCheckable(checked);
    action.setChecked(checked);
    action.setEnabled(IsEnabled(id, engine));
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
    AskForReducedMotion(view, [this] { view->SetReducedMotion(true); });
    MakeMenus();
    connect(document, &CMorvikDoc::SceneChanged, view, &CMorvikView::ShowScene);
    connect(document, &CMorvikDoc::PayTableChanged, view, &CMorvikView::LayOutMachine);
    connect(document, &CMorvikDoc::TitleChanged, this, &CMainFrame::UpdateTitle);
    connect(document, &CMorvikDoc::Settled, this, &CMainFrame::UpdateActions);
    UpdateTitle();

    const QSettings settings;
    const bool known = restoreGeometry(settings.value(kGeometryKey).toByteArray());
    if (!known || settings.value(kMaximizedKey, true).toBool()) {
        if (!known) resize(view->sizeHint());
        showMaximized();
    } else {
        show();
    }
    view->setFocus();
}

void CMainFrame::UpdateTitle() { setWindowTitle(document->Title()); }

void CMainFrame::MakeMenus() {
    QMenu* menu = nullptr;
    for (const MenuRow& row : MenuRows()) {
        if (std::holds_alternative<NoMenuRow>(row)) break;
        if (const auto* popup = std::get_if<PopupRow>(&row)) {
            menu = AddPopup(tr(popup->caption), popup->name);
        } else if (const auto* games = std::get_if<GameRows>(&row)) {
            AddGames(*menu, games->firstId, games->lastId);
        } else if (const auto* own = std::get_if<UserGamesRow>(&row)) {
            AddUserGames(*menu, tr(own->caption), own->name);
        } else if (const auto* command = std::get_if<CommandRow>(&row)) {
            commands.push_back(
                AddCommand(*menu, command->id, tr(command->caption), command->shortcut));
        } else {
            menu->addSeparator();
        }
    }
    UpdateActions();
}

QMenu* CMainFrame::AddPopup(const QString& caption, const char* name) {
    QMenu* menu = menuBar()->addMenu(caption);
    menu->setObjectName(name);
    connect(menu, &QMenu::aboutToShow, this, &CMainFrame::PrepareMenu);
    connect(menu, &QMenu::aboutToHide, this, &CMainFrame::LeaveMenus, Qt::QueuedConnection);
    return menu;
}

QAction* CMainFrame::AddCommand(QMenu& menu, int id, const QString& caption, const char* shortcut) {
    QAction* action = menu.addAction(caption);
    action->setObjectName("command" + QString::number(id));
    action->setData(id);
    action->setShortcut(QKeySequence(shortcut));
    action->setMenuRole(QAction::NoRole);
    connect(action, &QAction::triggered, this, [this, id] { document->Run(id); });
    return action;
}

void CMainFrame::AddGames(QMenu& menu, int firstId, int lastId) {
    for (const BuiltInGame& game : BuiltInGames()) {
        if (!game.offered || game.id < firstId || game.id > lastId) continue;
        commands.push_back(AddCommand(menu, game.id, MenuText(game.name)));
    }
}

void CMainFrame::AddUserGames(QMenu& menu, const QString& caption, const char* name) {
    userGames = menu.addMenu(caption);
    userGames->setObjectName(name);
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
    const GameEngine& engine = document->PlayersSeat().engine;
    for (const UserGame& game :
         UserGames(document->PlayersSeat().files.file, document->PlayersSeat().files.mainPath)) {
        if (!IsGame(game.id)) continue;  // a number in the file must not choose another command
        ShowState(*AddCommand(*userGames, game.id, MenuText(game.name)), engine);
    }
    userGames->setEnabled(!userGames->isEmpty());
}

void CMainFrame::UpdateActions() {
    const GameEngine& engine = document->PlayersSeat().engine;
    for (QAction* action : commands) ShowState(*action, engine);
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
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kMaximizedKey, isMaximized());
    return true;
}
