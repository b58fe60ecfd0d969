#include "ui/reports/HandPage.h"

#include <QAccessible>
#include <QDateTime>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "core/text/Ranks.h"
#include "game/engine/BestPlay.h"
#include "game/engine/GameEngine.h"
#include "game/reports/HoldLine.h"
#include "game/reports/ReportHead.h"
#include "ui/charts/HoldChart.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/HoldPatterns.h"
#include "ui/parts/PlaceButtons.h"
#include "ui/parts/ReportBox.h"
#include "ui/parts/SmallCard.h"
#include "ui/questions/AssignFixedHandDialog.h"
#include "ui/reports/ReportFrame.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr int kColumnsBeforeLines = 5;
constexpr int kLeastLines = 12;
constexpr int kTypedCharacters = 18;

// Each line but the heading begins with one.
TextSpan PatternOf(const QString& line, int number) {
    return {0, number == 0 ? 0 : static_cast<int>(line.indexOf(u'\t'))};
}

bool WantsHandAgain(QWidget* parent) {
    const int answer =
        ShowMessage("missingCard", QMessageBox::Critical, HandPage::tr("Missing Card"),
                    HandPage::tr("You must assign a card to each hand position to perform a hand "
                                 "analysis"),
                    parent, QMessageBox::Ok | QMessageBox::Cancel);
    return answer == QMessageBox::Ok;
}

// "A" and a spade; a joker is the letter that the report shows.
QString ShortName(const CardFace& card) {
    static const QString kSuitSigns = QString::fromUtf8(" ♠♥♣♦★");
    const QString rank = QChar::fromLatin1(RankChar(card.rank));
    return card.IsJoker() ? rank : rank + kSuitSigns.at(card.suit);
}

Hand ShownPlaces(const GameEngine& engine) {
    return PlacesOf(engine, engine.hand, engine.drawCards[0]);
}

// The places whose cards are held. The piles of Pick 'Em lie in other places than in the hand.
std::array<bool, kPlaces> HeldPlaces(const GameEngine& engine, HoldMask hold) {
    if (IsPickEm(engine)) return {true, true, false, hold == kLeftPile, hold == kRightPile};
    std::array<bool, kPlaces> held{};
    for (std::size_t place = 0; place < kPlaces; ++place) held[place] = Holds(hold, place);
    return held;
}

// All that an analysis of other hands needs is in the copy, so that nothing else has to stay.
std::unique_ptr<GameEngine> CopyOf(const GameEngine& engine) {
    auto copy = std::make_unique<GameEngine>(engine);
    LineTablesOf(*copy);
    copy->lineTableCache = nullptr;
    copy->creditHistory = {};
    return copy;
}

}  // namespace

HandPage::HandPage(GameEngine& engine, PictureStore& store, const GameEngine* player,
                   QWidget* parent)
    : ReportPage(parent), engine(engine), store(store), player(player) {
    LayOut();
}

HandPage::HandPage(std::unique_ptr<GameEngine> copy, PictureStore& store, const GameEngine* player,
                   QWidget* parent)
    : ReportPage(parent), own(std::move(copy)), engine(*own), store(store), player(player) {
    LayOut();
}

HandPage::~HandPage() = default;

