#include "ui/tables/ReportTableModel.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <utility>

#include "game/reports/ReportText.h"
#include "ui/parts/SmallCard.h"

namespace {

// "ace of spades, no card, king of hearts"
QString Spoken(const std::vector<CardFace>& cards) {
    QStringList names;
    for (const CardFace& card : cards) names.append(NameOf(card));
    return names.join(", ");
}

// The mark is heard with the first cell, in which its sign is seen.
QString SpokenCell(const ReportRow& row, const ReportCell& cell, int column) {
    const QString text =
        cell.cards.empty() ? QString::fromStdString(cell.text) : Spoken(cell.cards);
    const QString mark = column == 0 ? QString::fromStdString(MarkWord(row)) : QString();
    return mark.isEmpty() ? text : mark + ": " + text;
}

bool HasValue(const ReportCell& cell) { return cell.value && !std::isnan(*cell.value); }

}  // namespace

void ReportTableModel::SetTable(ReportTable shown) {
    beginResetModel();
    table = std::move(shown);
    marks = std::ranges::any_of(table.rows,
                                [](const ReportRow& row) { return row.mark != RowMark::kNone; });
    endResetModel();
}

const ReportRow& ReportTableModel::RowOf(const QModelIndex& index) const {
    return table.rows.at(static_cast<std::size_t>(index.row()));
}

const ReportCell* ReportTableModel::CellAt(const QModelIndex& index) const {
    if (!index.isValid()) return nullptr;
    const auto& cells = RowOf(index).cells;
    const auto column = static_cast<std::size_t>(index.column());
    return column < cells.size() ? &cells[column] : nullptr;
}

int ReportTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table.rows.size());
}

int ReportTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table.columns.size());
}

QVariant ReportTableModel::data(const QModelIndex& index, int role) const {
    const ReportCell* cell = CellAt(index);
    if (!cell) return {};
    const ReportRow& row = RowOf(index);
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(cell->text);
        case Qt::AccessibleTextRole:
            return SpokenCell(row, *cell, index.column());
        case Qt::ToolTipRole: {
            const QString mark = QString::fromStdString(MarkWord(row)).toHtmlEscaped();
            const QString text = SpokenCell(row, *cell, -1).toHtmlEscaped();
            return "<p>" + (mark.isEmpty() || text.isEmpty() ? mark + text : mark + ": " + text);
        }
        case Qt::TextAlignmentRole: {
            const bool number = table.columns[static_cast<std::size_t>(index.column())].number;
            return QVariant::fromValue((number ? Qt::AlignRight : Qt::AlignLeft) |
                                       Qt::AlignVCenter);
        }
        default:
            return {};
    }
}

QVariant ReportTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const ReportColumn& column = table.columns[static_cast<std::size_t>(section)];
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(Heading(column));
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return QString::fromStdString(column.tip);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue((column.number ? Qt::AlignRight : Qt::AlignLeft) |
                                       Qt::AlignVCenter);
        default:
            return {};
    }
}

SortedReport::SortedReport(ReportTableModel& source, QObject* parent)
    : QSortFilterProxyModel(parent), source(source) {
    setSourceModel(&source);
    setFilterKeyColumn(-1);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
}

// Below zero for a before b, zero for equal ones.
int SortedReport::Compare(const ReportCell& a, const ReportCell& b, int column) const {
    if (!source.Table().columns[static_cast<std::size_t>(column)].number) {
        return QString::fromStdString(a.text).compare(QString::fromStdString(b.text),
                                                      Qt::CaseInsensitive);
    }
    // Downwards, the question comes with its sides exchanged.
    const int valueFirst = sortOrder() == Qt::AscendingOrder ? -1 : 1;
    if (HasValue(a) != HasValue(b)) return HasValue(a) ? valueFirst : -valueFirst;
    if (!HasValue(a) || *a.value == *b.value) return 0;
    return *a.value < *b.value ? -1 : 1;
}

// The rows may stand in the order of another column already, so being stable is not enough.
bool SortedReport::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const ReportCell* a = source.CellAt(left);
    const ReportCell* b = source.CellAt(right);
    if (!a || !b) return false;
    const int order = Compare(*a, *b, left.column());
    if (order != 0) return order < 0;
    return sortOrder() == Qt::AscendingOrder ? left.row() < right.row() : left.row() > right.row();
}
