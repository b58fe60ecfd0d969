#include "ui/reports/GameAnalysisDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
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

#include "core/text/Numbers.h"
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
    FillGames();
    SetTabStops();
    ShowPage();
    Fit();
    games->setFocus();
}

// What is browsed: the game, and its tables.
QLayout* GameAnalysisDialog::MakeTop() {
    auto* gameLabel = new QLabel(tr("&Game"), this);
    games = new QComboBox(this);
    games->setObjectName("game");
    games->setMaxVisibleItems(20);
    games->setMinimumWidth(WidthOf(*this, 36));
    gameLabel->setBuddy(games);
    connect(games, &QComboBox::activated, this, &GameAnalysisDialog::ChooseGame);
    auto* indexLabel = new QLabel(tr("Inde&x"), this);
    index = new QLineEdit(this);
    index->setObjectName("index");
    index->setReadOnly(true);
    index->setFixedWidth(WidthOf(*this, 8));
    indexLabel->setBuddy(index);
    auto* layout = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{gameLabel, games, indexLabel, index}) {
        layout->addWidget(widget);
    }
    layout->addStretch();
    const auto addButton = [&](const QString& caption, const char* name) {
        auto* button = new QPushButton(caption, this);
        button->setObjectName(name);
        button->setAutoDefault(false);
        layout->addWidget(button);
        return button;
    };
    previous = addButton(tr("&Prev Table"), "previousTable");
    connect(previous, &QPushButton::clicked, this, [this] {
        pages.ShowPrevious();
        ShowPage();
    });
    next = addButton(tr("&Next Table"), "nextTable");
    connect(next, &QPushButton::clicked, this, [this] {
        pages.ShowNext();
        ShowPage();
    });
    return layout;
}

QLayout* GameAnalysisDialog::MakeBottom() {
    auto* run = new QPushButton(tr("&Run Analysis"), this);
    run->setObjectName("run");
    run->setAutoDefault(false);
    connect(run, &QPushButton::clicked, this, [this] {
        answer = ReportAnswer::kRunAnalysis;
        accept();
    });
    auto* layout = new QHBoxLayout;
    layout->addWidget(run);
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

void GameAnalysisDialog::FillGames() {
    for (const std::string& game : pages.Games()) games->addItem(QString::fromStdString(game));
    SelectShownGame();
}

// Nothing is selected for a game that is not offered to choose from.
void GameAnalysisDialog::SelectShownGame() {
    int shown = games->count() - 1;
    while (shown >= 0 && !SameText(games->itemText(shown).toStdString(), pages.GameName())) --shown;
    games->setCurrentIndex(shown);
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
    chart->SetShares(pages.Shares());
    index->setText(QString::number(pages.TableIndex()));
    previous->setEnabled(pages.HasPrevious());
    next->setEnabled(pages.HasNext());
}

void GameAnalysisDialog::ChooseGame(int at) {
    if (pages.Choose(games->itemText(at).toStdString())) {
        ShowPage();
    } else {
        SelectShownGame();
    }
}

void GameAnalysisDialog::Save() {
    const QString name =
        tr("%1(%2) analysis.txt")
            .arg(QString::fromStdString(pages.GameName()), QString::number(pages.TableIndex()));
    SaveReport(report->toPlainText().toStdString() + '\n', name, this);
}
