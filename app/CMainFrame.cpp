#include "app/CMainFrame.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <algorithm>

#include "app/CMorvikDoc.h"
#include "app/MenuTable.h"
#include "core/paytable/GameCatalogue.h"
#include "ui/art/PictureStore.h"
#include "ui/table/CMorvikView.h"
#include "ui/table/Commands.h"

namespace {

constexpr const char* kGeometryKey = "window/geometry";
constexpr const char* kMaximizedKey = "window/maximized";

// A name may hold a '&', which would mark a letter in a menu.
QString MenuText(std::string_view name) { return QString::fromUtf8(name).replace("&", "&&"); }

QString CaptionOf(const MenuEntry& entry) {
    for (const BuiltInGame& game : BuiltInGames()) {
        if (game.id == entry.id) return MenuText(game.name);
    }
    return QObject::tr(entry.caption);
}

// An entry that can be checked and is not would show an empty box.
void ShowChecked(QAction& action, bool checked) {
    action.setCheckable(checked);
    action.setChecked(checked);
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
    view = new CMorvikView(shown.table, pictures, shown.actions,
                           [this](int command) { document->RunKey(command); });
    setCentralWidget(view);
    MakeMenus();
    connect(document, &CMorvikDoc::SceneChanged, view, &CMorvikView::ShowScene);
    connect(document, &CMorvikDoc::PayTableChanged, view, &CMorvikView::LayOutTable);
    connect(document, &CMorvikDoc::TitleChanged, this, &CMainFrame::UpdateTitle);
    connect(
        document, &CMorvikDoc::ExitChosen, this, [this] { close(); }, Qt::QueuedConnection);
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
    const auto popups = MenuBar();
    for (std::size_t i = 0; i < popups.size(); ++i) {
        QMenu& menu = *menuBar()->addMenu(tr(popups[i].caption));
        menu.setObjectName(popups[i].name);
        AddEntries(menu, static_cast<int>(i));
        connect(&menu, &QMenu::aboutToShow, this, [this, i] { PrepareMenu(static_cast<int>(i)); });
        connect(&menu, &QMenu::aboutToHide, this, &CMainFrame::LeaveMenus, Qt::QueuedConnection);
    }
    UpdateActions();
}

void CMainFrame::AddEntries(QMenu& menu, int popup) {
    for (const MenuEntry& entry : MenuBar()[static_cast<std::size_t>(popup)].entries) {
        if (entry.id == kSeparator) {
            menu.addSeparator();
        } else if (entry.id == kUserGamesMenu) {
            userGames = menu.addMenu(tr(entry.caption));
            userGames->setObjectName("userGamesMenu");
        } else {
            QAction* action = AddAction(menu, entry.id, CaptionOf(entry));
            action->setShortcut(QKeySequence(entry.shortcut));
            commands.push_back(action);
        }
    }
}

QAction* CMainFrame::AddAction(QMenu& menu, int id, const QString& caption) {
    QAction* action = menu.addAction(caption);
    action->setObjectName("command" + QString::number(id));
    action->setData(id);
    action->setMenuRole(QAction::NoRole);
    connect(action, &QAction::triggered, this, [this, id] { document->Run(id); });
    return action;
}

// An opening menu ends a count-up, and shows the machine as it stands.
void CMainFrame::PrepareMenu(int popup) {
    document->actions.StopCountUp();
    const auto entries = MenuBar()[static_cast<std::size_t>(popup)].entries;
    const bool hasUserGames = std::ranges::any_of(
        entries, [](const MenuEntry& entry) { return entry.id == kUserGamesMenu; });
    if (hasUserGames) ListUserGames();
    UpdateActions();
}

// Left with Esc, the menu bar would keep the keys to itself. Meanwhile another menu may be open, or
// a dialog that was chosen.
void CMainFrame::LeaveMenus() {
    if (!QApplication::activePopupWidget() && isActiveWindow()) view->setFocus();
}

void CMainFrame::ListUserGames() {
    userGames->clear();
    const GameEngine& engine = document->table.engine;
    for (const UserGame& game :
         UserGames(document->table.files.file, document->table.files.mainPath)) {
        if (!IsGame(game.id)) continue;  // a number in the file must not choose another command
        QAction* action = AddAction(*userGames, game.id, MenuText(game.name));
        ShowChecked(*action, IsChecked(game.id, engine));
        action->setEnabled(IsEnabled(Grey::kDuringHand, engine));
    }
    userGames->setEnabled(!userGames->isEmpty());
}

void CMainFrame::UpdateActions() {
    const GameEngine& engine = document->table.engine;
    for (QAction* action : commands) {
        const int id = action->data().toInt();
        ShowChecked(*action, IsChecked(id, engine));
        action->setEnabled(IsEnabled(GreyOf(id), engine));
    }
}

// What was pressed before a question came up was not meant for what follows its answer: the second
// half of a double click must not pick a card of the next double up.
bool CMainFrame::event(QEvent* event) {
    if (event->type() == QEvent::WindowUnblocked && document) {
        document->actions.DropPresses();
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
    document->actions.DropWaiting();
    document->actions.Run([this] {
        document->AnswerQuestions();
        if (hurryClock) hurryClock(false);
        if (!SaveToClose()) return;
        document->actions.DropWaiting();
        close();
    });
}

// False when the player would rather stay than lose what could not be saved.
bool CMainFrame::SaveToClose() {
    const bool saved = document->OnCloseDocument();
    closed = saved || document->player.SaysYes(
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
