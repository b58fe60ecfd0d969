// The hand analysis: every hold of a hand with what it is worth, as a text, as a chart and as a
// table, and the hand, which can be changed.
#pragma once
#include <array>
#include <cstdint>
#include <memory>

#include "game/reports/HandReport.h"
#include "game/reports/HandRows.h"
#include "ui/reports/ReportPage.h"

class ChartReasonLabel;
class HoldChart;
class PictureStore;
class PlaceButtons;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QTabWidget;
class ReportBox;
class ReportTableView;
class SmallCard;
class StrategyDesk;

class HandPage : public ReportPage {
    Q_OBJECT

  public:
    // The engine has been given the hand (LendHand) and keeps the one last chosen. All three
    // outlive the page; the player's engine is what Refresh copies, nullptr where there is none.
    HandPage(GameEngine& engine, PictureStore& store, const GameEngine* player, QWidget* parent);

    // The page holds the engine.
    HandPage(std::unique_ptr<GameEngine> engine, PictureStore& store, const GameEngine* player,
             QWidget* parent);
    ~HandPage() override;

    QString Caption() const override;
    std::unique_ptr<ReportPage> Copy() const override;
    bool CanRefresh() const override { return player != nullptr; }
    void Refresh() override;
    void KeepIn(ReportFrame& frame) override;

    // Tells below the tabs, by the charts, why the best hold is the best one. They outlive the page
    // and its copies.
    void TellReasons(StrategyDesk* charts);

    // The row below the tabs, to which more can be added at its end.
    QBoxLayout& BottomRow() { return *bottom; }

  signals:
    void ChangeCancelled();  // a hand was to be chosen, and none was

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void LayOut();
    QWidget* MakeReportPage();
    QWidget* MakeChartPage();
    QWidget* MakeTablePage();
    QWidget* MakePlaces();
    QLayout* MakeTypedHand();
    void SetTabStops();
    void ChangeHand();
    void TakeTyped();
    void SayProblem(const QString& problem);
    void ShowHand();
    void ShowReport();
    void ShowReason();
    void NameChart();
    void ShowChart();
    void ShowTable();
    void Save();
    QString FileName() const;

    std::unique_ptr<GameEngine> own;  // nullptr where the engine is another's
    GameEngine& engine;
    PictureStore& store;
    const GameEngine* player;
    StrategyDesk* charts = nullptr;
    HandDisplay display = HandDisplay::kHands;
    LineFigure figure = LineFigure::kProbability;
    std::int64_t taken = 0;  // when the hand was shown, in seconds since the epoch
    QTabWidget* tabs;
    ChartReasonLabel* reason = nullptr;
    QBoxLayout* bottom;
    ReportBox* report;
    HoldChart* chart;
    ReportTableView* table;
    QWidget* displayChoice;
    QWidget* figureChoice;
    QLineEdit* typed;
    QLabel* problem;
    std::array<PlaceButtons*, kPlaces> places{};
    SmallCard* knownCard;
};
