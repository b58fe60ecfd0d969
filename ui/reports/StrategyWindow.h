// The strategy charts of all tables, in a window beside the machine's: it blocks nothing, and
// searches in the background.
#pragma once
#include <QTimer>
#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "game/reports/StrategyRows.h"
#include "game/session/StrategyDesk.h"
#include "ui/reports/BesideWindow.h"

class LossChart;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class QSlider;
class QTabWidget;
class ReportTableView;

class StrategyWindow : public BesideWindow {
    Q_OBJECT

  public:
    // Shows the analysis of a hand of a table.
    using Analyze = std::function<void(const TableOfGame& table, const std::string& hand)>;

    // The seat, whose coin counts, and the desk outlive the window.
    StrategyWindow(const Seat& seat, StrategyDesk& desk, Analyze analyze);
    ~StrategyWindow() override;

    // Shows the window, in front of the others: at first with the table that is played.
    void Open();

    // Reads the pay tables anew.
    void Reload();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    // Reckons on a thread of its own, and is cancelled with its object.
    struct Study {
        std::atomic<bool> cancelled = false;
        std::string table;  // its key
        Chart chart;
        std::future<ChartStudy> result;  // last: its end is waited for before the rest goes
        ~Study() { cancelled = true; }
    };

    QLayout* MakeChoice();
    QLayout* MakeLength();
    QWidget* MakeTabs();
    QWidget* MakeExceptions();
    QLayout* MakeRunLine();
    QLayout* MakeButtons();
    QPushButton* AddButton(QBoxLayout& row, const QString& caption, const char* name,
                           void (StrategyWindow::*action)());

    const ListedTable* Current() const;
    std::string CurrentKey() const;
    std::string SearchKey() const;
    QString WhyNot() const;
    void ChooseGame();
    void ChooseTable();
    void ChooseLength(int rows);
    void ShowLists();
    void ShowLength();
    void ShowRun();
    void ShowStudy();
    void ShowExceptions();
    void BeginStudy();
    void BeginIfNothingIsKnown();
    void Look();
    void Find();
    void Cancel();
    void AnalyzeHand();
    void SaveCard();
    void PrintCard();
    std::optional<std::string> HandOfRow() const;
    const SearchResult::Found* Chosen() const;
    bool IsStudied() const;

    const Seat& seat;
    StrategyDesk& desk;
    Analyze analyze;
    std::vector<ListedTable> tables;
    TableOfGame place;          // the one that is shown
    ChartLists lists;           // of the shown table and wording
    double best = 0;            // percent that its best play returns
    std::optional<int> wanted;  // lines that the player has chosen
    std::optional<ShownChart> shown;
    std::string shownTable;         // its key
    std::set<std::string> stopped;  // searches that the player has ended, by table and wording
    bool searching = false;         // when it was last looked
    std::unique_ptr<Study> study;
    QTimer look;   // at what is reckoned
    QTimer begin;  // a search, once the player has stopped to choose
    QComboBox* game = nullptr;
    QComboBox* index = nullptr;
    QCheckBox* penalties = nullptr;
    QSlider* length = nullptr;
    QLabel* price = nullptr;
    QTabWidget* tabs = nullptr;
    ReportTableView* rows = nullptr;
    QComboBox* group = nullptr;
    ReportTableView* exceptions = nullptr;
    LossChart* curve = nullptr;
    QLabel* state = nullptr;
    QProgressBar* bar = nullptr;
    QPushButton* find = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* analyzeHand = nullptr;
    QPushButton* saveCard = nullptr;
    QPushButton* printCard = nullptr;
};
