// The report on the whole-game analysis of one game's table: browses games and tables, shows what
// the analysis cache has of them, and asks for runs. It ends with RunCode of the table shown, or as
// any dialog does.
#pragma once
#include <QDialog>

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

  private:
    QLayout* MakeTop();
    QWidget* MakeTabs();
    QLayout* MakeBottom();
    void Fit();
    void FillGames();
    void SetTabStops();
    void ShowPage();
    void SelectShownGame();
    void ChooseGame(int at);
    void Save();

    GameReportPages& pages;
    QComboBox* games = nullptr;
    QLineEdit* index = nullptr;
    QPushButton* previous = nullptr;
    QPushButton* next = nullptr;
    QTabWidget* tabs = nullptr;
    ReportBox* report = nullptr;
    ShareChart* chart = nullptr;
};
