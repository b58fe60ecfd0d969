// The main window: the menu bar over the machine.
#pragma once
#include <QMainWindow>
#include <functional>
#include <vector>

#include "app/CommandTable.h"

class CMorvikDoc;
class CMorvikView;
class PictureStore;
class QAction;
class QActionGroup;
class QLabel;
class QMenu;
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
    void UpdateTitle();
    void ShowWaitingNote();
    void MakeMenus();
    QMenu* AddRow(QMenu* menu, const MenuRow& row);
    QMenu* AddPopup(const QString& caption, const char* name);
    QMenu* AddChoice(QMenu& menu, const QString& caption, const char* name);
    QAction* AddCommand(QMenu& menu, int id, const QString& caption, const char* shortcut = "");
    void AddGames(QMenu& menu, int firstId, int lastId);
    void AddUserGames(QMenu& menu, const QString& caption, const char* name);
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
    QMenu* userGames = nullptr;
    QMenu* fileMenu = nullptr;
    QAction* endOfLastGameFiles = nullptr;
    std::vector<QAction*> lastGameFiles;   // their data are their paths
    QActionGroup* choice = nullptr;        // of the submenu that is being made
    QShortcut* leaveFullScreen = nullptr;  // only there while there is something to leave
    std::vector<QAction*> commands;        // but for the user games; their data are their commands
    bool closed = false;
};
