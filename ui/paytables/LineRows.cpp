#include "ui/paytables/LineRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

#include "core/text/Numbers.h"
#include "game/paytables/PayTableLines.h"
#include "ui/parts/DialogParts.h"
#include "ui/paytables/RowHandle.h"

namespace {

constexpr int kFirstFigure = 8;  // column
constexpr int kFigures = 3;

QString Percent(const char* format, double percent) {
    return QString::fromStdString(FormatDouble(format, percent));
}

}  // namespace

LineRows::LineRows(FormFields& fields, PayTableEditor& editor, QWidget* parent)
    : QWidget(parent),
      fields(fields),
      editor(editor),
      layout(new QGridLayout(this)),
      dropMark(new QFrame(this)) {
    layout->setContentsMargins(6, 2, 6, 2);
    layout->setVerticalSpacing(2);
    for (int line = 0; line < kMaxPayLines; ++line) AddRow(line);
    layout->setColumnStretch(2, 3);
    layout->setColumnStretch(5, 1);
    layout->setColumnStretch(6, 1);
    layout->setRowStretch(kMaxPayLines, 1);
    dropMark->setFrameShape(QFrame::HLine);
    dropMark->setLineWidth(3);
    dropMark->setFrameShadow(QFrame::Plain);
    dropMark->hide();
}

QStringList LineRows::Headings() {
    return {"",
            tr("Hand Rank"),
            tr("Description"),
            tr("Pa&yout"),
            tr("Max Payout"),
            tr("Bonus/Quads"),
            tr("Kicker"),
            tr("Wilds OK"),
            tr("Probability %"),
            tr("Share %"),
            tr("+1 Coin %")};
}

QStringList LineRows::HeadingTips() {
    return {"",
            "",
            "",
            tr("Coins for each coin bet"),
            tr("Coins in all for a bet of exactly five"),
            "",
            "",
            "",
            tr("How often a hand ends on this line, played as the analysis plays it"),
            tr("How much of what all lines return comes from this one"),
            tr("What one coin more of Max Payout adds to the return: the probability of the line "
               "for each of the five coins, as long as the best holds stay the same")};
}

// Of the first row that has something to be seen there: what is hidden has no place.
QRect LineRows::ColumnRect(int column) const {
    int row = 0;
    while (row + 1 < kMaxPayLines && layout->itemAtPosition(row, column)->widget()->isHidden()) {
        ++row;
    }
    return layout->itemAtPosition(row, column)->widget()->geometry();
}

QRect LineRows::RowRect(int line) const {
    return rows[static_cast<std::size_t>(line)].handle->geometry();
}

void LineRows::SetLeastWidth(int column, int width) {
    layout->setColumnMinimumWidth(column, width);
}

void LineRows::AddRow(int line) {
    auto* handle = new RowHandle(line + 1, this);
    handle->setObjectName("handle" + QString::number(line));
    handle->setToolTip(
        tr("Drag the line to another place. A hand is paid on the first line that "
           "it matches."));
    connect(handle, &RowHandle::Dragged, this, [this, line](QPoint p) { MarkDrop(line, p); });
    connect(handle, &RowHandle::Dropped, this, [this, line](QPoint p) { Drop(line, p); });
    connect(handle, &RowHandle::GivenUp, this, [this] { dropMark->hide(); });
    layout->addWidget(handle, line, 0);
    AddFields(line);
    rows.push_back(MakeFigures(line));
    rows.back().handle = handle;
}

void LineRows::AddFields(int line) {
    using enum FormField;
    PayLineTexts& texts = editor.texts.lines[static_cast<std::size_t>(line)];
    int column = 1;
    layout->addWidget(fields.AddRankList(line), line, column++);
    const auto add = [&](const QString& caption, const char* name, int shown, std::string& text,
                         FormField field) {
        auto* box = fields.AddText(name + QString::number(line), shown, text, {field, line});
        box->setAccessibleName(tr("%1, line %2").arg(caption, QString::number(line + 1)));
        layout->addWidget(box, line, column++);
        return box;
    };
    add(tr("Description"), "description", 21, texts.description, kDescription);
    for (auto* box : {add(tr("Payout"), "payout", 7, texts.payout, kPayout),
                      add(tr("Max Payout"), "maxPayout", 7, texts.maxPayout, kMaxPayout)}) {
        box->setAlignment(Qt::AlignRight);
        box->setMaximumWidth(WidthOf(*box, 12));
    }
    for (auto* box : {add(tr("Bonus/Quads"), "bonusQuads", 12, texts.bonusQuads, kBonusQuads),
                      add(tr("Kicker"), "kicker", 9, texts.kickers, kKickers)}) {
        connect(box, &QLineEdit::textChanged, box, &QWidget::setToolTip);
    }
    auto* wildsOK = fields.AddCheck(
        "", "wildsOK" + QString::number(line), [&texts] { return texts.wildsOK; },
        [&texts](bool checked) { texts.wildsOK = checked; }, {kWildsOK, line});
    wildsOK->setAccessibleName(tr("Wilds OK, line %1").arg(line + 1));
    layout->addWidget(wildsOK, line, column, Qt::AlignHCenter);
}

