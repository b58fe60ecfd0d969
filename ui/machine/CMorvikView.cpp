#include "ui/machine/CMorvikView.h"

#include <QAccessibleWidget>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QTimerEvent>
#include <utility>

#include "ui/machine/ChangedRegion.h"
#include "ui/machine/MachineKeys.h"
#include "ui/machine/MachinePainter.h"
#include "ui/machine/SceneDescription.h"

namespace {

// With these a key is a shortcut, not one of the machine's.
constexpr Qt::KeyboardModifiers kShortcutModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

constexpr int kFrameTime = 16;  // milliseconds

constexpr int kAnnouncementDelay = 50;  // milliseconds after the last repaint

// Describes the machine whenever it is asked, so that a screen reader that comes late misses
// nothing.
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

std::function<std::int64_t()> ElapsedTime() {
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

}  // namespace

CMorvikView::CMorvikView(Seat& shownSeat, PictureStore& store, ActionQueue& queue,
                         KeyCommands commands)
    : motionTime(ElapsedTime()),
      seat(shownSeat),
      shown(shownSeat.scene),
      actions(queue),
      pictures(store),
      input(shownSeat, places, std::move(commands)) {
    setObjectName("table");
    QAccessible::installFactory(MakeInterface);  // before the name, which makes the interface
    setAccessibleName(tr("Video poker table"));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(kMinimumMachineSize);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize CMorvikView::sizeHint() const { return {1024, 700}; }

void CMorvikView::LayOutMachine() {
    const auto laidOut = LayOut(size(), ShapeOf(seat.engine.payTable), measure);
    if (laidOut) places = *laidOut;
    StopMoving();
    shown = seat.scene;
    update();
}

void CMorvikView::ShowScene() {
    if (shown == seat.scene) return;
    const PayTable& payTable = seat.engine.payTable;
    QRegion changed = ChangedRegion(shown, seat.scene, payTable, places);
    if (MayMove()) {
        const int pause = DelaysOf(seat.engine.settings.speed).card;
        motion.Change(shown, seat.scene, payTable, pause, motionTime());
    } else {
        motion.End();
    }
    shown = seat.scene;
    changed += NextFrame();
    if (!changed.isEmpty()) update(changed);
}

bool CMorvikView::MayMove() const {
    const QStyle* drawnBy = style();
    return animation && !reducedMotion && isVisible() &&
           drawnBy->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
}

// What a frame paints is settled before, not when it is painted: the window may have to paint parts
// of it at different times. Returns what looks different from the frame before.
QRegion CMorvikView::NextFrame() {
    const std::int64_t time = motionTime();
    const bool moves = motion.Moves(time);
    const Moment next = moves ? motion.At(time) : Moment{};
    const QRegion changed = ChangedRegion(moment, next, shown, places);
    moment = next;
    if (moves && !frameDue.isActive()) frameDue.start(kFrameTime, Qt::PreciseTimer, this);
    if (!moves) {
        frameDue.stop();
        snapshots = {};
    }
    return changed;
}

void CMorvikView::StopMoving() {
    motion.End();
    const QRegion changed = NextFrame();
    if (!changed.isEmpty()) update(changed);
}

void CMorvikView::SetAnimation(bool on) {
    animation = on;
    if (!on) StopMoving();
}

void CMorvikView::SetReducedMotion(bool wished) {
    reducedMotion = wished;
    if (wished) StopMoving();
}

void CMorvikView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    PaintMachine(painter, event->region(), shown, places, seat.engine.payTable,
                 seat.engine.deck.table, pictures, moment, &snapshots);
    if (QAccessible::isActive()) announcementDue.start(kAnnouncementDelay, this);
}

// What is read aloud follows what is seen, but only once nothing moves any more.
void CMorvikView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == frameDue.timerId()) {
        const QRegion changed = NextFrame();
        if (!changed.isEmpty()) update(changed);
    } else if (event->timerId() != announcementDue.timerId()) {
        QWidget::timerEvent(event);
    } else if (!actions.Busy()) {
        announcementDue.stop();
        AnnounceChange();
    }
}

