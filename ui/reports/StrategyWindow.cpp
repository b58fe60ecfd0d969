#include "ui/reports/StrategyWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "ui/charts/LossChart.h"
#include "ui/parts/DialogParts.h"
#include "ui/reports/ReportFrame.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr int kLookInterval = 100;  // milliseconds
constexpr int kBeforeSearch = 500;
constexpr int kLengthPage = 5;  // lines
constexpr int kShownCharacters = 120;
constexpr int kShownLines = 38;

}  // namespace

StrategyWindow::StrategyWindow(const Seat& seat, StrategyDesk& desk, Analyze analyze)
    : BesideWindow("strategy"), seat(seat), desk(desk), analyze(std::move(analyze)) {
    setWindowTitle(tr("Strategy"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeChoice());
    layout->addLayout(MakeLength());
    layout->addWidget(MakeTabs(), 1);
    layout->addLayout(MakeRunLine());
    layout->addLayout(MakeButtons());
    look.setInterval(kLookInterval);
    connect(&look, &QTimer::timeout, this, &StrategyWindow::Look);
    begin.setInterval(kBeforeSearch);
    begin.setSingleShot(true);
    connect(&begin, &QTimer::timeout, this, &StrategyWindow::BeginIfNothingIsKnown);
    ReportFrame& frame = Furnish(kShownCharacters, kShownLines, [this] { Reload(); });
    frame.Keep(*tabs);
    frame.Keep(*rows);
    frame.Keep(*exceptions);
}

StrategyWindow::~StrategyWindow() = default;

QLayout* StrategyWindow::MakeChoice() {
    game = new QComboBox(this);
    game->setObjectName("game");
    game->setMinimumWidth(WidthOf(*game, 20));
    connect(game, &QComboBox::activated, this, [this] { ChooseGame(); });
    index = new QComboBox(this);
    index->setObjectName("tableIndex");
    connect(index, &QComboBox::activated, this, [this] { ChooseTable(); });
    penalties = new QCheckBox(tr("Penalty &conditions"), this);
    penalties->setObjectName("penalties");
    penalties->setToolTip(
        tr("Lines may ask something of the cards that are discarded: such charts lose less, and "
           "are harder to play"));
    connect(penalties, &QCheckBox::toggled, this, [this] { ChooseTable(); });
    auto* row = new QHBoxLayout;
    row->addWidget(Caption(tr("&Game"), game));
    row->addWidget(game, 1);
    auto* caption = Caption(tr("&Table"), index);
    caption->setMinimumWidth(caption->sizeHint().width() + 2);  // kerned, it is wider than it says
    row->addWidget(caption);
    row->addWidget(index);
    row->addWidget(penalties);
    return row;
}

QLayout* StrategyWindow::MakeLength() {
    length = new QSlider(Qt::Horizontal, this);
    length->setObjectName("length");
    length->setAccessibleName(tr("Lines"));
    length->setTickPosition(QSlider::TicksBelow);
    length->setTickInterval(kLengthPage);
    length->setPageStep(kLengthPage);
    length->setMinimumWidth(WidthOf(*length, 16));
    connect(length, &QSlider::valueChanged, this, [this](int rows) { ChooseLength(rows); });
    price = MakeWords("price");
    auto* row = new QHBoxLayout;
    row->addWidget(Caption(tr("&Lines"), length));
    row->addWidget(length, 1);
    row->addWidget(price, 2);
    return row;
}

QWidget* StrategyWindow::MakeTabs() {
    tabs = new QTabWidget(this);
    tabs->setObjectName("tabs");
    rows = new ReportTableView("lines", tr("Lines of the chart"), tabs);
    tabs->addTab(rows, tr("Cha&rt"));
    tabs->addTab(MakeExceptions(), tr("&Exceptions"));
    curve = new LossChart(tabs);
    connect(curve, &LossChart::Chosen, this, [this](int lines) { length->setValue(lines); });
    tabs->addTab(curve, tr("Cur&ve"));
    for (ReportTableView* table : {rows, exceptions}) {
        connect(table, &ReportTableView::RowActivated, this, &StrategyWindow::AnalyzeHand);
        connect(table, &ReportTableView::CurrentRowChanged, this, [this] { ShowRun(); });
    }
    connect(tabs, &QTabWidget::currentChanged, this, [this] { ShowRun(); });
    return tabs;
}

QWidget* StrategyWindow::MakeExceptions() {
    auto* page = new QWidget(tabs);
    page->setObjectName("exceptionsPage");
    group = new QComboBox(page);
    group->setObjectName("group");
    group->setMinimumWidth(WidthOf(*group, 20));
    group->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(group, &QComboBox::activated, this, [this] { ShowExceptions(); });
    exceptions = new ReportTableView("exceptions", tr("Exceptions of the chart"), page);
    auto* top = new QHBoxLayout;
    top->addWidget(Caption(tr("Sho&w"), group));
    top->addWidget(group, 1);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(top);
    layout->addWidget(exceptions, 1);
    return page;
}

QLayout* StrategyWindow::MakeRunLine() {
    state = MakeWords("state");
    bar = new QProgressBar(this);
    bar->setObjectName("progress");
    bar->setAccessibleName(tr("Percent done"));
    bar->setRange(0, 100);
    auto* row = new QHBoxLayout;
    row->addWidget(state, 1);
    row->addWidget(bar, 1);
    find = AddButton(*row, tr("&Find Charts"), "findCharts", &StrategyWindow::Find);
    cancel = AddButton(*row, tr("Ca&ncel"), "cancelSearch", &StrategyWindow::Cancel);
    return row;
}

QLayout* StrategyWindow::MakeButtons() {
    auto* row = new QHBoxLayout;
    analyzeHand = AddButton(*row, tr("Analyze &Hand"), "analyzeHand", &StrategyWindow::AnalyzeHand);
    saveCard = AddButton(*row, tr("&Save Card..."), "saveCard", &StrategyWindow::SaveCard);
    saveCard->setToolTip(tr("Keeps the chart as a card of 9 by 13 cm: PDF, SVG or text"));
    printCard = AddButton(*row, tr("&Print Card..."), "printCard", &StrategyWindow::PrintCard);
    printCard->setToolTip(tr("Prints the chart as a card of 9 by 13 cm"));
    row->addStretch();
    row->addWidget(MakeClose());
    for (ReportTableView* table : {rows, exceptions}) {
        auto* entry = new QAction(tr("Analyze Hand"), this);
        connect(entry, &QAction::triggered, this, &StrategyWindow::AnalyzeHand);
        table->addAction(entry);
    }
    return row;
}

QPushButton* StrategyWindow::AddButton(QBoxLayout& row, const QString& caption, const char* name,
                                       void (StrategyWindow::*action)()) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, action);
    row.addWidget(button);
    return button;
}

void StrategyWindow::Open() {
    if (place.gameName.empty()) {
        const MachineSettings& settings = seat.engine.settings;
        place = {settings.gameId, settings.gameName, settings.activeTable};
    }
    Reload();
    ShowInFront();
    rows->setFocus();
}

// A table that is gone gives way to the one that is played, or the first.
void StrategyWindow::Reload() {
    tables = desk.Tables();
    if (!Current() && !tables.empty()) {
        const MachineSettings& settings = seat.engine.settings;
        place = {settings.gameId, settings.gameName, settings.activeTable};
        if (!Current()) place = tables.front().place;
    }
    const QSignalBlocker quiet(game);
    game->clear();
    for (const ListedTable& table : tables) {
        const QString name = QString::fromStdString(table.place.gameName);
        if (game->findText(name, Qt::MatchExactly) < 0) game->addItem(name);
    }
    game->setCurrentIndex(game->findText(QString::fromStdString(place.gameName), Qt::MatchExactly));
    ChooseGame();
}

// What others have changed meanwhile is seen when the window is looked at again.
void StrategyWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) Reload();
}
