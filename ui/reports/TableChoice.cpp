#include "ui/reports/TableChoice.h"

#include <algorithm>

#include "core/analysis/GameAnalysis.h"
#include "ui/parts/DialogParts.h"

namespace {

constexpr int kShownCharacters = 24;

}  // namespace

TableChoice::TableChoice(QWidget* parent) : QComboBox(parent) {
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kShownCharacters);
    setMaxVisibleItems(20);
}

void TableChoice::SetTables(std::vector<ListedTable> tables, const TableOfGame& otherwise) {
    const TableOfGame chosen = Chosen() ? Chosen()->place : otherwise;
    std::erase_if(tables, [](const ListedTable& table) { return !CanAnalyzeGame(table.table); });
    const QSignalBlocker quiet(this);
    listed = std::move(tables);
    clear();
    for (const ListedTable& table : listed) addItem(NameOfTable(table.place));
    Choose(chosen);
}

const ListedTable* TableChoice::Chosen() const {
    const int at = currentIndex();
    return at < 0 || at >= static_cast<int>(listed.size()) ? nullptr
                                                           : &listed[static_cast<std::size_t>(at)];
}

void TableChoice::Choose(const TableOfGame& place) {
    const auto found = std::ranges::find_if(listed, [&place](const ListedTable& table) {
        return table.place.gameId == place.gameId && table.place.tableIndex == place.tableIndex;
    });
    if (found != listed.end()) setCurrentIndex(static_cast<int>(found - listed.begin()));
}

QString NameOfTable(const TableOfGame& place) {
    return QObject::tr("%1, table %2")
        .arg(QString::fromStdString(place.gameName))
        .arg(place.tableIndex);
}
