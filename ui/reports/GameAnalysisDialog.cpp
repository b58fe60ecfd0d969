#include "ui/reports/GameAnalysisDialog.h"

#include <QComboBox>
#include <QDate>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "game/session/AnalyzeGame.h"
#include "ui/charts/ShareChart.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/ReportBox.h"

namespace {

constexpr int kStops = 12;
constexpr int kShownCharacters = 120;  // at least, for a table of few figures or many
constexpr int kShownLines = 34;
constexpr int kUnitsPerCharacter = 4;  // columns are measured in quarters of a character

}  // namespace

GameAnalysisDialog::GameAnalysisDialog(GameReportPages& pages, QWidget* parent)
    : QDialog(parent), pages(pages) {
    setObjectName("gameAnalysis");
    setWindowTitle(tr("Game Analysis"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeTop());
    layout->addWidget(MakeTabs(), 1);
    layout->addLayout(MakeBottom());
    SetTabStops();
    ShowPage();
    Fit();
    games->setFocus();
}

// What is browsed: the game, and its tables.
QLayout* GameAnalysisDialog::MakeTop() {
    games = GameList(*this, pages.Games(), 36);
    SelectGame(*games, pages.GameName());
    connect(games, &QComboBox::activated, this, &GameAnalysisDialog::ChooseGame);
    index = new QLineEdit(this);
    index->setObjectName("index");
    index->setReadOnly(true);
    index->setFixedWidth(WidthOf(*this, 8));
    auto* layout = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{Caption(tr("&Game"), games), games,
                                                           Caption(tr("Inde&x"), index), index}) {
        layout->addWidget(widget);
    }
    layout->addStretch();
    previous = ActionButton(*this, tr("&Prev Table"), "previousTable", [this] {
        pages.ShowPrevious();
        ShowPage();
    });
    next = ActionButton(*this, tr("&Next Table"), "nextTable", [this] {
        pages.ShowNext();
        ShowPage();
    });
    layout->addWidget(previous);
    layout->addWidget(next);
    return layout;
}

QLayout* GameAnalysisDialog::MakeBottom() {
    auto* layout = new QHBoxLayout;
    layout->addWidget(ActionButton(*this, tr("&Run Analysis"), "run", [this] {
        answer = ReportAnswer::kRunAnalysis;
        accept();
    }));
    layout->addWidget(OkAlone(*this));
    return layout;
}

// The report is wider than most screens, so its lower bar will take a line.
void GameAnalysisDialog::Fit() {
    report->FitToText();
    const int bar = report->horizontalScrollBar()->sizeHint().height();
    const int needed = std::max(report->sizeHint().height() + bar, chart->sizeHint().height());
    QSize size = sizeHint().expandedTo(
        {WidthOf(*this, kShownCharacters), fontMetrics().lineSpacing() * kShownLines});
    size.rheight() += std::max(needed - tabs->currentWidget()->sizeHint().height(), 0);
    resize(size.boundedTo(screen()->availableSize() * 0.95));
}

QWidget* GameAnalysisDialog::MakeTabs() {
    tabs = new QTabWidget(this);
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
    return tabs;
}

// A column has room for its widest text and three blanks.
void GameAnalysisDialog::SetTabStops() {
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

void GameAnalysisDialog::ShowPage() {
    report->ShowReport(pages.Report());
    const QString table = QString::number(pages.TableIndex());
    chart->SetSubject(PictureSubject(pages.GameName(), pages.TableIndex(), kFullBet, 0,
                                     QDate::currentDate().toString(Qt::ISODate)),
                      tr("%1(%2) shares").arg(QString::fromStdString(pages.GameName()), table));
    chart->SetShares(pages.Shares());
    index->setText(QString::number(pages.TableIndex()));
    previous->setEnabled(pages.HasPrevious());
    next->setEnabled(pages.HasNext());
}

void GameAnalysisDialog::ChooseGame(int at) {
    if (pages.Choose(games->itemText(at).toStdString())) {
        ShowPage();
    } else {
        SelectGame(*games, pages.GameName());
    }
}

void GameAnalysisDialog::Save() {
    const QString name =
        tr("%1(%2) analysis.txt")
            .arg(QString::fromStdString(pages.GameName()), QString::number(pages.TableIndex()));
    SaveReport(report->toPlainText().toStdString() + '\n', name, this);
}
