#include "ui/dialogs/StatisticsDialog.h"

#include <QDialogButtonBox>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
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
constexpr qreal kSmallestFont = 6.0;  // points
constexpr int kBorder = 4;            // within a frame; the dialog holds much for a small screen

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
    tabs->addTab(MakeReports(engine, now), tr("R&eport"));
    const bool played = engine.statistics.handsPlayed.session > 0;
    tabs->addTab(new CreditChart(played ? engine.creditHistory : CreditHistory(),
                                 {engine.settings.showDollar, engine.settings.coin}, tabs),
                 tr("&Session"));

    auto* buttons = OkAlone(*this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
    FitToScreen();
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

QWidget* StatisticsDialog::MakeReports(const GameEngine& engine, std::int64_t now) {
    auto* reports = new QWidget(this);
    auto* layout = new QGridLayout(reports);
    const QList<std::string> ofLines(lineReports.begin(), lineReports.end());
    AddBox(*layout, 0, 0, tr("Hands"), "hands", {StatisticsHands(engine, now)});
    AddBox(*layout, 1, 0, tr("Credits"), "credits", {StatisticsCredits(engine)});
    AddBox(*layout, 1, 1, tr("Errors"), "errors", {StatisticsErrors(engine)});
    lines = AddBox(*layout, 0, 1, tr("Pay Table"), "lines", ofLines);
    const auto show = [this](int chosen) {
        lines->ShowReport(lineReports[static_cast<std::size_t>(chosen)]);
    };
    auto* choice = DisplayChoice({{tr("&Hands"), "displayHands"},
                                  {tr("&Frequency"), "displayFrequency"},
                                  {tr("% of &Return"), "displayShare"}},
                                 show, reports);
    choice->layout()->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    layout->addWidget(choice, 2, 0, 1, 2, Qt::AlignLeft);
    return reports;
}

ReportBox* StatisticsDialog::AddBox(QGridLayout& layout, int row, int column, const QString& title,
                                    const char* name, const QList<std::string>& reports) {
    auto* group = new QGroupBox(title);
    auto* box = new ReportBox(name, title, group);
    box->saveAs = [this] { Save(); };
    auto* inside = new QVBoxLayout(group);
    inside->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    inside->addWidget(box);
    layout.addWidget(group, row, column);
    sections.append({box, reports});
    return box;
}

// In a font of so many points. Each box is as large as the largest of its reports asks for, and
// shows the first one.
void StatisticsDialog::ShowReports(qreal fontSize) {
    QFont used = font();
    used.setPointSizeF(fontSize);
    for (const Section& section : sections) section.box->UseFont(used);
    SetTabStops();
    for (const auto& [box, reports] : sections) {
        for (const std::string& report : reports) {
            box->ShowReport(report);
            box->FitToText();
        }
        box->ShowReport(reports.first());
    }
}

// All boxes have the same stops, two thirds and the whole of a width in which every label and every
// value of the session finds room.
void StatisticsDialog::SetTabStops() {
    const QFontMetrics letters(lines->font());
    ColumnWidths widths;
    for (const Section& section : sections) {
        for (const std::string& report : section.reports) Widen(widths, letters, report);
    }
    const int gap = 2 * letters.averageCharWidth();
    const double width =
        std::max((widths.label + gap) / kLabelShare, (widths.session + gap) / (1 - kLabelShare));
    for (const Section& section : sections) {
        section.box->SetTabStops({kLabelShare * width, width});
    }
}

// Smaller letters are read more easily than reports behind scroll bars.
void StatisticsDialog::FitToScreen() {
    const QSize room = screen()->availableSize() * 0.95;
    qreal fontSize = QFontInfo(font()).pointSizeF();
    ShowReports(fontSize);
    while (WantedSize().boundedTo(room) != WantedSize() && fontSize > kSmallestFont) {
        fontSize -= 0.5;
        ShowReports(fontSize);
    }
    resize(WantedSize().boundedTo(room));
}

// While they are hidden, the layouts around a box do not pass on that it asks for another size.
QSize StatisticsDialog::WantedSize() const {
    for (const Section& section : sections) {
        for (QWidget* part = section.box; part != this; part = part->parentWidget()) {
            part->updateGeometry();
        }
    }
    return sizeHint();
}

void StatisticsDialog::Save() {
    QString report;
    for (const auto& [box, reports] : sections) {
        report += box->accessibleName() + '\n' + box->toPlainText() + "\n\n";
    }
    report.chop(1);
    const QString name = tr("%1 statistics.txt").arg(QString::fromStdString(gameName));
    SaveReport(report.toStdString(), name, this);
}
