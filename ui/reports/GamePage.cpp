#include "ui/reports/GamePage.h"

#include <QDate>
#include <QFontMetrics>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/analysis/GameAnalysis.h"
#include "game/reports/WhatIfRows.h"
#include "ui/charts/ShareChart.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/ReportBox.h"
#include "ui/parts/WarningBand.h"
#include "ui/reports/ReportFrame.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr int kStops = 12;
constexpr int kLookInterval = 50;      // milliseconds
constexpr int kUnitsPerCharacter = 4;  // columns are measured in quarters of a character

}  // namespace

GamePage::GamePage(GameReportView first, Reader read, QWidget* parent)
    : ReportPage(parent),
      read(std::move(read)),
      band(new WarningBand("band", this)),
      tabs(new QTabWidget(this)) {
    MakeTabs();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(band);
    layout->addWidget(tabs, 1);
    look.setInterval(kLookInterval);
    connect(&look, &QTimer::timeout, this, &GamePage::LookAtWork);
    connect(tabs, &QTabWidget::currentChanged, this, [this] {
        ShowBand();
        ShowTable();
    });
    SetTabStops();
    Show(std::move(first));
    report->FitToText();
}

void GamePage::MakeTabs() {
    tabs->setObjectName("tabs");
    report = new ReportBox("report", tr("Game analysis"), tabs);
    report->saveAs = [this] { Save(); };
    tabs->addTab(report, tr("R&eport"));
    auto* area = new QScrollArea(tabs);
    area->setObjectName("shareArea");
    area->setFrameShape(QFrame::NoFrame);
    area->setBackgroundRole(QPalette::Base);
    area->setWidgetResizable(true);
    chart = new ShareChart(area);
    area->setWidget(chart);
    tabs->addTab(area, tr("&Shares"));
    table = new ReportTableView("lines", tr("Pay lines of the game"), tabs);
    tabs->addTab(table, tr("&Table"));
}

// A column has room for its widest text and three blanks.
void GamePage::SetTabStops() {
    const QFontMetrics font(report->font());
    const int character = font.averageCharWidth();
    const auto units = [&](const char* text) {
        return font.horizontalAdvance(text) * kUnitsPerCharacter / character;
    };
    QList<qreal> stops;
    int stop = units("   ") + units("STRAIGHT FLUSH W/2: ");
    for (int i = 0; i < kStops; ++i) {
        stops.append(static_cast<qreal>(stop) * character / kUnitsPerCharacter);
        stop += units("   ") + units("999,999,999,999,999");
    }
    report->SetTabStops(stops);
}

void GamePage::Show(GameReportView now) {
    shown = std::move(now);
    report->ShowReport(shown.report);
    chart->SetSubject(PictureSubject(shown.place.gameName, shown.place.tableIndex, kFullBet, 0,
                                     QDate::currentDate().toString(Qt::ISODate)),
                      FileName(tr("shares")));
    chart->SetShares(shown.shares);
    work.Cancel();
    look.stop();
    sensitivities.clear();
    ShowTable();
    table->SetFileName(FileName(tr("lines")));
    ShowBand();
    emit CaptionChanged();
}

// What a coin more is worth takes as many analyses as there are lines, so it is reckoned when the
// table is looked at.
void GamePage::ShowTable() {
    ReportTable lines = shown.table;
    if (!shown.payTable.lines.empty()) AddSensitivities(sensitivities, lines);
    table->SetTable(std::move(lines));
    const bool seen = tabs->currentWidget() == table;
    if (!seen || shown.payTable.lines.empty() || !sensitivities.empty() || look.isActive()) return;
    work.Start([payTable = shown.payTable](const auto& goOn) {
        const LineTables tables(payTable);
        GameAnalysisWatcher watcher;
        watcher.progress = [&goOn](double, double) { return goOn(0); };
        const GameTotals totals = AnalyzeGame(tables, payTable, 1, watcher);
        return LineSensitivities(tables, payTable, totals, [&goOn] { return goOn(0); });
    });
    look.start();
}

void GamePage::LookAtWork() {
    auto found = work.Take();
    if (!found && work.IsRunning()) return;
    look.stop();
    if (!found) return;
    sensitivities = std::move(*found);
    ShowTable();
}

// The table has a band of its own, which is saved and printed with it.
void GamePage::ShowBand() {
    const bool own = tabs->currentWidget() == table;
    band->Warn(own ? QString() : QString::fromStdString(shown.warning));
}

QString GamePage::Caption() const {
    return tr("Game Analysis: %1, table %2")
        .arg(QString::fromStdString(shown.place.gameName), QString::number(shown.place.tableIndex));
}

std::unique_ptr<ReportPage> GamePage::Copy() const {
    return std::make_unique<GamePage>(shown, read, nullptr);
}

void GamePage::Refresh() { Show(read(shown.place)); }

void GamePage::KeepIn(ReportFrame& frame) {
    frame.Keep(*tabs);
    frame.Keep(*table);
}

// The report is wider than most screens, so its lower bar will take a line.
QSize GamePage::sizeHint() const {
    const int bar = report->horizontalScrollBar()->sizeHint().height();
    const int needed = std::max(report->sizeHint().height() + bar, chart->sizeHint().height());
    QSize size = ReportPage::sizeHint();
    size.rheight() += std::max(needed - tabs->currentWidget()->sizeHint().height(), 0);
    return size;
}

QString GamePage::FileName(const QString& what) const {
    return QString("%1(%2) %3")
        .arg(QString::fromStdString(shown.place.gameName), QString::number(shown.place.tableIndex),
             what);
}

void GamePage::Save() {
    SaveReport(report->toPlainText().toStdString() + '\n', FileName(tr("analysis")) + ".txt", this);
}
