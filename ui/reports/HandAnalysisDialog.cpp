#include "ui/reports/HandAnalysisDialog.h"

#include <QDate>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "core/text/Ranks.h"
#include "game/engine/GameEngine.h"
#include "ui/charts/HoldChart.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/PlaceButtons.h"
#include "ui/parts/ReportBox.h"
#include "ui/parts/SmallCard.h"
#include "ui/questions/AssignFixedHandDialog.h"

namespace {

constexpr int kColumnsBeforeLines = 5;
constexpr double kShareOfScreen = 0.9;
constexpr int kLeastLines = 12;
constexpr int kWidest = 160;  // characters

bool WantsHandAgain(QWidget* parent) {
    const int answer = ShowMessage(
        "missingCard", QMessageBox::Critical, HandAnalysisDialog::tr("Missing Card"),
        HandAnalysisDialog::tr("You must assign a card to each hand position to perform a hand "
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

}  // namespace

HandAnalysisDialog::HandAnalysisDialog(GameEngine& spare, PictureStore& store, QWidget* parent)
    : QDialog(parent), spare(spare), store(store) {
    setObjectName("handAnalysis");
    setWindowTitle(tr("Hand Analysis"));
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName("tabs");
    tabs->addTab(MakeReportPage(), tr("&Report"));
    tabs->addTab(MakeChartPage(), tr("C&hart"));

    auto* change = ActionButton(*this, tr("&Change Hand"), "changeHand", [this] { ChangeHand(); });
    auto* buttons = OkAlone(*this);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(MakePlaces());
    knownCard = AddFirstDrawCard(*bottom, spare, store, this);
    bottom->addWidget(change, 0, Qt::AlignBottom);
    bottom->addStretch();
    bottom->addWidget(buttons, 0, Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs, 1);
    layout->addLayout(bottom);

    SetTabStops();
    ShowHand();
    report->FitToText();
    const QSize widest(WidthOf(*this, kWidest), QWIDGETSIZE_MAX);  // the rest is scrolled
    resize(sizeHint().boundedTo(screen()->availableSize() * kShareOfScreen).boundedTo(widest));
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

QWidget* HandAnalysisDialog::MakeReportPage() {
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    report = new ReportBox("report", tr("Holds of the hand"), page);
    report->saveAs = [this] { Save(); };
    report->setMinimumHeight(kLeastLines * report->fontMetrics().lineSpacing());
    layout->addWidget(report, 1);
    const auto show = [this](int chosen) {
        display = static_cast<HandDisplay>(chosen);
        ShowReport();
    };
    auto* choice = DisplayChoice({{tr("H&ands"), "displayHands"},
                                  {tr("O&dds"), "displayOdds"},
                                  {tr("% of R&eturn"), "displayShare"}},
                                 show, page);
    layout->addWidget(choice, 0, Qt::AlignLeft);
    return page;
}

QWidget* HandAnalysisDialog::MakeChartPage() {
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName("chartPage");
    scroll->setAccessibleName(tr("Expected returns of the holds"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    chart = new HoldChart(scroll);
    scroll->setWidget(chart);
    return scroll;
}

QWidget* HandAnalysisDialog::MakePlaces() {
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

void HandAnalysisDialog::SetTabStops() {
    const QFontMetrics font(report->font());
    const int column = font.horizontalAdvance("   ") + font.horizontalAdvance("999,999,999.99");
    QList<qreal> stops = {static_cast<qreal>(font.horizontalAdvance("WWWWW"))};
    const auto count = spare.payTable.lines.size() + kColumnsBeforeLines;
    while (static_cast<std::size_t>(stops.size()) < count) stops.append(stops.back() + column);
    report->SetTabStops(stops);
}

void HandAnalysisDialog::ChangeHand() {
    do {
        AssignFixedHandDialog editor(spare, store, this);
        if (editor.exec() != QDialog::Accepted) return accept();
        if (TakeFixedHand(spare)) return ShowHand();
    } while (WantsHandAgain(this));
    accept();
}

void HandAnalysisDialog::ShowHand() {
    const auto cards = ShownPlaces(spare);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QString name = tr("place %1, %2").arg(QString::number(i + 1), NameOf(cards[i]));
        places[i]->SetCard(cards[i], name);
    }
    knownCard->SetCard(FaceOf(spare.deck.table, spare.drawCards[0]));
    ShowReport();
    ShowChart();
}

void HandAnalysisDialog::ShowReport() { report->ShowReport(HandReport(spare, display)); }

// All holds that return as much as the best one are marked: playing any of them is no error. A note
// has a line each for "Best hold: ace of spades, king of spades", "returns $4.5000" and "16,215
// draws, 5,000 of them win".
void HandAnalysisDialog::ShowChart() {
    const auto cards = ShownPlaces(spare);
    std::vector<HoldChart::Hold> holds;
    for (const HoldMask mask : HoldsByReturn(spare)) {
        const HoldResult& result = spare.analysis.holds[static_cast<std::size_t>(mask)];
        HoldChart::Hold hold;
        const auto held = HeldPlaces(spare, mask);
        QStringList names;
        for (std::size_t i = 0; i < cards.size(); ++i) {
            hold.cards.append(held[i] ? ShortName(cards[i]) : QString::fromUtf8("–"));
            if (held[i]) names.append(NameOf(cards[i]));
        }
        if (names.isEmpty()) names.append(tr("nothing"));
        if (result.knownCardPosition >= 0) hold.cards[result.knownCardPosition] = "D";
        hold.value = result.expectedReturn;
        hold.best = result.expectedReturn == spare.analysis.bestReturn;
        hold.note =
            tr("%1 %2\nreturns $%3\n%4 draws, %5 of them win")
                .arg(hold.best ? tr("Best hold:") : tr("Hold"), names.join(", "),
                     QString::number(result.expectedReturn, 'f', 4), Grouped(result.totalHands),
                     Grouped(result.totalHands - result.nothing));
        holds.push_back(hold);
    }
    const MachineSettings& settings = spare.settings;
    QStringList hand;
    for (const CardFace& card : cards) {
        if (card != CardFace()) hand << ShortName(card);
    }
    const QString subject =
        PictureSubject(settings.gameName, settings.activeTable, settings.bet, settings.coin,
                       QDate::currentDate().toString(Qt::ISODate));
    chart->SetSubject(hand.join(u' ') + " – " + subject,
                      tr("%1 hand").arg(QString::fromStdString(settings.gameName)));
    chart->ShowHolds(std::move(holds));
}

void HandAnalysisDialog::Save() {
    const QString game = QString::fromStdString(spare.settings.gameName);
    SaveReport(HandReport(spare, display), tr("%1 hand.txt").arg(game), this);
}
