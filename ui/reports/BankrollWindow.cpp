#include "ui/reports/BankrollWindow.h"

#include <QDate>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "core/analysis/StartThread.h"
#include "game/reports/BankrollTexts.h"
#include "game/reports/LawBars.h"
#include "game/reports/StatisticsRows.h"
#include "ui/charts/LawChart.h"
#include "ui/parts/DialogParts.h"
#include "ui/reports/ReportFrame.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr int kPatience = 300;  // milliseconds
constexpr int kUsualHands = 1000;
constexpr int kFewHands = 100;   // of a session that is hardly begun
constexpr int kUsualRate = 500;  // hands an hour
constexpr int kMostRate = 5000;
constexpr double kMostMoney = 1e9;  // dollars
constexpr int kShownCharacters = 100;
constexpr int kShownLines = 34;

// Two ways to look at the same: a picture, and a table.
QTabWidget* PictureAndFigures(LawChart* chart, ReportTableView* table, const char* name,
                              QWidget* parent) {
    auto* views = new QTabWidget(parent);
    views->setObjectName(name);
    views->setDocumentMode(true);
    views->addTab(chart, QObject::tr("P&icture"));
    views->addTab(table, QObject::tr("&Figures"));
    return views;
}

}  // namespace

BankrollWindow::BankrollWindow(const GameEngine& machine)
    : BesideWindow("bankroll"), engine(machine), tabs(new QTabWidget(this)) {
    tabs->setObjectName("tabs");
    tabs->addTab(MakeSession(), tr("&Session"));
    tabs->addTab(MakeLongRun(), tr("&Long run"));
    tabs->addTab(MakeLuck(), tr("L&uck"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs, 1);
    layout->addWidget(MakeClose(), 0, Qt::AlignRight);
    connect(this, &BankrollWindow::Reckoned, this, &BankrollWindow::Take, Qt::QueuedConnection);
    wait.setSingleShot(true);
    wait.setInterval(kPatience);
    connect(&wait, &QTimer::timeout, this, [this] {
        for (QLabel* words : {sessionWords, longWords, luckWords}) {
            words->setText(tr("Reckoning ..."));
        }
    });
    ReportFrame& frame = Furnish(kShownCharacters, kShownLines, [this] { Ask(); });
    frame.Keep(*tabs);
}

// A caption with its box below it.
template <typename Box>
Box* BankrollWindow::AddField(QGridLayout& grid, int row, int column, const QString& caption,
                              const char* name, double most, double start) {
    auto* box = new Box(this);
    box->setObjectName(name);
    box->setGroupSeparatorShown(true);
    using Value = decltype(box->value());
    box->setRange(0, static_cast<Value>(most));
    box->setValue(static_cast<Value>(start));
    box->setAccelerated(true);
    box->setMinimumWidth(WidthOf(*box, 14));
    grid.addWidget(Caption(caption, box), 2 * row, column);
    grid.addWidget(box, 2 * row + 1, column);
    connect(box, &Box::valueChanged, this, &BankrollWindow::Ask);
    return box;
}

QWidget* BankrollWindow::MakeSession() {
    auto* page = new QWidget(this);
    page->setObjectName("session");
    auto* grid = new QGridLayout;
    startHands = UsualHands();
    const double start = startHands;
    hands = AddField<QSpinBox>(*grid, 0, 0, tr("&Hands"), "hands", SessionWish::kMostHands, start);
    hours = AddField<QDoubleSpinBox>(*grid, 0, 1, tr("H&ours"), "hours", SessionWish::kMostHands,
                                     start / kUsualRate);
    rate = AddField<QSpinBox>(*grid, 0, 2, tr("Hands an hou&r"), "rate", kMostRate, kUsualRate);
    rate->setMinimum(1);
    lines = AddField<QSpinBox>(*grid, 0, 3, tr("Lines at o&nce"), "lines", kMostLinesAtOnce, 1);
    lines->setMinimum(1);
    MakeAmounts(*grid);
    // Hands and hours say the same, each moves the other.
    const auto handsFromHours = [this] {
        const QSignalBlocker quiet(hands);
        const double most = SessionWish::kMostHands;
        hands->setValue(
            static_cast<int>(std::min(std::round(hours->value() * rate->value()), most)));
        Ask();
    };
    connect(hours, &QDoubleSpinBox::valueChanged, this, handsFromHours);
    connect(rate, &QSpinBox::valueChanged, this, handsFromHours);
    connect(hands, &QSpinBox::valueChanged, this, [this] {
        const QSignalBlocker quiet(hours);
        hours->setValue(static_cast<double>(hands->value()) / rate->value());
    });
    sessionWords = MakeWords("sessionWords");
    sessionChart = new LawChart("sessionLaw", tr("Results of such sessions"), this);
    sessionTable = new ReportTableView("sessionTable", tr("Session"), this);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(grid);
    layout->addWidget(sessionWords);
    layout->addWidget(PictureAndFigures(sessionChart, sessionTable, "sessionViews", page), 1);
    return page;
}

void BankrollWindow::MakeAmounts(QGridLayout& grid) {
    money = AddField<QDoubleSpinBox>(grid, 1, 0, tr("&Bankroll, $"), "money", kMostMoney, 0);
    money->setSpecialValueText(tr("no limit"));
    goal = AddField<QDoubleSpinBox>(grid, 1, 1, tr("&Goal, $"), "goal", kMostMoney, 0);
    goal->setSpecialValueText(tr("none"));
    goal->setToolTip(tr("You stop when you have so much, the bankroll included"));
    cashBack = AddField<QDoubleSpinBox>(grid, 1, 2, tr("&Cash back, %"), "cashBack", 100, 0);
    cashBack->setDecimals(3);
    cashBack->setSingleStep(0.05);
    cashBack->setToolTip(tr("Of what is played, paid when the session has ended"));
    for (QDoubleSpinBox* box : {money, goal}) box->setSingleStep(20);
}

QWidget* BankrollWindow::MakeLongRun() {
    auto* page = new QWidget(this);
    page->setObjectName("longRun");
    auto* grid = new QGridLayout;
    longCashBack =
        AddField<QDoubleSpinBox>(*grid, 0, 0, tr("&Cash back, %"), "longCashBack", 100, 0);
    longCashBack->setDecimals(3);
    longCashBack->setSingleStep(0.05);
    longCashBack->setToolTip(tr("Of what is played, paid with every hand"));
    longMoney =
        AddField<QDoubleSpinBox>(*grid, 0, 1, tr("&Bankroll, $"), "longMoney", kMostMoney, 0);
    longMoney->setSingleStep(100);
    longMoney->setSpecialValueText(tr("not asked"));
    grid->setColumnStretch(2, 1);
    longWords = MakeWords("longWords");
    riskTable = new ReportTableView("riskTable", tr("Bankroll for each risk of ruin"), this);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(grid);
    layout->addWidget(longWords);
    layout->addWidget(riskTable, 1);
    layout->addStretch();
    return page;
}

QWidget* BankrollWindow::MakeLuck() {
    auto* page = new QWidget(this);
    page->setObjectName("luck");
    luckWords = MakeWords("luckWords");
    luckChart = new LawChart("luckLaw", tr("Results of as many hands"), this);
    luckTable = new ReportTableView("luckTable", tr("Lines seen and expected"), this);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(luckWords);
    layout->addWidget(PictureAndFigures(luckChart, luckTable, "luckViews", page), 1);
    return page;
}

// Of the player's own session, so that its mark stands in the law of as many hands.
int BankrollWindow::UsualHands() const {
    const std::int64_t played = engine.creditHistory.Hands();
    return static_cast<int>(played > kFewHands ? std::min(played, SessionWish::kMostHands)
                                               : kUsualHands);
}

void BankrollWindow::Open() {
    if (!isVisible() && hands->value() == startHands) {
        startHands = UsualHands();
        hands->setValue(startHands);
    }
    ShowInFront();
    Ask();
}

void BankrollWindow::Follow() {
    if (!isVisible()) return;
    if (Question() != asked || GameAtTheMachine() != askedGame) Ask();
}

// What others have changed meanwhile is seen when the window is looked at again.
void BankrollWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) Follow();
}

