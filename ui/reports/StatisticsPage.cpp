#include "ui/reports/StatisticsPage.h"

#include <QDateTime>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/LineTableCache.h"
#include "core/analysis/StartThread.h"
#include "game/reports/StatisticsRows.h"
#include "ui/charts/CreditChart.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/ReportBox.h"
#include "ui/reports/ReportFrame.h"
#include "ui/tables/ReportTableView.h"

namespace {

// Of the width of the columns before the last one.
constexpr double kLabelShare = 0.65;
constexpr qreal kSmallestFont = 6.0;    // points
constexpr double kShareOfScreen = 0.8;  // of a page put aside, whose window needs some room too
constexpr int kBorder = 4;              // within a frame; the dialog holds much for a small screen

// In average characters, where the screen has the room: enough for the names of the built-in games.
constexpr int kLongestLabel = 32;

struct ColumnWidths {
    int label = 0;
    int session = 0;
};

// A report with the labels of its lines cut to a width. What is cut is added to the list in whole.
QString WithLabelsCut(const std::string& report, const QFontMetrics& font, int width,
                      QStringList& cut) {
    QStringList lines = QString::fromStdString(report).split(u'\n');
    for (QString& line : lines) {
        const QString label = line.section(u'\t', 0, 0);
        if (!line.contains(u'\t') || font.horizontalAdvance(label) <= width) continue;
        line.replace(0, label.size(), font.elidedText(label, Qt::ElideRight, width));
        cut.append(label);
    }
    return lines.join(u'\n');
}

void Widen(ColumnWidths& widths, const QFontMetrics& font, const QList<std::string>& reports) {
    for (const std::string& report : reports) {
        for (const QString& line : QString::fromStdString(report).split(u'\n')) {
            const QStringList cells = line.split(u'\t');
            if (cells.size() < 3) continue;
            widths.label = std::max(widths.label, font.horizontalAdvance(cells[0]));
            widths.session = std::max(widths.session, font.horizontalAdvance(cells[1]));
        }
    }
}

}  // namespace

