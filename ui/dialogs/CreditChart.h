// The course of a session's credits, hand by hand. The pointer, or the arrow keys, read single
// hands; where hands are drawn together, an upright line is what their credits ran through.
#pragma once
#include <QWidget>
#include <cstddef>
#include <optional>

#include "game/CreditHistory.h"

// Credits as the machine shows them.
struct CreditUnit {
    bool dollars = true;
    double coin = 1;  // dollars for a credit
};

class CreditChart : public QWidget {
    Q_OBJECT

  public:
    // Shows the history as it is now. One without hands gives a chart that says so.
    CreditChart(CreditHistory shown, CreditUnit unit, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Where the curve is drawn, in logical pixels.
    QRectF Plot() const;

    // What is said of a stretch of the history: "Hands 9 to 12: $95.00, between $90.00 and
    // $110.00".
    QString TextOf(std::size_t stretch) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    struct Axis {
        double from = 0;
        double to = 1;
        double step = 1;
    };

    QString Amount(double value) const;  // in credits or dollars
    double Value(std::int32_t credits) const;
    Axis AmountAxis() const;
    std::int64_t HandStep() const;  // between the numbers below the plot
    double XOf(const QRectF& plot, double hand) const;
    double YOf(const QRectF& plot, double value) const;
    double HandsUntil(std::size_t stretch) const;  // the number of its last hand
    std::size_t StretchAt(double x) const;
    void Read(std::optional<std::size_t> stretch);
    void DrawAmounts(QPainter& painter) const;
    void DrawHands(QPainter& painter) const;
    void DrawStart(QPainter& painter) const;
    void DrawCourse(QPainter& painter) const;
    void DrawReading(QPainter& painter) const;

    CreditHistory history;
    CreditUnit unit;
    Axis amounts;
    std::optional<std::size_t> read;  // the stretch under the pointer
};
