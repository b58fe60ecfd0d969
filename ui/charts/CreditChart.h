// The course of a session's net gain, hand by hand, before what the exact analysis expects of it:
// the mean, and the exact band that nine of ten sessions lie in; where the bets differed, the bands
// of one and of two standard deviations instead. Where hands are drawn together, an
// upright line is what their gains ran through.
#pragma once
#include <cstddef>
#include <optional>
#include <vector>

#include "game/engine/CreditHistory.h"
#include "game/reports/ExpectedPlay.h"
#include "game/reports/SessionBand.h"
#include "ui/charts/Chart.h"

class CreditChart : public Chart {
    Q_OBJECT

  public:
    explicit CreditChart(QWidget* parent);

    // Shows the history as it is now. One without hands gives a chart that says so.
    void ShowSession(CreditHistory shown);

    // Draws what is expected behind the course; a note says of what it is, or why it is not there.
    // Without a band it is that of the standard deviations.
    void ShowExpected(const std::optional<ExpectedPlay>& shown, const QString& says,
                      std::vector<BandPoint> exact = {});

    QSize minimumSizeHint() const override;

    // Where the curve is drawn in the window, in logical pixels.
    QRectF Plot() const { return Plot(Screen()); }

    // A point is a stretch of the history, of one hand or more: "Hands 9 to 12: $5.00, between
    // $-1.25 and $20.00".
    int Points() const override { return static_cast<int>(history.Stretches().size()); }
    QString TextOf(int point) const override;
    QRect PlaceOf(int point) const override;
    int PointAt(QPoint place) const override;

  protected:
    QSizeF SizeFor(const ChartSheet& sheet) const override;
    void Draw(QPainter& painter, const ChartSheet& sheet) const override;
    QString Facts() const override;
    std::optional<int> PointAtRest() const override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    struct Axis {
        double from = 0;
        double to = 1;
        double step = 1;
    };
    struct Canvas;

    Axis AmountAxis() const;
    std::int64_t HandStep(const ChartSheet& sheet, const QRectF& plot) const;
    QRectF Plot(const ChartSheet& sheet) const;
    double XOf(const QRectF& plot, double hand) const;
    double YOf(const QRectF& plot, double value) const;
    std::int64_t FirstHandOf(int stretch) const;
    std::int64_t LastHandOf(int stretch) const;
    ExpectedGain ExpectedAt(int stretch) const;
    const BandPoint* BandAt(int stretch) const;
    QStringList LegendTexts() const;
    QList<int> Columns(const QRectF& plot) const;
    void DrawAmounts(const Canvas& canvas) const;
    void DrawHands(const Canvas& canvas) const;
    void DrawExpected(const Canvas& canvas) const;
    void DrawDeviations(const Canvas& canvas, double deviations, const QPen& edge) const;
    void DrawExactBand(const Canvas& canvas) const;
    void DrawBand(const Canvas& canvas, const QPolygonF& above, const QPolygonF& below,
                  const QPen& edge) const;
    void DrawCourse(const Canvas& canvas) const;
    void DrawKey(const Canvas& canvas) const;
    void DrawMark(const Canvas& canvas) const;

    CreditHistory history;
    std::optional<ExpectedPlay> expected;
    std::vector<BandPoint> band;  // in the order of the hands
    QString note;
    Axis amounts;
};
