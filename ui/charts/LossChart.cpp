#include "ui/charts/LossChart.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "core/text/Numbers.h"

namespace {

constexpr int kLeastPower = -7;  // a smaller loss is shown as none
constexpr int kMostMarks = 12;   // of lines

// In line heights.
constexpr double kTop = 0.8;
constexpr double kFoot = 2.8;
constexpr double kSide = 2.5;
constexpr double kDot = 0.22;

QString PowerText(int power) {
    return QString::number(std::pow(10, power), 'f', std::max(-power, 0)) + QObject::tr(" %");
}

}  // namespace

LossChart::LossChart(QWidget* parent)
    : PictureChart("lossChart", tr("Loss by the number of lines"), parent) {
    FiguresChanged();
}

void LossChart::ShowLosses(QList<Point> shown, double bestPlay) {
    if (points == shown && best == bestPlay) return;
    points = std::move(shown);
    best = bestPlay;
    marked = -1;
    least = 0;
    most = 0;
    for (const Point& point : points) {
        const double power = std::log10(std::max(point.loss, std::pow(10, kLeastPower)));
        least = std::min(least, static_cast<int>(std::floor(power)));
        most = std::max(most, static_cast<int>(std::ceil(power)));
    }
    least = std::min(least, most - 1);
    FiguresChanged();
}

void LossChart::Mark(int lines) {
    const auto found = std::ranges::find(points, lines, &Point::lines);
    const int point = found == points.end() ? -1 : static_cast<int>(found - points.begin());
    if (point == marked) return;
    marked = point;
    setAccessibleDescription(Facts());
    update();
}

QSizeF LossChart::SizeFor(const ChartSheet& sheet) const {
    return {sheet.Character() * 80, sheet.Line() * 22};
}

QSize LossChart::minimumSizeHint() const {
    const QFontMetrics font(this->font());
    return {font.averageCharWidth() * 40, font.lineSpacing() * 9};
}

QString LossChart::TextOf(int point) const {
    const auto& [lines, loss] = points[point];
    const QString percent = QString::fromStdString(FormatDouble("%.4f", loss));
    const QString back = QString::fromStdString(FormatDouble("%.4f", best - loss));
    return (lines == 1 ? tr("%1 line: %2 % lost, %3 % returned")
                       : tr("%1 lines: %2 % lost, %3 % returned"))
        .arg(QString::number(lines), percent, back);
}

QString LossChart::Facts() const {
    if (points.isEmpty()) return tr("No chart has been found yet.");
    QStringList facts{TextOf(0), TextOf(Points() - 1)};
    if (marked >= 0) facts.prepend(TextOf(marked));
    return facts.join('\n');
}

std::optional<int> LossChart::PointAtRest() const {
    return marked >= 0 ? std::optional(marked) : std::nullopt;
}

QRectF LossChart::Plot(const ChartSheet& sheet) const {
    const double line = sheet.Line();
    const double labels = std::max(sheet.WidthOf(PowerText(least)), sheet.WidthOf(PowerText(most)));
    return sheet.area.adjusted(labels + kSide * line, kTop * line, -line, -kFoot * line);
}

double LossChart::YOf(const QRectF& plot, double loss) const {
    const double power = std::log10(std::max(loss, std::pow(10, least)));
    return plot.bottom() - plot.height() * (power - least) / (most - least);
}

QPointF LossChart::At(const QRectF& plot, const Point& point) const {
    const double first = points.first().lines;
    const double span = std::max(points.last().lines - points.first().lines, 1);
    return {plot.left() + plot.width() * (point.lines - first) / span, YOf(plot, point.loss)};
}

QRect LossChart::PlaceOf(int point) const {
    const ChartSheet sheet = Screen();
    const QPointF at = At(Plot(sheet), points[point]);
    const double half = sheet.Line() / 2;
    return QRectF(at.x() - half, at.y() - half, 2 * half, 2 * half).toAlignedRect();
}

