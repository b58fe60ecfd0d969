// The course of a session's net gain, hand by hand. The pointer, or the arrow keys, read single
// hands; where hands are drawn together, an upright line is what their gains ran through.
#pragma once
#include <QWidget>
#include <cstddef>
#include <optional>

#include "game/engine/CreditHistory.h"

class CreditChart : public QWidget {
    Q_OBJECT

  public:
    // Shows the history as it is now. One without hands gives a chart that says so.
    CreditChart(CreditHistory shown, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Where the curve is drawn, in logical pixels.
    QRectF Plot() const;

    // What is said of a stretch of the history: "Hands 9 to 12: $5.00, between $-1.25 and $20.00".
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

    struct Sheet;

    Axis AmountAxis() const;
    std::int64_t HandStep() const;  // between the numbers below the plot
    double XOf(const QRectF& plot, double hand) const;
    double YOf(const QRectF& plot, double value) const;
    double HandsUntil(std::size_t stretch) const;  // the number of its last hand
    std::size_t StretchAt(double x) const;
    void Read(std::optional<std::size_t> stretch);
    void DrawAmounts(const Sheet& sheet) const;
    void DrawHands(const Sheet& sheet) const;
    void DrawEven(const Sheet& sheet) const;
    void DrawCourse(const Sheet& sheet) const;
    void DrawReading(const Sheet& sheet) const;

    CreditHistory history;
    Axis amounts;
    std::optional<std::size_t> read;  // the stretch under the pointer
};
