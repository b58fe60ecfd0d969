// What each pay line adds to the return and to the variance of a game, as two bars beside each
// other. The one is plain and the other hatched, and each has its number.
#pragma once
#include <QWidget>
#include <vector>

#include "game/reports/GameReport.h"

class ShareChart : public QWidget {
    Q_OBJECT

  public:
    explicit ShareChart(QWidget* parent);

    // Without lines the chart says that there is nothing to show.
    void SetShares(std::vector<LineShare> shown);

    // Room for all lines; more is used up, less is scrolled by whatever holds the chart.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QRectF RowOf(std::size_t line) const;
    double LabelWidth() const;
    double ScaleEnd() const;
    void DrawLegend(QPainter& painter) const;
    void DrawRow(QPainter& painter, std::size_t line) const;

    std::vector<LineShare> shares;
};
