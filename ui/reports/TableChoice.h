// The pay tables that can be analysed, in a list to choose from.
#pragma once
#include <QComboBox>
#include <optional>

#include "game/reports/AllGamesRows.h"

class TableChoice : public QComboBox {
    Q_OBJECT

  public:
    explicit TableChoice(QWidget* parent);

    // Keeps the chosen one where it is still there; otherwise the given one is.
    void SetTables(std::vector<ListedTable> tables, const TableOfGame& otherwise);

    // Nothing while there is none to choose from.
    const ListedTable* Chosen() const;
    void Choose(const TableOfGame& place);

  private:
    std::vector<ListedTable> listed;
};

// "Jacks or Better, table 0".
QString NameOfTable(const TableOfGame& place);