QString CMorvikView::Description() const {
    return QString::fromStdString(
        Describe(seat.scene, seat.engine.payTable, seat.engine.deck.table));
}

void CMorvikView::AnnounceChange() {
    const QString words = Description();
    if (words == announced) return;
    announced = words;
    QAccessibleEvent change(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&change);
}

void CMorvikView::resizeEvent(QResizeEvent*) { LayOutMachine(); }

// Whatever is pressed ends a count-up, and has all that moves arrive.
bool CMorvikView::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            actions.EndCountUp();
            StopMoving();
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

void CMorvikView::mousePressEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::LeftButton) {
        leftDown = true;
        actions.Begin(leftPress, input.KindAt(point), [=, this] { input.Press(point); });
    } else if (event->button() == Qt::RightButton) {
        actions.Begin(rightPress, PressKind::kDraw, [=, this] { input.RightPress(point); });
    }
}

// A button that was down when a flow began goes up with the finger, whatever becomes of the press.
void CMorvikView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint point = event->position().toPoint();
    input.ReleaseButtons();
    if (!std::exchange(leftDown, false)) return;
    const PressInHand press = leftPress;
    const PressKind kind = places.deal.contains(point) ? PressKind::kDraw : press->kind;
    const bool done = actions.Finish(press, kind, [=, this] { input.Release(point); });
    // The press itself may still be waiting to show its button down.
    if (!done && press->state == Press::State::kWaits) LetButtonsGo();
}

// A quick second press is a press as well, or fast players would lose every other one; but not when
// the first has only ended a count-up.
void CMorvikView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    const bool left = event->button() == Qt::LeftButton;
    const PressInHand& first = left ? leftPress : rightPress;
    if (first && first->state == Press::State::kUsedUp) return;
    if (left && places.PayTablePanel().contains(point)) {
        leftDown = true;
        actions.Begin(leftPress, PressKind::kOther, [=, this] { input.DoublePress(point); });
    } else {
        mousePressEvent(event);
    }
}

void CMorvikView::keyPressEvent(QKeyEvent* event) {
    const int key = TableKeyOf(event->key(), PlaceOf(*event));
    if ((event->modifiers() & kShortcutModifiers) != 0) {
        QWidget::keyPressEvent(event);
    } else if (event->isAutoRepeat() || !input.IsMachineKey(key)) {
        if (seat.engine.countingUp) keysDown.remove(key);
    } else {
        BeginKey(key);
    }
}

// A key acts when it is let go, but a hold of the hand that is being dealt as soon as that lies
// there: the draw that was pressed after it may be let go before it.
void CMorvikView::BeginKey(int key) {
    const PressKind kind = MachineInput::KindOf(key);
    if (seat.dealing && kind == PressKind::kHold) {
        PressInHand hold;
        actions.Begin(hold, kind, [=, this] { input.Key(key); });
    } else {
        actions.Begin(keysDown[key], kind, {});
    }
}

void CMorvikView::keyReleaseEvent(QKeyEvent* event) {
    const int key = TableKeyOf(event->key(), PlaceOf(*event));
    if (event->isAutoRepeat()) return;
    const PressInHand press = keysDown.take(key);
    if (press) actions.Finish(press, press->kind, [=, this] { input.Key(key); });
}

void CMorvikView::LetButtonsGo() {
    actions.Run([this] { input.ReleaseButtons(); });
}

void CMorvikView::ForgetPresses() {
    leftDown = false;
    LetButtonsGo();
}

void CMorvikView::focusOutEvent(QFocusEvent* event) {
    for (const PressInHand& press : std::as_const(keysDown)) press->state = Press::State::kRefused;
    keysDown.clear();
    LetButtonsGo();
    QWidget::focusOutEvent(event);
}