StatisticsPage::StatisticsPage(const GameEngine& shown, std::int64_t now,
                               const GameEngine* playersOwn, QWidget* parent,
                               std::optional<ExpectedPlay> known)
    : ReportPage(parent), taken(now), player(playersOwn), tabs(new QTabWidget(this)) {
    const auto take = [this](int run, const ExpectedPlay& found,
                             const std::vector<BandPoint>& exact) {
        if (run != runs) return;
        expected = found;
        band = exact;
        ShowExpected();
    };
    connect(this, &StatisticsPage::Analyzed, this, take, Qt::QueuedConnection);
    Take(shown);
    expected = std::move(known);
    tabs->setObjectName("tabs");
    chart = new CreditChart(this);
    table = new ReportTableView("statisticsTable", tr("Play statistics"), this);
    tabs->addTab(MakeReports(), tr("R&eport"));
    tabs->addTab(chart, tr("&Session"));
    tabs->addTab(table, tr("&Table"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tabs);
    MakeTexts();
    ShowReports(QFontInfo(font()).pointSizeF());
    ShowFigures();
}

// What needs other objects is left out: they may go before this page.
void StatisticsPage::Take(const GameEngine& from) {
    if (WithoutWins(from.payTable) != WithoutWins(engine.payTable)) expected.reset();
    band.clear();
    engine = from;
    engine.lineTables = nullptr;
    engine.lineTableCache = nullptr;
    if (engine.statistics.handsPlayed.session <= 0) engine.creditHistory = {};
}

QString StatisticsPage::Caption() const {
    return (player ? tr("Game Play Analysis: %1(%2)") : tr("Autoplay: %1(%2)"))
        .arg(QString::fromStdString(engine.settings.gameName))
        .arg(engine.settings.activeTable);
}

std::unique_ptr<ReportPage> StatisticsPage::Copy() const {
    auto copy = std::make_unique<StatisticsPage>(engine, taken, player, nullptr, expected);
    copy->FitInto(screen()->availableSize() * kShareOfScreen);
    return copy;
}

void StatisticsPage::Refresh() {
    if (!player) return;
    Take(*player);
    taken = QDateTime::currentSecsSinceEpoch();
    MakeTexts();
    SetTabStops();
    for (Section& section : sections) ShowReport(section, section.shown);
    ShowFigures();
    emit CaptionChanged();
}

void StatisticsPage::KeepIn(ReportFrame& frame) {
    frame.Keep(*tabs);
    frame.Keep(*table);
    frame.KeepDisplay(*displayChoice);
}

QWidget* StatisticsPage::MakeReports() {
    auto* reports = new QWidget(this);
    reports->setObjectName("reports");
    auto* layout = new QGridLayout(reports);
    AddBox(*layout, 0, 0, tr("Hands"), "hands");
    AddBox(*layout, 1, 0, tr("Credits"), "credits");
    AddBox(*layout, 1, 1, tr("Errors"), "errors");
    AddBox(*layout, 0, 1, tr("Pay Table"), "lines");
    const auto show = [this](int chosen) { ShowReport(sections.last(), chosen); };
    displayChoice = DisplayChoice({{tr("&Hands"), "displayHands"},
                                   {tr("&Frequency"), "displayFrequency"},
                                   {tr("% of &Return"), "displayShare"}},
                                  show, reports);
    displayChoice->layout()->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    layout->addWidget(displayChoice, 2, 0, 1, 2, Qt::AlignLeft);
    return reports;
}

void StatisticsPage::AddBox(QGridLayout& layout, int row, int column, const QString& title,
                            const char* name) {
    auto* group = new QGroupBox(title);
    auto* box = new ReportBox(name, title, group);
    box->saveAs = [this] { Save(); };
    auto* inside = new QVBoxLayout(group);
    inside->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    inside->addWidget(box);
    layout.addWidget(group, row, column);
    sections.append(Section{box, {}});
}

// In the order of the boxes.
void StatisticsPage::MakeTexts() {
    sections[0].reports = {StatisticsHands(engine, taken)};
    sections[1].reports = {StatisticsCredits(engine)};
    sections[2].reports = {StatisticsErrors(engine)};
    sections[3].reports = {StatisticsLines(engine, StatisticsDisplay::kHands),
                           StatisticsLines(engine, StatisticsDisplay::kFrequency),
                           StatisticsLines(engine, StatisticsDisplay::kShareOfReturn)};
}

void StatisticsPage::ShowFigures() {
    const MachineSettings& settings = engine.settings;
    const QString name = QString::fromStdString(settings.gameName);
    const QString date = QDateTime::fromSecsSinceEpoch(taken).date().toString(Qt::ISODate);
    chart->ShowSession(engine.creditHistory);
    chart->SetSubject(
        PictureSubject(settings.gameName, settings.activeTable, settings.bet, settings.coin, date),
        tr("%1 session").arg(name));
    table->SetFileName(tr("%1 statistics").arg(name));
    ShowExpected();
    Analyze();
}

// What an earlier analysis has told, and is not shown yet, is of other figures.
void StatisticsPage::Analyze() {
    const int run = ++runs;
    analysis = {};
    if (!CanAnalyzeGame(engine.payTable)) return;
    analysis = StartThread([this, run, of = engine.payTable, known = expected,
                            history = engine.creditHistory](const std::stop_token& stop) {
        const auto goesOn = [&stop] { return !stop.stop_requested(); };
        LineTableCache tables;
        const auto found = known ? known : AnalyzePlay(of, tables, goesOn);
        if (!found) return;
        const auto exact = SessionBand(history, *found, of, goesOn);
        if (goesOn()) emit Analyzed(run, *found, exact);
    });
}

void StatisticsPage::ShowExpected() {
    QString note =
        tr("Expected, with its standard deviations: of the best play of these hands as "
           "they were bet, without bonuses and double ups.");
    if (!band.empty()) {
        note =
            tr("Expected, and where nine of ten sessions lie by their exact law: of the best "
               "play of these hands as they were bet, without bonuses and double ups.");
    }
    if (!expected && CanAnalyzeGame(engine.payTable)) {
        note = tr("What is expected is being analysed.");
    } else if (!expected) {
        note = tr("What is expected is not known: there is no exact analysis of this game.");
    }
    chart->ShowExpected(expected, note, band);
    table->SetTable(StatisticsRows(engine, expected, taken));
}

// In a font of so many points. Each box is as large as the largest of its reports asks for, and
// shows the first one.
void StatisticsPage::ShowReports(qreal fontSize) {
    QFont used = font();
    used.setPointSizeF(fontSize);
    for (const Section& section : sections) section.box->UseFont(used);
    SetTabStops();
    for (Section& section : sections) {
        for (int i = 0; i < section.reports.size(); ++i) {
            ShowReport(section, i);
            section.box->FitToText();
        }
        ShowReport(section, 0);
    }
}

// The labels that are cut can be read in whole where the pointer rests on the box.
void StatisticsPage::ShowReport(Section& section, int chosen) {
    QStringList cut;
    const QFontMetrics letters(section.box->font());
    const QString text = WithLabelsCut(section.reports[chosen], letters, labelWidth, cut);
    section.shown = chosen;
    section.box->ShowReport(text.toStdString());
    section.box->setAccessibleDescription(cut.join(u'\n'));
    section.box->setToolTip(
        cut.isEmpty() ? QString() : "<qt>" + cut.join(u'\n').toHtmlEscaped().replace("\n", "<br>"));
}

// All boxes have the same stops, two thirds and the whole of a width in which every value of the
// session finds room, and every label but a long name that a player has made.
void StatisticsPage::SetTabStops() {
    const QFontMetrics letters(sections.first().box->font());
    ColumnWidths widths;
    ColumnWidths made;  // of the pay table, which comes last
    for (const Section& section : sections) {
        Widen(&section == &sections.last() ? made : widths, letters, section.reports);
    }
    const int longest = namesHaveRoom ? kLongestLabel * letters.averageCharWidth() : 0;
    labelWidth = std::max(widths.label, std::min(made.label, longest));
    const int session = std::max(widths.session, made.session);
    const int gap = 2 * letters.averageCharWidth();
    const double width =
        std::max((labelWidth + gap) / kLabelShare, (session + gap) / (1 - kLabelShare));
    for (const Section& section : sections) {
        section.box->SetTabStops({kLabelShare * width, width});
    }
}

// Cut names, and then smaller letters, are read more easily than reports behind scroll bars.
void StatisticsPage::FitInto(const QSize& room) {
    qreal fontSize = QFontInfo(font()).pointSizeF();
    const auto fits = [&] { return WantedSize().boundedTo(room) == WantedSize(); };
    namesHaveRoom = true;
    ShowReports(fontSize);
    namesHaveRoom = fits();
    if (!namesHaveRoom) ShowReports(fontSize);
    while (!fits() && fontSize > kSmallestFont) {
        fontSize -= 0.5;
        ShowReports(fontSize);
    }
    updateGeometry();
}

// While they are hidden, the layouts around a box do not pass on that it asks for another size.
QSize StatisticsPage::WantedSize() const {
    for (const Section& section : sections) {
        for (QWidget* part = section.box; part != this; part = part->parentWidget()) {
            part->updateGeometry();
        }
    }
    return sizeHint();
}

void StatisticsPage::Save() {
    std::string report;
    for (const Section& section : sections) {
        if (!report.empty()) report += "\r\n";
        report += section.box->accessibleName().toStdString() + "\r\n";
        report += section.reports[section.shown];
    }
    const QString name =
        tr("%1 statistics.txt").arg(QString::fromStdString(engine.settings.gameName));
    SaveReport(report, name, this);
}
