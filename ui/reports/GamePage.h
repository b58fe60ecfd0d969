// The report on the whole-game analysis of one table: its text, the shares of its lines and the
// lines as a table.
#pragma once
#include <QTimer>
#include <functional>
#include <vector>

#include "core/whatif/Sensitivity.h"
#include "game/session/AnalyzeGame.h"
#include "game/session/BackgroundWork.h"
#include "ui/reports/ReportPage.h"

class QTabWidget;
class ReportBox;
class ReportTableView;
class ShareChart;
class WarningBand;

class GamePage : public ReportPage {
    Q_OBJECT

  public:
    // Reads the report on a table anew; it and what it refers to outlive the page.
    using Reader = std::function<GameReportView(const TableOfGame&)>;

    GamePage(GameReportView shown, Reader read, QWidget* parent);

    void Show(GameReportView now);

    QString Caption() const override;
    std::unique_ptr<ReportPage> Copy() const override;
    void Refresh() override;  // the same table
    void KeepIn(ReportFrame& frame) override;

    // Room for the whole text, but for its width.
    QSize sizeHint() const override;

  private:
    void MakeTabs();
    void SetTabStops();
    void ShowBand();
    void ShowTable();
    void LookAtWork();
    QString FileName(const QString& what) const;
    void Save();

    GameReportView shown;
    Reader read;
    BackgroundWork<std::vector<LineSensitivity>> work;
    std::vector<LineSensitivity> sensitivities;  // of the table shown; empty until they are known
    QTimer look;                                 // at the work
    WarningBand* band;
    QTabWidget* tabs;
    ReportBox* report;
    ShareChart* chart;
    ReportTableView* table;
};
