// What stands above a report's table: in small type what the figures belong to and, in a band, why
// they must not be trusted. Either is only there when there is something to say.
#pragma once
#include <QWidget>

struct ReportTable;
class QLabel;
class WarningBand;

class TableHead : public QWidget {
    Q_OBJECT

  public:
    explicit TableHead(QWidget* parent);

    void ShowHead(const ReportTable& table);

    // All that it says, the warning first.
    QString InWords() const;

  private:
    QLabel* head;
    WarningBand* warning;
};
