// The main window: the menu bar over the machine.
#pragma once
#include <QMainWindow>
#include <functional>
#include <vector>

class CMorvikDoc;
class CMorvikView;
class PictureStore;
class QAction;
class QMenu;

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
    void closeEvent(QCloseEvent* event) override;

  private:
    void UpdateTitle();
    void MakeMenus();
    QMenu* AddPopup(const QString& caption, const char* name);
    QAction* AddCommand(QMenu& menu, int id, const QString& caption, const char* shortcut = "");
    void AddGames(QMenu& menu, int firstId, int lastId);
    void AddUserGames(QMenu& menu, const QString& caption, const char* name);
    void PrepareMenu();
    void LeaveMenus();
    void ListUserGames();
    void UpdateActions();
    void FinishAndClose();
    bool SaveToClose();

    CMorvikDoc* document = nullptr;
    CMorvikView* view = nullptr;
    QMenu* userGames = nullptr;
    std::vector<QAction*> commands;  // but for the user games; their data are their commands
    bool closed = false;
};
