// A bar chart of what the holds of a hand return, one row for each. Beside its bar a hold shows its
// cards and its return; all about it stands in its tool tip. The best ones are marked by a word and
// a heavier print, not by their colour alone.
#pragma once
#include <QStringList>
#include <QWidget>
#include <vector>

class HoldChart : public QWidget {
    Q_OBJECT

  public:
    struct Hold {
        QStringList cards;  // a text for each place of the hand
        double value = 0;   // dollars, 0 or more
        QString note;       // the tool tip
        bool best = false;
    };

    explicit HoldChart(QWidget* parent);

    // From top to bottom. Without holds the chart says that there is no hand.
    void ShowHolds(std::vector<Hold> shown);

    const std::vector<Hold>& Holds() const { return holds; }

    // The row that lies at the point, all across the chart; -1 for none.
    int RowAt(QPoint point) const;
    QRect RowRect(int row) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Columns;

    Columns Measure() const;
    void PaintAxis(QPainter& painter, const Columns& columns) const;
    void PaintRow(QPainter& painter, const Columns& columns, int row) const;
    void PaintBar(QPainter& painter, const QRectF& bar, bool best) const;

    std::vector<Hold> holds;
};