BankrollQuestion BankrollWindow::Question() const {
    BankrollQuestion question;
    question.table = engine.payTable;
    question.bet = engine.settings.bet;
    question.coin = engine.settings.coin;
    question.lines = lines->value();
    question.statistics = engine.statistics;
    question.creditsBet = CreditsBet(engine, &Counter::total);
    const double bet = question.bet * question.coin;
    question.session.hands = hands->value();
    if (money->value() > 0) {
        question.session.bankroll = money->value() / bet;
        if (goal->value() > 0) question.session.goal = goal->value() / bet;
    }
    question.session.cashBack = cashBack->value() / 100;
    question.longCashBack = longCashBack->value() / 100;
    return question;
}

void BankrollWindow::Ask() {
    if (!luckTable) return;  // the fields are still being made
    asked = Question();
    askedGame = GameAtTheMachine();
    goal->setEnabled(money->value() > 0);
    ++runs;
    NameFiles();
    if (!wait.isActive()) wait.start();
    if (!reckons) Reckon();
}

// One question after the other; one that is not asked any more ends at once.
void BankrollWindow::Reckon() {
    reckons = true;
    const int run = runs;
    thread = StartThread([this, run, question = asked](const std::stop_token& stop) {
        const auto found = reckoner.Answer(
            question, [this, run, &stop] { return run == runs && !stop.stop_requested(); });
        if (!stop.stop_requested()) emit Reckoned(run, found);
    });
    reckons = thread.joinable();
}

