#include "ui/table/CMorvikView.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimerEvent>
#include <utility>

#include "ui/table/ActionQueue.h"
#include "ui/table/SceneDescription.h"
#include "ui/table/SceneDisplay.h"
#include "ui/table/TableKeys.h"
#include "ui/table/TablePainter.h"

namespace {

// With these a key is a shortcut, not one of the table's.
constexpr Qt::KeyboardModifiers kShortcutModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

constexpr int kAnnouncementDelay = 50;  // milliseconds after the last repaint

// Describes the table whenever it is asked, so that a screen reader that comes late misses nothing.
class TableInterface : public QAccessibleWidget {
  public:
    explicit TableInterface(CMorvikView& shownView)
        : QAccessibleWidget(&shownView), view(shownView) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? view.Description()
                                                : QAccessibleWidget::text(kind);
    }

  private:
    const CMorvikView& view;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* view = qobject_cast<CMorvikView*>(object);
    return view ? new TableInterface(*view) : nullptr;
}

}  // namespace

CMorvikView::CMorvikView(GameTable& shownTable, const TableScene& shownScene, SceneDisplay& display,
                         PictureStore& store, ActionQueue& queue, std::function<void(int)> command)
    : table(shownTable),
      scene(shownScene),
      actions(queue),
      pictures(store),
      input(shownTable, display, places, std::move(command)) {
    setObjectName("table");
    QAccessible::installFactory(MakeInterface);  // before the name, which makes the interface
    setAccessibleName(tr("Video poker table"));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(kMinimumTableSize);
    setAttribute(Qt::WA_OpaquePaintEvent);
    display.relaidOut = [this] { LayOutTable(); };
}

QSize CMorvikView::sizeHint() const { return {1024, 700}; }

void CMorvikView::LayOutTable() {
    const auto laidOut = LayOut(size(), ShapeOf(table.engine.payTable), measure);
    if (laidOut) places = *laidOut;
    update();
}

void CMorvikView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    PaintTable(painter, event->rect(), scene, places, table.engine.payTable,
               table.engine.deck.table, pictures);
    if (QAccessible::isActive()) announcementDue.start(kAnnouncementDelay, this);
}

// What is read aloud follows what is seen, but only once nothing moves any more.
void CMorvikView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != announcementDue.timerId()) {
        QWidget::timerEvent(event);
    } else if (!actions.Busy()) {
        announcementDue.stop();
        AnnounceChange();
    }
}

QString CMorvikView::Description() const {
    return QString::fromStdString(Describe(scene, table.engine.payTable, table.engine.deck.table));
}

void CMorvikView::AnnounceChange() {
    const QString words = Description();
    if (words == announced) return;
    announced = words;
    QAccessibleEvent change(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&change);
}

void CMorvikView::resizeEvent(QResizeEvent*) { LayOutTable(); }

// Any input ends a count-up that is running, and is handled when the flow that runs has ended.
void CMorvikView::Handle(std::function<void()> action) {
    table.engine.stopCountUp = true;
    actions.Run(std::move(action));
}

void CMorvikView::mousePressEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::LeftButton) Handle([=, this] { input.Press(point); });
    if (event->button() == Qt::RightButton) Handle([=, this] { input.RightPress(point); });
}

void CMorvikView::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::LeftButton) Handle([=, this] { input.Release(point); });
}

// A quick second press is a press as well, or fast players would lose every other one.
void CMorvikView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
    } else if (places.PayTablePanel().contains(point)) {
        Handle([=, this] { input.DoublePress(point); });
    } else {
        Handle([=, this] { input.Press(point); });
    }
}

void CMorvikView::keyPressEvent(QKeyEvent* event) {
    table.engine.stopCountUp = true;
    if ((event->modifiers() & kShortcutModifiers) != 0) {
        QWidget::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        keysDown.insert(TableKeyOf(event->key(), PlaceOf(*event)));
    }
}

void CMorvikView::keyReleaseEvent(QKeyEvent* event) {
    const int key = TableKeyOf(event->key(), PlaceOf(*event));
    if (event->isAutoRepeat() || !keysDown.remove(key)) return;
    Handle([=, this] { input.Key(key); });
}

void CMorvikView::LetButtonsGo() {
    actions.Run([this] { input.ReleaseButtons(); });
}

void CMorvikView::focusOutEvent(QFocusEvent* event) {
    keysDown.clear();
    LetButtonsGo();
    QWidget::focusOutEvent(event);
}
