// Two pay tables side by side, in a window beside the machine's: what they return, where the
// difference comes from, and what is played differently. It blocks nothing; the work is done in the
// background.
#pragma once
#include <QTimer>
#include <functional>
#include <optional>

#include "core/whatif/GameComparison.h"
#include "game/reports/AllGamesRows.h"
#include "game/reports/WhatIfRows.h"
#include "game/session/BackgroundWork.h"
#include "ui/reports/BesideWindow.h"

class TableChoice;
class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTabWidget;
class QTableWidget;
class ReportTableView;
struct Seat;
struct TableOfGame;

// Shows the analysis of a hand of a table, which may have other pays than the stored one.
using OpenHand =
    std::function<void(const TableOfGame& place, const PayTable& table, const Hand& hand)>;

class CompareWindow : public BesideWindow {
    Q_OBJECT

  public:
    // The seat outlives the window.
    CompareWindow(Seat& seat, OpenHand openHand);
    ~CompareWindow() override;

    // Shows the window, in front of the others, with the pay tables as they are now.
    void Open();

  private:
    QLayout* MakeChoice();
    QWidget* MakeTabs();
    QLayout* MakeBottom();
    void ReadTables();
    void FillPays();
    void TakePay(int row);
    QString PayOfA(int row) const;
    std::optional<ListedTable> TableB() const;
    ComparedNames Names() const;
    void Wait();
    void Begin();
    void LookAtWork();
    void ShowResult();
    void OpenHands();

    struct Compared {
        ListedTable a;
        ListedTable b;
    };

    Seat& seat;
    OpenHand openHand;
    BackgroundWork<GameComparison> work;
    Compared asked;  // of the work
    std::optional<GameComparison> result;
    Compared compared;  // of the result
    PayTable paysOfA;   // as they stand in the grid
    PayTable paysOfB;   // the same table, with the pays that were typed
    QTimer pause;       // until the work begins, so that nothing is begun at every key
    QTimer look;        // at the work
    TableChoice* a = nullptr;
    TableChoice* b = nullptr;
    QCheckBox* otherPays = nullptr;
    QTableWidget* pays = nullptr;
    QLabel* words = nullptr;
    QTabWidget* tabs = nullptr;
    ReportTableView* played = nullptr;
    ReportTableView* lines = nullptr;
    QProgressBar* bar = nullptr;
    QPushButton* hands = nullptr;
};