LineRows::Row LineRows::MakeFigures(int line) {
    const QString number = QString::number(line);
    Row row{nullptr, {}, new QLabel(this)};
    int column = kFirstFigure;
    for (const char* name : {"probability", "share", "coinMore"}) {
        auto* label = new QLabel(this);
        label->setObjectName(name + number);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(label, line, column++);
        row.figures.push_back(label);
    }
    row.reason->setObjectName("reason" + number);
    row.reason->setWordWrap(true);
    QFont strong = font();
    strong.setBold(true);
    row.reason->setFont(strong);
    row.reason->hide();
    layout->addWidget(row.reason, line, kFirstFigure, 1, kFigures);
    return row;
}

void LineRows::ShowFigures(const std::optional<LiveResult>& result, bool isWaiting) {
    const int count = LineCount(editor.texts);
    for (int line = 0; line < kMaxPayLines; ++line) {
        const auto at = static_cast<std::size_t>(line);
        QString reason;
        if (line >= count && !IsBlank(editor.texts.lines[at])) {
            reason = tr("Not in the table: line %1 has no hand rank.").arg(count + 1);
        }
        const bool known = result && line < count && at < result->lines.size();
        if (known && result->unpaid) {
            const auto unpaid = std::ranges::find(*result->unpaid, line, &UnpaidLine::line);
            if (unpaid != result->unpaid->end()) {
                reason = QString::fromStdString(UnpaidText(*unpaid));
            }
        }
        ShowLine(line, known ? &result->lines[at] : nullptr, reason);
        ShowWaiting(line, isWaiting && known);
    }
}

void LineRows::ShowLine(int line, const LiveLine* figures, const QString& reason) {
    Row& row = rows[static_cast<std::size_t>(line)];
    const QString texts[kFigures] = {
        figures ? Percent("%.4f", figures->probability * 100) : QString(),
        figures ? Percent("%.4f", figures->sharePercent) : QString(),
        figures ? Percent("%.5f", figures->percentForCoin) : QString()};
    for (std::size_t i = 0; i < kFigures; ++i) {
        QLabel& label = *row.figures[i];
        label.setText(texts[i]);
        label.setVisible(reason.isEmpty());
        label.setToolTip(HeadingTips()[kFirstFigure + static_cast<int>(i)]);
        label.setAccessibleName(tr("%1, line %2: %3")
                                    .arg(Headings()[kFirstFigure + static_cast<int>(i)])
                                    .arg(line + 1)
                                    .arg(texts[i]));
    }
    row.reason->setText(reason);
    row.reason->setVisible(!reason.isEmpty());
    row.handle->setText(QString::number(line + 1) + (reason.isEmpty() ? "" : " !"));
    if (QWidget* rank = fields.ControlAt({FormField::kRank, line})) {
        rank->setAccessibleDescription(reason);
    }
}

void LineRows::ShowWaiting(int line, bool isWaiting) {
    const Row& row = rows[static_cast<std::size_t>(line)];
    for (QLabel* label : row.figures) label->setEnabled(!isWaiting);
    row.reason->setEnabled(!isWaiting);
}

void LineRows::SetMovable(bool movable) {
    for (const Row& row : rows) row.handle->SetMovable(movable);
}

// The line whose row is nearest to a height.
int LineRows::LineAt(int y) const {
    int line = 0;
    while (line + 1 < kMaxPayLines && y > RowRect(line).bottom()) ++line;
    return line;
}

void LineRows::MarkDrop(int from, QPoint place) {
    const QPoint at = mapFromGlobal(place);
    const int to = LineAt(at.y());
    const QRect row = RowRect(to);
    dropMark->setGeometry(0, (to > from ? row.bottom() : row.top()) - 2, width(), 4);
    dropMark->setVisible(to != from);
    dropMark->raise();
    emit DraggedTo(at);
}

void LineRows::Drop(int from, QPoint place) {
    dropMark->hide();
    const int to = LineAt(mapFromGlobal(place).y());
    if (to != from) emit Moved(from, to);
}