// The nearest one across.
int LossChart::PointAt(QPoint place) const {
    if (points.isEmpty()) return -1;
    const QRectF plot = Plot(Screen());
    if (place.y() < plot.top() || place.y() > plot.bottom()) return -1;
    const auto apart = [&](const Point& point) {
        return std::abs(At(plot, point).x() - place.x());
    };
    return static_cast<int>(std::ranges::min_element(points, {}, apart) - points.begin());
}

void LossChart::Draw(QPainter& painter, const ChartSheet& sheet) const {
    painter.setFont(sheet.font);
    if (points.isEmpty()) {
        painter.drawText(sheet.area, Qt::AlignCenter | Qt::TextWordWrap,
                         tr("No chart has been found yet."));
        return;
    }
    const QRectF plot = Plot(sheet);
    if (plot.width() < 1 || plot.height() < 1) return;
    DrawLosses(painter, sheet, plot);
    DrawLines(painter, sheet, plot);
    DrawCourse(painter, sheet, plot);
}

void LossChart::DrawLosses(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const {
    const double line = sheet.Line();
    for (int power = least; power <= most; ++power) {
        const double y = OnPixel(YOf(plot, std::pow(10, power)));
        painter.setPen(QPen(sheet.colours.line, 1));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(sheet.colours.text);
        painter.drawText(QRectF(sheet.area.left(), y - line / 2,
                                plot.left() - sheet.area.left() - 0.5 * line, line),
                         Qt::AlignRight | Qt::AlignVCenter, PowerText(power));
    }
    painter.save();
    painter.translate(sheet.area.left() + 0.9 * line, plot.center().y());
    painter.rotate(-90);
    painter.drawText(QRectF(-plot.height() / 2, -line / 2, plot.height(), line), Qt::AlignCenter,
                     tr("Loss"));
    painter.restore();
}

void LossChart::DrawLines(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const {
    const double line = sheet.Line();
    const int span = points.last().lines - points.first().lines;
    const int step = static_cast<int>(RoundStep(static_cast<double>(span) / kMostMarks, 1));
    for (int lines = points.first().lines; lines <= points.last().lines; ++lines) {
        if (lines % step != 0) continue;
        const double x = OnPixel(At(plot, {lines, 1}).x());
        painter.setPen(QPen(sheet.colours.line, 1));
        painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom() + 0.3 * line));
        painter.setPen(sheet.colours.text);
        const QString number = QString::number(lines);
        const double width = sheet.WidthOf(number) + 2;
        painter.drawText(QRectF(x - width / 2, plot.bottom() + 0.35 * line, width, line),
                         Qt::AlignCenter, number);
    }
    painter.setPen(sheet.colours.text);
    painter.drawText(QRectF(plot.left(), plot.bottom() + 1.4 * line, plot.width(), line),
                     Qt::AlignCenter, tr("Lines"));
}

void LossChart::DrawCourse(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const {
    const double dot = kDot * sheet.Line();
    QPolygonF course;
    for (const Point& point : points) course << At(plot, point);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(sheet.colours.first, 1.5));
    painter.drawPolyline(course);
    for (int i = 0; i < Points(); ++i) {
        painter.setPen(QPen(sheet.colours.first, 1));
        painter.setBrush(sheet.colours.first);
        painter.drawEllipse(course[i], dot, dot);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(sheet.colours.text, 1.5));
    if (marked >= 0) painter.drawEllipse(course[marked], 2 * dot, 2 * dot);
    if (sheet.read) {
        const double x = OnPixel(course[*sheet.read].x());
        painter.setPen(sheet.colours.text);
        painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
    }
}

void LossChart::keyPressEvent(QKeyEvent* event) {
    const bool chooses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                         event->key() == Qt::Key_Space;
    if (!chooses || !read) return PictureChart::keyPressEvent(event);
    emit Chosen(points[*read].lines);
}

void LossChart::mousePressEvent(QMouseEvent* event) {
    const int point = PointAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || point < 0) return PictureChart::mousePressEvent(event);
    setFocus();
    emit Chosen(points[point].lines);
}
