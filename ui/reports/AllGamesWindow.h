// All games and tables with the figures of their analyses, in a window beside the machine's: it
// blocks nothing, and analyses in the background what is missing.
#pragma once
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "game/session/AllGames.h"
#include "ui/reports/BesideWindow.h"

class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class ReportTableView;

// What can be done with a table. Each goes the way of the command of the menus: it may come later,
// or not at all, and the window is told when it is done (Reload).
struct TableActions {
    std::function<void(const TableOfGame&)> play;
    std::function<void(const TableOfGame&)> edit;
    std::function<void(const TableOfGame&)> analyze;
    std::function<bool()> mayChange;  // play and edit: no hand is in play
    std::function<bool()> isBusy;     // all: the machine would not hear of them
};

class AllGamesWindow : public BesideWindow {
    Q_OBJECT

  public:
    // The seat and the paths outlive the window.
    AllGamesWindow(Seat& seat, const DataFilePaths& paths, TableActions actions);
    ~AllGamesWindow() override;

    // Shows the window, in front of the others, with all as it is now.
    void Open();

    // Reads the pay tables and their figures anew.
    void Reload();

    // Greys the buttons as the machine stands.
    void UpdateButtons();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QLayout* MakeActionButtons();
    QLayout* MakeRunLine();
    QPushButton* AddAction(QLayout& row, const QString& caption, const char* name,
                           const std::function<void(const TableOfGame&)>& action);
    void GreyButtons();
    void ShowTable();
    void AnalyzeMissing();
    void LookAtRun();
    void ShowRun();

    AllGames games;
    TableActions actions;
    QTimer look;  // at the run
    ReportTableView* table;
    QPushButton* play = nullptr;
    QPushButton* edit = nullptr;
    QPushButton* analyze = nullptr;
    QWidget* greyedWithFocus = nullptr;  // of these; nullptr = none
    QPushButton* missing = nullptr;
    QPushButton* cancel = nullptr;
    QProgressBar* bar = nullptr;
    QLabel* state = nullptr;
};
