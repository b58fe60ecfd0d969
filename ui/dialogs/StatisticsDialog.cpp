#include "ui/dialogs/StatisticsDialog.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "game/GameEngine.h"
#include "ui/dialogs/CreditChart.h"
#include "ui/dialogs/DialogParts.h"
#include "ui/dialogs/FileQuestions.h"
#include "ui/dialogs/ReportBox.h"

namespace {

// Of the width of the columns before the last one.
constexpr double kLabelShare = 0.65;

struct ColumnWidths {
    int label = 0;
    int session = 0;
};

void Widen(ColumnWidths& widths, const QFontMetrics& font, const std::string& report) {
    for (const QString& line : QString::fromStdString(report).split(u'\n')) {
        const QStringList cells = line.split(u'\t');
        if (cells.size() < 3) continue;
        widths.label = std::max(widths.label, font.horizontalAdvance(cells[0]));
        widths.session = std::max(widths.session, font.horizontalAdvance(cells[1]));
    }
}

ReportBox* AddBox(QGridLayout& layout, int row, int column, const QString& title,
                  const char* name) {
    auto* group = new QGroupBox(title);
    auto* box = new ReportBox(name, title, group);
    auto* inside = new QVBoxLayout(group);
    inside->addWidget(box);
    layout.addWidget(group, row, column);
    return box;
}

}  // namespace

StatisticsDialog::StatisticsDialog(const GameEngine& engine, std::int64_t now, QWidget* parent)
    : QDialog(parent),
      gameName(engine.settings.gameName),
      lineReports{StatisticsLines(engine, StatisticsDisplay::kHands),
                  StatisticsLines(engine, StatisticsDisplay::kFrequency),
                  StatisticsLines(engine, StatisticsDisplay::kShareOfReturn)} {
    setObjectName("statistics");
    setWindowTitle(tr("Game Play Analysis"));
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName("tabs");
    tabs->addTab(MakeReports(engine, now), tr("Report"));
    const bool played = engine.statistics.handsPlayed.session > 0;
    tabs->addTab(new CreditChart(played ? engine.creditHistory : CreditHistory(),
                                 {engine.settings.showDollar, engine.settings.coin}, tabs),
                 tr("Session"));

    auto* buttons = OkAlone(*this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
    resize(sizeHint().boundedTo(screen()->availableSize() * 0.95));
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

QWidget* StatisticsDialog::MakeReports(const GameEngine& engine, std::int64_t now) {
    auto* reports = new QWidget(this);
    auto* layout = new QGridLayout(reports);
    hands = AddBox(*layout, 0, 0, tr("Hands"), "hands");
    credits = AddBox(*layout, 1, 0, tr("Credits"), "credits");
    errors = AddBox(*layout, 1, 1, tr("Errors"), "errors");
    lines = AddBox(*layout, 0, 1, tr("Pay Table"), "lines");
    const std::string handsReport = StatisticsHands(engine, now);
    const std::string creditsReport = StatisticsCredits(engine);
    const std::string errorsReport = StatisticsErrors(engine);
    SetTabStops(
        {handsReport, creditsReport, errorsReport, lineReports[0], lineReports[1], lineReports[2]});
    hands->ShowReport(handsReport);
    credits->ShowReport(creditsReport);
    errors->ShowReport(errorsReport);
    for (const std::string& report : lineReports) {
        lines->ShowReport(report);
        lines->FitToText();
    }
    lines->ShowReport(lineReports[0]);
    for (ReportBox* box : {hands, credits, errors, lines}) {
        box->FitToText();
        box->saveAs = [this] { Save(); };
    }
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(MakeDisplayChoice());
    bottom->addStretch();
    layout->addLayout(bottom, 2, 0, 1, 2);
    return reports;
}

// All boxes have the same stops, two thirds and the whole of a width in which every label and every
// value of the session finds room.
void StatisticsDialog::SetTabStops(const QList<std::string>& reports) {
    const QFontMetrics font(hands->font());
    ColumnWidths widths;
    for (const std::string& report : reports) Widen(widths, font, report);
    const int gap = 2 * font.averageCharWidth();
    const double width =
        std::max((widths.label + gap) / kLabelShare, (widths.session + gap) / (1 - kLabelShare));
    for (ReportBox* box : {hands, credits, errors, lines}) {
        box->SetTabStops({kLabelShare * width, width});
    }
}

QWidget* StatisticsDialog::MakeDisplayChoice() {
    auto* group = new QGroupBox(tr("Display"), this);
    group->setObjectName("display");
    auto* choice = new QButtonGroup(group);
    auto* layout = new QHBoxLayout(group);
    const auto add = [&](const QString& caption, const char* name, StatisticsDisplay display) {
        auto* radio = new QRadioButton(caption, group);
        radio->setObjectName(name);
        choice->addButton(radio, static_cast<int>(display));
        layout->addWidget(radio);
    };
    add(tr("&Hands"), "displayHands", StatisticsDisplay::kHands);
    add(tr("&Frequency"), "displayFrequency", StatisticsDisplay::kFrequency);
    add(tr("% of &Return"), "displayShare", StatisticsDisplay::kShareOfReturn);
    choice->button(static_cast<int>(StatisticsDisplay::kHands))->setChecked(true);
    connect(choice, &QButtonGroup::idToggled, this, [this](int display, bool checked) {
        if (checked) lines->ShowReport(lineReports[static_cast<std::size_t>(display)]);
    });
    return group;
}

void StatisticsDialog::Save() {
    QString report;
    for (const ReportBox* box : {hands, credits, errors, lines}) {
        report += box->accessibleName() + '\n' + box->toPlainText() + "\n\n";
    }
    report.chop(1);
    const QString name = tr("%1 statistics.txt").arg(QString::fromStdString(gameName));
    SaveReport(report.toStdString(), name, this);
}
