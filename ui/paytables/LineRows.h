// The fifteen lines of the pay table manager: a row of fields each, and beside it what the analysis
// says of it.
#pragma once
#include <QWidget>
#include <vector>

#include "game/paytables/LiveAnalysis.h"
#include "ui/paytables/FormFields.h"

class QFrame;
class QGridLayout;
class QLabel;
class RowHandle;

class LineRows : public QWidget {
    Q_OBJECT

  public:
    // Both outlive it.
    LineRows(FormFields& fields, PayTableEditor& editor, QWidget* parent);

    // What stands above the columns, from the numbers of the lines on.
    static QStringList Headings();
    static QStringList HeadingTips();

    // Where what stands in a column is, and that the column is at least so wide.
    QRect ColumnRect(int column) const;
    void SetLeastWidth(int column, int width);

    // Nothing where there is nothing to say. Grey while others are reckoned.
    void ShowFigures(const std::optional<LiveResult>& result, bool isWaiting);

    // Whether the lines can be dragged.
    void SetMovable(bool movable);

  signals:
    void Moved(int from, int to);  // a line was dragged, the others close up
    void DraggedTo(QPoint place);  // of the widget, to be kept in sight

  private:
    struct Row {
        RowHandle* handle;
        std::vector<QLabel*> figures;  // probability, share, a coin more
        QLabel* reason;                // why there are none
    };

    void AddRow(int line);
    void AddFields(int line);
    Row MakeFigures(int line);
    void ShowLine(int line, const LiveLine* figures, const QString& reason);
    void ShowWaiting(int line, bool isWaiting);
    QRect RowRect(int line) const;
    int LineAt(int y) const;
    void MarkDrop(int from, QPoint place);
    void Drop(int from, QPoint place);

    FormFields& fields;
    PayTableEditor& editor;
    QGridLayout* layout;
    std::vector<Row> rows;
    QFrame* dropMark;
};
