#include "ui/reports/MeterWindow.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>
#include <utility>

#include "core/store/AnalysisCache.h"
#include "game/seat/Seat.h"
#include "ui/charts/MeterChart.h"
#include "ui/parts/DialogParts.h"
#include "ui/reports/ReportFrame.h"
#include "ui/reports/TableChoice.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr int kPause = 200;  // milliseconds
constexpr int kSettle = 150;
constexpr int kLookInterval = 50;
constexpr int kShownCharacters = 130;
constexpr int kShownLines = 34;
constexpr int kMostMeter = std::numeric_limits<int>::max() / 4;

// The last meter of the slider.
int TwiceTheJackpot(int start) { return std::clamp(start, kFullBet, kMostMeter / 2) * 2; }

}  // namespace

MeterWindow::MeterWindow(Seat& seat, OpenHand openHand)
    : BesideWindow("meter"), seat(seat), openHand(std::move(openHand)) {
    setWindowTitle(tr("Meter"));
    words = MakeWords("words");
    words->setAccessibleName(tr("What the meter says"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeChoice());
    layout->addLayout(MakeMeter());
    layout->addWidget(words);
    layout->addWidget(MakeTabs(), 1);
    layout->addLayout(MakeBottom());
    for (const auto& [timer, interval] : {std::pair(&pause, kPause), {&settle, kSettle}}) {
        timer->setSingleShot(true);
        timer->setInterval(interval);
    }
    connect(&pause, &QTimer::timeout, this, &MeterWindow::Begin);
    connect(&settle, &QTimer::timeout, this, &MeterWindow::ShowTurns);
    look.setInterval(kLookInterval);
    connect(&look, &QTimer::timeout, this, &MeterWindow::LookAtWork);
    ReportFrame& frame = Furnish(kShownCharacters, kShownLines, [this] { ReadTables(); });
    frame.Keep(*tabs);
    frame.Keep(*turns);
}

MeterWindow::~MeterWindow() = default;

QLayout* MeterWindow::MakeChoice() {
    game = new TableChoice(this);
    game->setObjectName("game");
    line = new QComboBox(this);
    line->setObjectName("line");
    auto* row = new QHBoxLayout;
    row->addWidget(Caption(tr("&Game:"), game));
    row->addWidget(game, 2);
    row->addWidget(Caption(tr("&Line:"), line));
    row->addWidget(line, 1);
    connect(game, &TableChoice::currentIndexChanged, this, &MeterWindow::FillLines);
    connect(line, &QComboBox::currentIndexChanged, this, [this] { TakeLine(); });
    return row;
}

QLayout* MeterWindow::MakeMeter() {
    slider = new QSlider(Qt::Horizontal, this);
    slider->setObjectName("slider");
    slider->setAccessibleName(tr("Meter, coins for the full bet"));
    coins = new QSpinBox(this);
    coins->setObjectName("coins");
    coins->setGroupSeparatorShown(true);
    coins->setRange(0, kMostMeter);
    coins->setSuffix(tr(" coins"));
    rise = new QDoubleSpinBox(this);
    rise->setObjectName("rise");
    rise->setRange(0.01, 100);
    rise->setSingleStep(0.1);
    rise->setValue(1);
    rise->setSuffix(tr(" %"));
    auto* row = new QHBoxLayout;
    row->addWidget(Caption(tr("&Meter:"), coins));
    row->addWidget(coins);
    row->addWidget(slider, 1);
    row->addWidget(Caption(tr("&Rises by:"), rise));
    row->addWidget(rise);
    connect(slider, &QSlider::valueChanged, this, [this](int value) { SetMeter(value); });
    connect(coins, &QSpinBox::valueChanged, this, [this](int value) { SetMeter(value); });
    connect(rise, &QDoubleSpinBox::valueChanged, this, [this] { ShowMeter(); });
    return row;
}

QWidget* MeterWindow::MakeTabs() {
    tabs = new QTabWidget(this);
    tabs->setObjectName("tabs");
    chart = new MeterChart(tabs);
    turns = new ReportTableView("turns", tr("Turning points"), tabs);
    turns->SetFileName(tr("turning points"));
    tabs->addTab(chart, tr("&Chart"));
    tabs->addTab(turns, tr("&Turning points"));
    connect(turns, &ReportTableView::RowActivated, this, [this] { OpenTheHand(); });
    connect(turns, &ReportTableView::CurrentRowChanged, this,
            [this](qint64 row) { hand->setEnabled(row >= 0); });
    return tabs;
}

QLayout* MeterWindow::MakeBottom() {
    hand = new QPushButton(tr("&Hand"), this);
    hand->setObjectName("hand");
    hand->setEnabled(false);
    hand->setToolTip(tr("Opens the hand of the turning point, with the meter where it stands"));
    connect(hand, &QPushButton::clicked, this, &MeterWindow::OpenTheHand);
    bar = new QProgressBar(this);
    return MakeFoot(hand, bar);
}

void MeterWindow::Open() {
    ReadTables();
    ShowInFront();
    slider->setFocus();
}

void MeterWindow::ReadTables() {
    game->SetTables(ListTables(seat.files.Main()), CurrentTable(seat.engine.settings));
    FillLines();
}

// The meters are those of the lines of one table, as its pays are.
void MeterWindow::FillLines() {
    const ListedTable* chosen = game->Chosen();
    const std::string of =
        chosen ? game->currentText().toStdString() + PaysHash(chosen->table) : "";
    if (std::exchange(metersOf, of) != of) meters.clear();
    const int before = std::max(line->currentIndex(), 0);
    {
        const QSignalBlocker quiet(line);
        line->clear();
        if (!chosen) return ShowNothing();
        for (const PayLine& payLine : chosen->table.lines) {
            line->addItem(QString::fromStdString(payLine.description));
        }
        line->setCurrentIndex(std::min(before, line->count() - 1));
    }
    TakeLine();
}

void MeterWindow::ShowNothing() {
    work.Cancel();
    look.stop();
    bar->hide();
    known.reset();
    words->setText(tr("There are no pay tables"));
    chart->SetCurve({});
    turns->SetTable({});
}

int MeterWindow::Start() const {
    return game->Chosen()->table.lines[static_cast<std::size_t>(line->currentIndex())].maxPayout;
}

void MeterWindow::TakeLine() {
    if (!game->Chosen() || line->currentIndex() < 0) return;
    const auto moved = meters.find(line->currentIndex());
    const int at = std::min(moved == meters.end() ? Start() : moved->second, kMostMeter);
    const QSignalBlocker quietSlider(slider);
    const QSignalBlocker quietCoins(coins);
    const int last = TwiceTheJackpot(Start());
    slider->setRange(std::min(Start(), last), last);
    slider->setSingleStep(std::max(1, last / 400));
    slider->setPageStep(std::max(1, last / 40));
    coins->setSingleStep(slider->singleStep());
    slider->setValue(at);
    coins->setValue(at);
    known.reset();
    words->clear();
    Begin();
}

// Where there is a curve, nothing has to be reckoned.
void MeterWindow::SetMeter(int value) {
    if (line->currentIndex() < 0) return;
    const QSignalBlocker quietSlider(slider);
    const QSignalBlocker quietCoins(coins);
    slider->setValue(value);
    coins->setValue(value);
    meters[line->currentIndex()] = value;
    if (known && known->curve) {
        ShowMeter();
        value > known->last ? pause.start() : settle.start();
    } else if (!whyNoCurve.empty()) {
        work.Cancel();
        pause.start();
    }
}

PayTable MeterWindow::TableNow() const {
    PayTable table = game->Chosen()->table;
    for (const auto& [number, value] : meters) {
        table.lines[static_cast<std::size_t>(number)].maxPayout = value;
    }
    return table;
}

void MeterWindow::Begin() {
    pause.stop();
    if (!game->Chosen() || line->currentIndex() < 0) return;
    const auto number = static_cast<std::size_t>(line->currentIndex());
    const PayTable table = TableNow();
    whyNoCurve = MeterCurve::WhyNot(table);
    const bool curved = whyNoCurve.empty();
    work.Start([table, number, curved, first = Start(),
                last = LastMeter(TwiceTheJackpot(Start()) / 2, coins->value()),
                at = coins->value()](const auto& goOn) {
        Known found;
        found.last = last;
        if (curved) {
            found.curve = std::make_shared<MeterCurve>(table, number, first, last, goOn);
        } else {
            found.searched = SearchMeter(table, number, at, [&goOn] { return goOn(0); });
        }
        return found;
    });
    bar->setRange(0, curved ? 100 : 0);
    bar->setValue(0);
    bar->show();
    look.start();
}

void MeterWindow::LookAtWork() {
    bar->setValue(static_cast<int>(work.Share() * 100));
    auto found = work.Take();
    if (!found && work.IsRunning()) return;
    look.stop();
    bar->hide();
    if (!found || (found->curve && found->curve->Cancelled()) || found->searched.cancelled) return;
    known = std::move(found);
    ShowCurve();
    ShowMeter();
    ShowTurns();
}

void MeterWindow::ShowCurve() {
    MeterChart::Curve shown;
    if (known->curve) {
        shown.last = known->last;
        shown.first = std::min<double>(Start(), shown.last);
        shown.percent = [curve = known->curve](double at) { return curve->Return(at); };
    } else {
        shown.nothing =
            tr("There is no chart of this game, which %1.").arg(QString::fromStdString(whyNoCurve));
    }
    if (shown.last <= shown.first && shown.nothing.isEmpty()) shown.nothing = tr("Nothing to show");
    chart->SetSubject(game->currentText() + ", " + line->currentText(),
                      tr("meter of %1").arg(game->currentText()));
    chart->SetCurve(std::move(shown));
}

void MeterWindow::ShowMeter() {
    if (!known) return;
    MeterFigures figures;
    figures.coins = coins->value();
    figures.rise = rise->value();
    if (known->curve) {
        figures.percent = known->curve->Return(figures.coins);
        figures.breakEven = known->curve->BreakEven();
    } else {
        figures.coins = known->searched.coins;
        figures.percent = known->searched.percent;
        figures.breakEven = known->searched.breakEven;
    }
    words->setText(QString::fromStdString(MeterInWords(figures)) + OtherMeters());
    chart->SetMeter(figures.coins);
}

QString MeterWindow::OtherMeters() const {
    QStringList others;
    for (const auto& [number, value] : meters) {
        if (number == line->currentIndex()) continue;
        others << tr("%1 at %2").arg(line->itemText(number), Grouped(value));
    }
    return others.isEmpty() ? QString() : "\n" + tr("With %1.").arg(others.join(", "));
}

void MeterWindow::ShowTurns() {
    if (!known) return;
    const auto points = known->curve ? known->curve->TurningPoints() : std::vector<TurningPoint>();
    turns->SetTable(TurningTable(points, game->currentText().toStdString(), coins->value()));
    hand->setEnabled(turns->CurrentRow() >= 0);
}

void MeterWindow::OpenTheHand() {
    const auto row = turns->CurrentRow();
    if (!known || !known->curve || row < 0 || !game->Chosen()) return;
    PayTable table = TableNow();
    table.lines[static_cast<std::size_t>(line->currentIndex())].maxPayout = coins->value();
    openHand(game->Chosen()->place, table,
             known->curve->TurningPoints()[static_cast<std::size_t>(row)].example);
}
