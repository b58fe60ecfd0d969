#include "ui/charts/ChartAccess.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>
#include <map>

#include "ui/charts/ChartPoints.h"

namespace {

class PointAccess : public QAccessibleInterface {
  public:
    PointAccess(QWidget& ofChart, const ChartPoints& points, int of)
        : chart(ofChart), points(points), point(of) {}

    bool isValid() const override { return point < points.Points(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return chart.window()->windowHandle(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&chart);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? points.TextOf(point) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override {
        const QRect place = points.PlaceOf(point);
        return {chart.mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !chart.isVisible();
        state.readOnly = state.focusable = state.selectable = true;
        state.focused = state.selected = chart.hasFocus() && points.Read() == point;
        return state;
    }

    int Point() const { return point; }

  private:
    QWidget& chart;
    const ChartPoints& points;
    int point;
};

// The widgets in the chart come before its points.
class ChartAccess : public QAccessibleWidget {
  public:
    ChartAccess(QWidget& ofChart, const ChartPoints& points)
        : QAccessibleWidget(&ofChart, QAccessible::Chart), chart(ofChart), points(points) {}
    ~ChartAccess() override {
        for (const auto& [point, access] : made) {
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(access));
        }
    }
    ChartAccess(const ChartAccess&) = delete;
    ChartAccess& operator=(const ChartAccess&) = delete;

    int childCount() const override { return QAccessibleWidget::childCount() + points.Points(); }
    QAccessibleInterface* child(int index) const override {
        const int widgets = QAccessibleWidget::childCount();
        if (index < widgets) return QAccessibleWidget::child(index);
        return index < childCount() ? Point(index - widgets) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        if (const auto* point = dynamic_cast<const PointAccess*>(wanted)) {
            return QAccessibleWidget::childCount() + point->Point();
        }
        return QAccessibleWidget::indexOfChild(wanted);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        if (auto* part = QAccessibleWidget::childAt(x, y)) return part;
        const int point = points.PointAt(chart.mapFromGlobal(QPoint(x, y)));
        return point < 0 ? nullptr : Point(point);
    }

    // A session may have thousands, so they are made when somebody asks.
    PointAccess* Point(int point) const {
        PointAccess*& access = made[point];
        if (!access) {
            access = new PointAccess(chart, points, point);
            QAccessible::registerAccessibleInterface(access);
        }
        return access;
    }

  private:
    QWidget& chart;
    const ChartPoints& points;
    mutable std::map<int, PointAccess*> made;  // of the accessibility's own registry
};

QAccessibleInterface* MakeAccess(const QString& /*name*/, QObject* object) {
    auto* chart = qobject_cast<QWidget*>(object);
    const auto* points = dynamic_cast<const ChartPoints*>(object);
    return chart && points ? new ChartAccess(*chart, *points) : nullptr;
}

}  // namespace

void InstallChartAccess() {
    static const bool kInstalled = [] {
        QAccessible::installFactory(MakeAccess);
        return true;
    }();
    Q_UNUSED(kInstalled)
}

void TellPoint(QWidget& chart, int point) {
    if (!QAccessible::isActive()) return;
    auto* access = dynamic_cast<ChartAccess*>(QAccessible::queryAccessibleInterface(&chart));
    if (access) {
        QAccessibleEvent event(access->Point(point), QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}