void HandPage::LayOut() {
    tabs = new QTabWidget(this);
    tabs->setObjectName("tabs");
    tabs->addTab(MakeReportPage(), tr("&Report"));
    tabs->addTab(MakeChartPage(), tr("C&hart"));
    tabs->addTab(MakeTablePage(), tr("Ho&lds"));

    bottom = new QHBoxLayout;
    bottom->addWidget(MakePlaces());
    knownCard = AddFirstDrawCard(*bottom, engine, store, this);
    bottom->addLayout(MakeTypedHand(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(tabs, 1);
    layout->addLayout(bottom);

    SetTabStops();
    ShowHand();
    report->FitToText();
}

QWidget* HandPage::MakeReportPage() {
    auto* page = new QWidget(this);
    page->setObjectName("reportPage");
    auto* layout = new QVBoxLayout(page);
    report = new ReportBox("report", tr("Holds of the hand"), page);
    report->saveAs = [this] { Save(); };
    report->setMinimumHeight(kLeastLines * report->fontMetrics().lineSpacing());
    new HoldPatterns(*report->document(), PatternOf);
    layout->addWidget(report, 1);
    const auto show = [this](int chosen) {
        display = static_cast<HandDisplay>(chosen);
        ShowReport();
    };
    displayChoice = DisplayChoice({{tr("H&ands"), "displayHands"},
                                   {tr("O&dds"), "displayOdds"},
                                   {tr("% of R&eturn"), "displayShare"}},
                                  show, page);
    layout->addWidget(displayChoice, 0, Qt::AlignLeft);
    return page;
}

QWidget* HandPage::MakeChartPage() {
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName("chartPage");
    scroll->setAccessibleName(tr("Expected returns of the holds"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    chart = new HoldChart(scroll);
    scroll->setWidget(chart);
    return scroll;
}

QWidget* HandPage::MakeTablePage() {
    auto* page = new QWidget(this);
    page->setObjectName("holdsPage");
    auto* layout = new QVBoxLayout(page);
    table = new ReportTableView("holds", tr("Holds of the hand"), page);
    layout->addWidget(table, 1);
    const auto show = [this](int chosen) {
        figure = static_cast<LineFigure>(chosen);
        ShowTable();
    };
    figureChoice = DisplayChoice({{tr("Pro&bability"), "figureProbability"},
                                  {tr("H&ands"), "figureHands"},
                                  {tr("O&dds"), "figureOdds"},
                                  {tr("% of R&eturn"), "figureShare"}},
                                 show, page);
    figureChoice->setObjectName("figures");
    layout->addWidget(figureChoice, 0, Qt::AlignLeft);
    return page;
}

QWidget* HandPage::MakePlaces() {
    auto* row = RowInGroup(tr("Starting Hand"), "startingHand", this);
    for (int place = 0; place < kPlaces; ++place) {
        auto* buttons =
            new PlaceButtons(store, place, row->parentWidget(), [this] { ChangeHand(); });
        buttons->setToolTip(tr("Change Hand"));
        row->addWidget(buttons);
        places[static_cast<std::size_t>(place)] = buttons;
    }
    return row->parentWidget();
}

// The hand as text above the button, and above it, in place, what is wrong with it.
QLayout* HandPage::MakeTypedHand() {
    problem = new QLabel(this);
    problem->setObjectName("handProblem");
    problem->setTextFormat(Qt::PlainText);
    problem->setWordWrap(true);
    problem->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    typed = new QLineEdit(this);
    typed->setObjectName("typedHand");
    typed->setMinimumWidth(WidthOf(*this, kTypedCharacters));
    typed->setToolTip(
        tr("The hand as text, such as AS KD 7H 2C 10D or, for a joker, W: type or "
           "paste another one"));
    typed->installEventFilter(this);
    connect(typed, &QLineEdit::textEdited, this, [this] { SayProblem({}); });
    auto* change = new QPushButton(tr("&Change Hand"), this);
    change->setObjectName("changeHand");
    change->setAutoDefault(false);
    connect(change, &QPushButton::clicked, this, &HandPage::ChangeHand);
    auto* line = new QHBoxLayout;
    line->addWidget(::Caption(tr("Hand as &text"), typed));
    line->addWidget(typed, 1);
    auto* column = new QVBoxLayout;
    column->addWidget(problem, 1);
    column->addLayout(line);
    column->addWidget(change, 0, Qt::AlignLeft);
    return column;
}

void HandPage::SetTabStops() {
    const QFontMetrics font(report->font());
    const int column = font.horizontalAdvance("   ") + font.horizontalAdvance("999,999,999.99");
    QList<qreal> stops = {static_cast<qreal>(font.horizontalAdvance("WWWWW"))};
    const auto count = engine.payTable.lines.size() + kColumnsBeforeLines;
    while (static_cast<std::size_t>(stops.size()) < count) stops.append(stops.back() + column);
    report->SetTabStops(stops);
}

void HandPage::KeepIn(ReportFrame& frame) {
    frame.Keep(*tabs);
    frame.Keep(*table);
    frame.KeepDisplay(*displayChoice);
    frame.KeepDisplay(*figureChoice);
}

QString HandPage::Caption() const {
    return tr("Hand Analysis: %1, %2")
        .arg(QString::fromStdString(engine.settings.gameName),
             QString::fromStdString(HandInWords(engine)));
}

std::unique_ptr<ReportPage> HandPage::Copy() const {
    auto copy = std::make_unique<HandPage>(CopyOf(engine), store, player, nullptr);
    copy->taken = taken;
    copy->NameChart();
    copy->ShowTable();
    return copy;
}

// The page may be shown for another game from here on.
void HandPage::Refresh() {
    if (!player) return;
    engine = *CopyOf(*player);
    LendHand(*player, engine);
    knownCard->parentWidget()->setVisible(IsSneakPeak(engine));
    SetTabStops();
    ShowHand();
}

void HandPage::ChangeHand() {
    do {
        AssignFixedHandDialog editor(engine, store, this);
        editor.setWindowModality(Qt::WindowModal);  // beside a page put aside the machine is played
        if (editor.exec() != QDialog::Accepted) break;
        if (TakeFixedHand(engine)) return ShowHand();
    } while (WantsHandAgain(this));
    emit ChangeCancelled();
}

void HandPage::TakeTyped() {
    const auto wrong = TakeTypedHand(engine, typed->text().toStdString());
    if (wrong.empty()) return ShowHand();
    SayProblem(QString::fromStdString(wrong));
    typed->setFocus();
}

void HandPage::SayProblem(const QString& said) {
    problem->setText(said.isEmpty() ? said : QString::fromUtf8("⚠ ") + said);
    problem->setAccessibleName(said);
    typed->setAccessibleDescription(said);
    if (said.isEmpty()) return;
    QAccessibleEvent event(problem, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

// In a dialog, Enter would press its default button.
bool HandPage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == typed && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            TakeTyped();
            return true;
        }
    }
    return ReportPage::eventFilter(watched, event);
}

void HandPage::ShowHand() {
    taken = QDateTime::currentSecsSinceEpoch();
    const auto cards = ShownPlaces(engine);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QString name = tr("place %1, %2").arg(QString::number(i + 1), NameOf(cards[i]));
        places[i]->SetCard(cards[i], name);
    }
    knownCard->SetCard(FaceOf(engine.deck.table, engine.drawCards[0]));
    typed->setText(QString::fromStdString(HandInWords(engine)));
    SayProblem({});
    ShowReport();
    NameChart();
    ShowChart();
    ShowTable();
    emit CaptionChanged();
}

void HandPage::ShowReport() { report->ShowReport(HandReport(engine, display)); }

void HandPage::ShowTable() {
    table->SetFileName(FileName());
    table->SetTable(HandTable(engine, figure, taken));
}

// All holds that return as much as the best one are marked: playing any of them is no error. A note
// has a line each for "Best hold: ace of spades, king of spades", "returns $4.5000" and "16,215
// draws, 5,000 of them win".
void HandPage::ShowChart() {
    const auto cards = ShownPlaces(engine);
    std::vector<HoldChart::Hold> holds;
    for (const HoldMask mask : HoldsByReturn(engine)) {
        const HoldResult& result = ResultOf(engine, mask);
        HoldChart::Hold hold;
        const auto held = HeldPlaces(engine, mask);
        QStringList names;
        for (std::size_t i = 0; i < cards.size(); ++i) {
            hold.cards.append(held[i] ? ShortName(cards[i]) : QString::fromUtf8("–"));
            if (held[i]) names.append(NameOf(cards[i]));
        }
        if (names.isEmpty()) names.append(tr("nothing"));
        if (result.knownCardPosition >= 0) hold.cards[result.knownCardPosition] = "D";
        hold.value = result.expectedReturn;
        hold.best = IsBestPlay(engine, mask);
        hold.note =
            tr("%1 %2\nreturns $%3\n%4 draws, %5 of them win")
                .arg(hold.best ? tr("Best hold:") : tr("Hold"), names.join(", "),
                     QString::number(result.expectedReturn, 'f', 4), Grouped(result.totalHands),
                     Grouped(result.totalHands - result.nothing));
        holds.push_back(hold);
    }
    chart->ShowHolds(std::move(holds));
}

void HandPage::NameChart() {
    const MachineSettings& settings = engine.settings;
    const QString subject =
        PictureSubject(settings.gameName, settings.activeTable, settings.bet, settings.coin,
                       QDateTime::fromSecsSinceEpoch(taken).date().toString(Qt::ISODate));
    const QString hand = QString::fromStdString(HandInWords(engine));
    chart->SetSubject(hand + QString::fromUtf8(" – ") + subject, FileName());
}

QString HandPage::FileName() const {
    return tr("%1 hand").arg(QString::fromStdString(engine.settings.gameName));
}

void HandPage::Save() {
    const ReportTable& whole = table->Table();
    SaveReport(HeadLines(whole.title, whole.head) + "\n" + HandReport(engine, display),
               FileName() + ".txt", this);
}
