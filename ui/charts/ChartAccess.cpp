#include "ui/charts/ChartAccess.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <map>

#include "ui/charts/Chart.h"

namespace {

class PointAccess : public QAccessibleInterface {
  public:
    PointAccess(const Chart& ofChart, int of) : chart(ofChart), point(of) {}

    bool isValid() const override { return point < chart.Points(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return chart.window()->windowHandle(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(const_cast<Chart*>(&chart));
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? chart.TextOf(point) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override {
        const QRect place = chart.PlaceOf(point);
        return {chart.mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !chart.isVisible();
        state.readOnly = state.focusable = state.selectable = true;
        state.focused = state.selected = chart.hasFocus() && chart.Read() == point;
        return state;
    }

    int Point() const { return point; }

  private:
    const Chart& chart;
    int point;
};

// The widgets in the chart come before its points.
class ChartAccess : public QAccessibleWidget {
  public:
    explicit ChartAccess(Chart& of) : QAccessibleWidget(&of, QAccessible::Chart), chart(of) {}
    ~ChartAccess() override {
        for (const auto& [point, made] : points) {
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(made));
        }
    }
    ChartAccess(const ChartAccess&) = delete;
    ChartAccess& operator=(const ChartAccess&) = delete;

    int childCount() const override { return QAccessibleWidget::childCount() + chart.Points(); }
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
        const int point = chart.PointAt(chart.mapFromGlobal(QPoint(x, y)));
        return point < 0 ? nullptr : Point(point);
    }

    // A session may have thousands, so they are made when somebody asks.
    PointAccess* Point(int point) const {
        auto& made = points[point];
        if (!made) {
            made = new PointAccess(chart, point);
            QAccessible::registerAccessibleInterface(made);
        }
        return made;
    }

  private:
    Chart& chart;
    mutable std::map<int, PointAccess*> points;  // of the accessibility's own registry
};

QAccessibleInterface* MakeAccess(const QString& /*name*/, QObject* object) {
    auto* chart = qobject_cast<Chart*>(object);
    return chart ? new ChartAccess(*chart) : nullptr;
}

}  // namespace

void InstallChartAccess() {
    static const bool kInstalled = [] {
        QAccessible::installFactory(MakeAccess);
        return true;
    }();
    Q_UNUSED(kInstalled)
}

void TellPoint(Chart& chart, int point) {
    if (!QAccessible::isActive()) return;
    auto* access = dynamic_cast<ChartAccess*>(QAccessible::queryAccessibleInterface(&chart));
    if (access) {
        QAccessibleEvent event(access->Point(point), QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}
