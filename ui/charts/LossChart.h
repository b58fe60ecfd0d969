// What the best strategy chart of each length loses: percent of the bet against the number of
// lines, each mark of the loss being a tenth of the one above.
#pragma once
#include "ui/charts/PictureChart.h"

class LossChart : public PictureChart {
    Q_OBJECT

  public:
    struct Point {
        int lines = 0;
        double loss = 0;  // percent
        bool operator==(const Point&) const = default;
    };

    explicit LossChart(QWidget* parent);

    // By rising lines and falling loss; best is what the best play returns, in percent. Without
    // points it says that there are none.
    void ShowLosses(QList<Point> shown, double best);

    // The point of so many lines is marked.
    void Mark(int lines);

    QSize minimumSizeHint() const override;

    int Points() const override { return static_cast<int>(points.size()); }
    QString TextOf(int point) const override;
    QRect PlaceOf(int point) const override;
    int PointAt(QPoint place) const override;

  signals:
    void Chosen(int lines);  // by a click, Enter or the space bar on a point

  protected:
    QSizeF SizeFor(const ChartSheet& sheet) const override;
    void Draw(QPainter& painter, const ChartSheet& sheet) const override;
    QString Facts() const override;
    std::optional<int> PointAtRest() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QRectF Plot(const ChartSheet& sheet) const;
    QPointF At(const QRectF& plot, const Point& point) const;
    double YOf(const QRectF& plot, double loss) const;
    void DrawLosses(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const;
    void DrawLines(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const;
    void DrawCourse(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const;

    QList<Point> points;
    double best = 0;
    int marked = -1;  // point
    int least = 0;    // powers of ten at the ends of the axis
    int most = 1;
};
