// What each pay line adds to the return and to the variance of a game, as two bars beside each
// other. The one is plain and the other hatched, and each has its number.
#pragma once
#include <vector>

#include "game/reports/GameReport.h"
#include "ui/charts/PictureChart.h"

class ShareChart : public PictureChart {
    Q_OBJECT

  public:
    explicit ShareChart(QWidget* parent);

    // Without lines the chart says that there is nothing to show.
    void SetShares(std::vector<LineShare> shown);

    int Points() const override { return static_cast<int>(shares.size()); }
    QString TextOf(int point) const override;
    QString NoteOf(int point) const override;
    QRect PlaceOf(int point) const override;
    int PointAt(QPoint place) const override;

  protected:
    // Room for all lines; more is used up, less is scrolled by whatever holds the chart.
    QSizeF SizeFor(const ChartSheet& sheet) const override;
    void Draw(QPainter& painter, const ChartSheet& sheet) const override;
    QString Facts() const override;

  private:
    struct Columns;

    Columns Measure(const ChartSheet& sheet) const;
    QRectF RowOn(const ChartSheet& sheet, int line) const;
    double LabelWidth(const ChartSheet& sheet) const;
    double ScaleEnd() const;
    void DrawHead(QPainter& painter, const ChartSheet& sheet) const;
    void DrawAxis(QPainter& painter, const ChartSheet& sheet) const;
    void DrawRow(QPainter& painter, const ChartSheet& sheet, int line) const;

    std::vector<LineShare> shares;
};
