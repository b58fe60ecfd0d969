// The main window: the menu bar over the machine.
#pragma once
#include <QMainWindow>
#include <functional>
#include <vector>

#include "app/CommandTable.h"

class CommandMenu;
class CMorvikDoc;
class CMorvikView;
class PictureStore;
class QAction;
class QLabel;
class QShortcut;

class CMainFrame : public QMainWindow {
    Q_OBJECT

  public:
    CMainFrame();
    ~CMainFrame() override;

    // Before the frame is shown; both outlive it.
    void Show(CMorvikDoc& document, PictureStore& pictures);

    CMorvikView* View() const { return view; }

    // Makes the pauses of the clock end at once, or last again; if set.
    std::function<void(bool)> hurryClock;

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void ApplyDesktopSettings();
    void AskForReducedMotion();
    void UpdateTitle();
    void ShowWaitingNote();
    void MakeMenus();
    CommandMenu* AddRow(CommandMenu* menu, const MenuRow& row);
    CommandMenu* AddPopup(const QString& caption, const char* name);
    CommandMenu* AddSubmenu(CommandMenu& menu, const QString& caption, const char* name);
    QAction* AddCommand(CommandMenu& menu, int id, const QString& caption,
                        const char* shortcut = "");
    void AddGames(CommandMenu& menu, int firstId, int lastId);
    void AddUserGames(CommandMenu& menu, const QString& caption, const char* name);
    void PrepareMenu();
    void LeaveMenus();
    void ListUserGames();
    void AddLastGameFiles(QMenu& menu);
    void ListLastGameFiles();
    void UpdateActions();
    void FinishAndClose();
    bool SaveToClose();

    CMorvikDoc* document = nullptr;
    CMorvikView* view = nullptr;
    QLabel* waitingNote = nullptr;  // in the menu bar's corner
    CommandMenu* userGames = nullptr;
    QMenu* fileMenu = nullptr;
    QAction* endOfLastGameFiles = nullptr;
    std::vector<QAction*> lastGameFiles;   // their data are their paths
    QShortcut* leaveFullScreen = nullptr;  // only there while there is something to leave
    std::vector<QAction*> commands;        // but for the user games; their data are their commands
    bool closed = false;
};
