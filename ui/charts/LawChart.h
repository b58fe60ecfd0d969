// The law of a session as a picture: a bar for each range of results, as high as its chance, plain
// where the session loses and hatched where it wins, and an upright line where the player's own
// result is.
#pragma once
#include <optional>
#include <vector>

#include "game/reports/LawBars.h"
#include "ui/charts/PictureChart.h"

class LawChart : public PictureChart {
    Q_OBJECT

  public:
    LawChart(const char* name, const QString& title, QWidget* parent);

    // The text says what the line of the player's own result is; the note is shown instead of bars
    // where there are none.
    void ShowLaw(std::vector<LawBar> shown, std::optional<double> own, const QString& ownText,
                 const QString& note);

    int Points() const override { return static_cast<int>(bars.size()); }
    QString TextOf(int point) const override;
    QRect PlaceOf(int point) const override;
    int PointAt(QPoint place) const override;

    QSize minimumSizeHint() const override;

  protected:
    QSizeF SizeFor(const ChartSheet& sheet) const override;
    void Draw(QPainter& painter, const ChartSheet& sheet) const override;
    QString Facts() const override;

  private:
    struct Canvas;

    QRectF Plot(const ChartSheet& sheet) const;
    double XOf(const QRectF& plot, double dollars) const;
    double HighestShare() const;
    bool OwnIsShown() const;
    QStringList LegendTexts() const;
    void DrawChances(const Canvas& canvas) const;
    void DrawAmounts(const Canvas& canvas) const;
    void DrawBars(const Canvas& canvas) const;
    void DrawOwn(const Canvas& canvas) const;
    void DrawKey(const Canvas& canvas) const;

    std::vector<LawBar> bars;
    std::optional<double> own;  // dollars
    QString ownText;
    QString note;
};