void BankrollWindow::Take(int run, const std::optional<BankrollAnswer>& found) {
    reckons = false;
    if (run != runs || !found) return Reckon();
    wait.stop();
    answer = *found;
    ShowAnswer();
}

// A session of the player's own is marked in the picture.
std::optional<double> BankrollWindow::OwnGain() const {
    const auto stretches = engine.creditHistory.Stretches();
    return stretches.empty() ? std::nullopt : std::optional(stretches.back().last);
}

QString BankrollWindow::GameAtTheMachine() const {
    const MachineSettings& settings = engine.settings;
    return QString::fromStdString(TableSection(settings.gameName, settings.activeTable));
}

void BankrollWindow::NameFiles() {
    const MachineSettings& settings = engine.settings;
    const QString name = QString::fromStdString(settings.gameName);
    setWindowTitle(tr("Bankroll: %1").arg(askedGame));
    const QString subject =
        PictureSubject(settings.gameName, settings.activeTable, settings.bet, settings.coin,
                       QDate::currentDate().toString(Qt::ISODate));
    sessionChart->SetSubject(subject, tr("%1 sessions").arg(name));
    luckChart->SetSubject(subject, tr("%1 luck").arg(name));
    sessionTable->SetFileName(tr("%1 sessions").arg(name));
    riskTable->SetFileName(tr("%1 ruin").arg(name));
    luckTable->SetFileName(tr("%1 luck").arg(name));
}

void BankrollWindow::ShowAnswer() {
    const double betDollars = asked.bet * asked.coin;
    ShowSession(betDollars);
    ShowLongRun(betDollars);
    ShowLuck();
}

// What the law leaves out of the game stands behind them.
void BankrollWindow::ShowWords(QLabel& label, std::string words) {
    const std::string leftOut = LeftOutInWords(asked.table);
    if (!leftOut.empty()) words += " " + leftOut;
    label.setText(QString::fromStdString(words));
}

void BankrollWindow::ShowSession(double betDollars) {
    const auto& law = answer.session.law;
    if (!law) {
        const std::string why = answer.whyNot.empty()
                                    ? "There is no answer: " + answer.session.whyNot + "."
                                    : answer.whyNot;
        const QString text = QString::fromStdString(why);
        sessionWords->setText(text);
        sessionChart->ShowLaw({}, {}, {}, text);
        sessionTable->SetTable({.title = "Session", .warning = why, .columns = {{"Session"}}});
        return;
    }
    ShowWords(*sessionWords, SessionInWords(*law, asked.session, betDollars));
    const auto own = OwnGain();
    const QString ownText = own ? tr("Your session: %1 after %2 hands")
                                      .arg(QString::fromStdString(BetsInDollars(*own, 1)),
                                           Grouped(engine.creditHistory.Hands()))
                                : QString();
    sessionChart->ShowLaw(BarsOf(*law, betDollars, own), own, ownText, {});
    sessionTable->SetTable(SessionTable(*law, answer.lines, asked.table, betDollars));
}

void BankrollWindow::ShowLongRun(double betDollars) {
    if (!answer.whyNot.empty()) {
        longWords->setText(QString::fromStdString(answer.whyNot));
        ShowRisks(RiskTable({}, betDollars));
        return;
    }
    const auto bankroll =
        longMoney->value() > 0 ? std::optional(longMoney->value() / betDollars) : std::nullopt;
    ShowWords(*longWords, RuinInWords(answer.longRun, asked.longCashBack, bankroll, betDollars));
    ShowRisks(RiskTable(answer.longRun, betDollars));
}

// Where ruin is certain, the words say all.
void BankrollWindow::ShowRisks(const ReportTable& risks) {
    riskTable->SetTable(risks);
    riskTable->setVisible(!risks.rows.empty());
}

void BankrollWindow::ShowLuck() {
    const Luck& luck = answer.luck;
    const QString words = QString::fromStdString(LuckInWords(luck));
    luckWords->setText(words);
    const double betDollars = luck.mean * asked.coin;
    if (luck.whyNot.empty()) {
        const double own = luck.result * betDollars;
        luckChart->ShowLaw(BarsOf(luck.law, betDollars, own), own,
                           tr("Your hands: %1").arg(QString::fromStdString(BetsInDollars(own, 1))),
                           {});
    } else {
        luckChart->ShowLaw({}, {}, {}, words);
    }
    luckTable->SetTable(LuckTable(luck, asked.table));
}
