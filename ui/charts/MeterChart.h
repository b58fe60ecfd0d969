// The return of a game against the meter of a growing line, with the meter at which the game is
// even.
#pragma once
#include <functional>

#include "ui/charts/PictureChart.h"

class MeterChart : public PictureChart {
    Q_OBJECT

  public:
    // What is drawn, percent by coins, between two meters.
    struct Curve {
        double first = 0;
        double last = 0;  // above the first; otherwise there is nothing to draw
        std::function<double(double coins)> percent;
        QString nothing;  // said when there is nothing to draw
    };

    explicit MeterChart(QWidget* parent);

    void SetCurve(Curve shown);
    void SetMeter(double coins);  // marked on the curve

    int Points() const override;
    QString TextOf(int point) const override;
    QRect PlaceOf(int point) const override;
    int PointAt(QPoint place) const override;
    QSize minimumSizeHint() const override;

  protected:
    QSizeF SizeFor(const ChartSheet& sheet) const override;
    void Draw(QPainter& painter, const ChartSheet& sheet) const override;
    QString Facts() const override;

  private:
    double CoinsOf(int point) const;
    double Low() const;
    double High() const;
    QRectF Plot(const ChartSheet& sheet) const;
    QPointF PlaceOn(const QRectF& plot, double coins, double percent) const;
    void DrawScales(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const;
    void DrawCurve(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const;

    Curve curve;
    double meter = 0;
};
