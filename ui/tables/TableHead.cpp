#include "ui/tables/TableHead.h"

#include <QFontInfo>
#include <QLabel>
#include <QStringList>
#include <QVBoxLayout>

#include "game/reports/ReportTable.h"
#include "ui/parts/WarningBand.h"

namespace {

constexpr double kHeadSize = 0.9;  // of the font
constexpr const char* kBetweenFacts = "   ";

QLabel* TextLine(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    return label;
}

// A label is not parted from the beginning of its value.
QString HeadText(const ReportTable& table) {
    QStringList facts;
    for (const ReportFact& fact : table.head) {
        const QString label = QString::fromStdString(fact.label) + u':' + QChar(QChar::Nbsp);
        facts.append(label + QString::fromStdString(fact.value));
    }
    return facts.join(kBetweenFacts);
}

}  // namespace

TableHead::TableHead(QWidget* parent)
    : QWidget(parent), head(TextLine("head", this)), warning(new WarningBand("warning", this)) {
    QFont small = font();
    small.setPointSizeF(QFontInfo(small).pointSizeF() * kHeadSize);
    head->setFont(small);
    warning->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(head);
    layout->addWidget(warning);
}

void TableHead::ShowHead(const ReportTable& table) {
    const QString facts = HeadText(table);
    head->setText(facts);
    head->setToolTip(facts.toHtmlEscaped().replace(kBetweenFacts, "<br>"));
    head->setVisible(!facts.isEmpty());
    const QString told = QString::fromStdString(table.warning);
    warning->Warn(told);
    setVisible(!facts.isEmpty() || !told.isEmpty());
}

QString TableHead::InWords() const {
    const QString told = warning->accessibleName();
    return told.isEmpty() ? head->text() : told + "\n" + head->text();
}
