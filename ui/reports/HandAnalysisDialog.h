// The hand analysis: every hold of a hand with what it is worth, as a report and as a chart. It
// works on the spare engine, which must have been given the hand:
//
//     LoadSpare(table, spare);         // game/SpareEngine.h
//     LendHand(table.engine, spare);   // game/reports/HandReport.h
//     HandAnalysisDialog(spare, store, over).exec();
//
// The player's engine is not touched. The spare one keeps the hand last chosen.
#pragma once
#include <QDialog>
#include <array>

#include "game/reports/HandReport.h"

class HoldChart;
class PictureStore;
class PlaceButtons;
class ReportBox;
class SmallCard;

class HandAnalysisDialog : public QDialog {
    Q_OBJECT

  public:
    // The engine and the store outlive the dialog.
    HandAnalysisDialog(GameEngine& spare, PictureStore& store, QWidget* parent);

  private:
    QWidget* MakeReportPage();
    QWidget* MakeChartPage();
    QWidget* MakePlaces();
    void SetTabStops();
    void ChangeHand();
    void ShowHand();
    void ShowReport();
    void ShowChart();
    void Save();

    GameEngine& spare;
    PictureStore& store;
    HandDisplay display = HandDisplay::kHands;
    ReportBox* report;
    HoldChart* chart;
    std::array<PlaceButtons*, kPlaces> places{};
    SmallCard* knownCard;
};
