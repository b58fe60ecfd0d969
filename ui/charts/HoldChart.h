// A bar chart of what the holds of a hand return, one row for each. Beside its bar a hold shows its
// cards and its return; all about it stands in its tool tip. The best ones are marked by a word and
// a heavier print, not by their colour alone.
#pragma once
#include <QStringList>
#include <vector>

#include "ui/charts/PictureChart.h"

class HoldChart : public PictureChart {
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

    int Points() const override { return static_cast<int>(holds.size()); }
    QString TextOf(int point) const override;
    QString NoteOf(int point) const override;
    QRect PlaceOf(int point) const override { return RowRect(point); }
    int PointAt(QPoint place) const override { return RowAt(place); }

  protected:
    QSizeF SizeFor(const ChartSheet& sheet) const override;
    void Draw(QPainter& painter, const ChartSheet& sheet) const override;
    QString Facts() const override;

  private:
    struct Columns;

    Columns Measure(const ChartSheet& sheet) const;
    QRectF RowOn(const ChartSheet& sheet, const Columns& columns, int row) const;
    void DrawAxis(QPainter& painter, const ChartSheet& sheet, const Columns& columns) const;
    void DrawRow(QPainter& painter, const ChartSheet& sheet, const Columns& columns, int row) const;

    std::vector<Hold> holds;
};
