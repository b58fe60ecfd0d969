// The error log: one play error after the other with the cards of its hand, all of them in a table,
// and what they cost by the kind of hold.
#pragma once
#include <array>
#include <functional>
#include <vector>

#include "core/store/ErrorLog.h"
#include "game/engine/FixedHandEditor.h"
#include "game/engine/GameEngine.h"
#include "ui/reports/ReportPage.h"

class PictureStore;
class QComboBox;
class QLayout;
class QLineEdit;
class QPushButton;
class QTabWidget;
class ReportBox;
class ReportTableView;
class SmallCard;

// The log and the machine that it belongs to, as they were at a moment.
struct ErrorLogView {
    GameEngine engine;
    std::vector<ErrorLogEntry> errors;  // the oldest first
    std::int64_t taken = 0;             // seconds since the epoch
};

ErrorLogView ReadErrorLog(const GameEngine& engine, const GameFiles& files);

// What can be done with an entry. What is not set is not offered.
struct ErrorActions {
    using Analyze = std::function<void(const ErrorLogView& log, int index, QWidget& over)>;

    Analyze analyze;                      // its hand, in a dialog
    Analyze analyzeAside;                 // the same from a log put aside: it blocks nothing
    std::function<void(int index)> deal;  // as the fixed hand
    std::function<void(int index)> forget;
    std::function<bool()> mayChange;  // deal and forget: no paid hand is open
};

class ErrorLogPage : public ReportPage {
    Q_OBJECT

  public:
    using Reader = std::function<ErrorLogView()>;

    // The reader, the actions and the store outlive the page.
    ErrorLogPage(ErrorLogView shown, Reader read, ErrorActions actions, PictureStore& store,
                 QWidget* parent);

    int Index() const { return index; }

    QString Caption() const override;
    std::unique_ptr<ReportPage> Copy() const override;  // which analyses hands, and changes nothing
    void Refresh() override;
    void KeepIn(ReportFrame& frame) override;

    // Turns the pages of the first tab, where that is shown; true when it is.
    void ShowError(int wanted);
    int LastError() const;
    bool ShowsEntry() const;

    // Where the focus is to be at first: a button that turns the pages, if there is one to turn to.
    QPushButton* TurnButton() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeEntryPage();
    QWidget* MakeSummary();
    QLayout* MakeHand();
    QLayout* MakeTurnButtons();
    QWidget* MakeTablePage();
    QLayout* MakeActionButtons();
    void AddAction(QLayout& row, const QString& caption, const char* name, const QKeySequence& key,
                   const std::function<void()>& action);
    void SetTabStops();
    void ShowEntry();
    void ShowTables();
    void ShowKind(std::int64_t row);
    void UpdateActions();
    void Forget();
    void SaveEntry();

    ErrorLogView shown;
    Reader read;
    ErrorActions actions;
    PictureStore& store;
    int index = 0;
    QTabWidget* tabs = nullptr;
    QLineEdit* title = nullptr;
    ReportBox* text = nullptr;
    ReportBox* summary = nullptr;
    std::array<SmallCard*, kPlaces> places{};
    SmallCard* knownCard = nullptr;
    QPushButton* next = nullptr;
    QPushButton* previous = nullptr;
    QComboBox* kind = nullptr;
    ReportTableView* entries = nullptr;
    ReportTableView* kinds = nullptr;
    std::vector<QWidget*> actionButtons;
};
