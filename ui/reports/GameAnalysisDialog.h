// The report on the whole-game analysis of one game's table: browses games and tables, shows what
// the analysis cache has of them, and asks for runs.
#pragma once
#include <QDialog>

#include "game/seat/Player.h"

class AsideWindows;
class GamePage;
class GameReportPages;
class QComboBox;
class QLayout;
class QLineEdit;
class QPushButton;

class GameAnalysisDialog : public QDialog {
    Q_OBJECT

  public:
    // The pages outlive the dialog, as do the windows in which reports are put aside; where there
    // are none, nothing can be.
    GameAnalysisDialog(GameReportPages& pages, AsideWindows* aside, QWidget* parent);

    // Once it is closed, how the player left it.
    ReportAnswer Answer() const { return answer; }

  private:
    QLayout* MakeTop();
    QLayout* MakeBottom(AsideWindows* aside);
    void ShowPage();
    void ChooseGame(int at);

    GameReportPages& pages;
    ReportAnswer answer = ReportAnswer::kDone;
    QComboBox* games = nullptr;
    QLineEdit* index = nullptr;
    QPushButton* previous = nullptr;
    QPushButton* next = nullptr;
    GamePage* page = nullptr;
};
