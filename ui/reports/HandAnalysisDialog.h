// The hand analysis as a dialog. It works on the spare engine, which must have been given the hand:
//
//     LoadSpare(seat, spare);         // game/session/SpareEngine.h
//     LendHand(seat.engine, spare);   // game/reports/HandReport.h
//     HandAnalysisDialog(spare, store, over).exec();
//
// The player's engine is not touched. The spare one keeps the hand last chosen.
#pragma once
#include <QDialog>

class AsideWindows;
class PictureStore;
class StrategyDesk;
struct GameEngine;

class HandAnalysisDialog : public QDialog {
    Q_OBJECT

  public:
    // The engine and the store outlive the dialog.
    HandAnalysisDialog(GameEngine& spare, PictureStore& store, QWidget* parent);

    // It can be put aside too, and the window takes new hands of the player's. With the charts,
    // which outlive both, it tells why the best hold is the best one.
    HandAnalysisDialog(GameEngine& spare, PictureStore& store, QWidget* parent,
                       const GameEngine& player, AsideWindows& aside,
                       StrategyDesk* charts = nullptr);

  private:
    HandAnalysisDialog(GameEngine& spare, PictureStore& store, QWidget* parent,
                       const GameEngine* player, AsideWindows* aside, StrategyDesk* charts);
};
