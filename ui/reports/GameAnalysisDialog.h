// The report on the whole-game analysis of one game's table: browses games and tables, shows what
// the analysis cache has of them, and asks for runs.
#pragma once
#include <QDialog>

#include "game/seat/Player.h"

class GameReportPages;
class QComboBox;
class QLayout;
class QLineEdit;
class QPushButton;
class QTabWidget;
class ReportBox;
class ShareChart;

class GameAnalysisDialog : public QDialog {
    Q_OBJECT

  public:
    // The pages outlive the dialog.
    GameAnalysisDialog(GameReportPages& pages, QWidget* parent);

    // Once it is closed, how the player left it.
    ReportAnswer Answer() const { return answer; }

  private:
    QLayout* MakeTop();
    QWidget* MakeTabs();
    QLayout* MakeBottom();
    void Fit();
    void SetTabStops();
    void ShowPage();
    void ChooseGame(int at);
    void Save();

    GameReportPages& pages;
    ReportAnswer answer = ReportAnswer::kDone;
    QComboBox* games = nullptr;
    QLineEdit* index = nullptr;
    QPushButton* previous = nullptr;
    QPushButton* next = nullptr;
    QTabWidget* tabs = nullptr;
    ReportBox* report = nullptr;
    ShareChart* chart = nullptr;
};
