#include "ui/machine/CMorvikView.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QTimerEvent>
#include <QToolTip>
#include <utility>

#include "ui/machine/ChangedRegion.h"
#include "ui/machine/MachineAccess.h"
#include "ui/machine/MachineKeys.h"
#include "ui/machine/MachinePainter.h"
#include "ui/machine/MachineTips.h"
#include "ui/machine/SceneDescription.h"

namespace {

// With these a key is a shortcut, not one of the machine's.
constexpr Qt::KeyboardModifiers kShortcutModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

constexpr int kFrameTime = 16;  // milliseconds

constexpr int kAnnouncementDelay = 50;  // milliseconds after a repaint

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* view = qobject_cast<CMorvikView*>(object);
    return view ? new MachineAccess(*view, *view) : nullptr;
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
    setMouseTracking(true);
}

QSize CMorvikView::sizeHint() const { return kLargestMachineSize; }

void CMorvikView::LayOutMachine() {
    const MachineFit fitted = MachineFit::Into(size());
    if (const auto laidOut = LayOut(fitted.table, ShapeOf(seat.engine.payTable), measure)) {
        fit = fitted;
        places = *laidOut;
    }
    StopMoving();
    shown = seat.scene;
    update();
    LightButton();
    emit LaidOut();
}

void CMorvikView::SetCardStyle(const CardStyle& style) {
    if (style == cardStyle) return;
    cardStyle = style;
    StopMoving();  // with what is kept of the cards as they were
    update();
}

void CMorvikView::ShowScene() {
    LightButton();
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
    Repaint(changed);
}

void CMorvikView::Repaint(const QRegion& inTable) {
    if (!inTable.isEmpty()) update(fit.ToClient(inTable));
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
    QRegion changed = ChangedRegion(moment, next, shown, places);
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
    Repaint(NextFrame());
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
    PaintMachine(painter, event->region(), shown, fit, places, seat.engine.payTable,
                 seat.engine.deck.table, pictures, cardStyle, moment, &snapshots);
    PaintLight(painter);
    const bool isDue = announcementDue.isActive();
    if (QAccessible::isActive() && !isDue) announcementDue.start(kAnnouncementDelay, this);
}

// What is read aloud follows what is seen, but only once nothing moves any more.
void CMorvikView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == frameDue.timerId()) {
        Repaint(NextFrame());
    } else if (event->timerId() != announcementDue.timerId()) {
        QWidget::timerEvent(event);
    } else if (!actions.Busy()) {
        announcementDue.stop();
        if (auto* access = MachineAccess::Of(*this)) access->TellChanges();
    }
}

QString CMorvikView::Description() const {
    return QString::fromStdString(
        Describe(seat.scene, seat.engine.payTable, seat.engine.deck.table));
}

QRect CMorvikView::OnScreen(const QRect& place) const {
    const QRect inView = fit.ToClient(place);
    return {mapToGlobal(inView.topLeft()), inView.size()};
}

void CMorvikView::Tap(QPoint point) {
    QMetaObject::invokeMethod(this, "TapNow", Qt::QueuedConnection, Q_ARG(QPoint, point));
}

// As a click goes, which no dialog lets through to the window behind it.
void CMorvikView::TapNow(QPoint point) {
    for (const QWidget* modal = QApplication::activeModalWidget(); modal;
         modal = modal->parentWidget()) {
        if (modal == window() || modal->windowModality() == Qt::ApplicationModal) return;
    }
    PressInHand press;
    actions.Begin(press, input.KindAt(point), [=, this] { input.Press(point); });
    Lift(press, point);
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
        case QEvent::ToolTip:
            ShowTip(*static_cast<QHelpEvent*>(event));
            return true;
        default:
            break;
    }
    return QWidget::event(event);
}

void CMorvikView::mousePressEvent(QMouseEvent* event) {
    const QPoint point = fit.ToTable(event->position());
    if (event->button() == Qt::LeftButton) {
        leftDown = true;
        leftAt = point;
        actions.Begin(leftPress, input.KindAt(point), [=, this] { input.Press(point); });
    } else if (event->button() == Qt::RightButton) {
        actions.Begin(rightPress, PressKind::kDraw, [=, this] { input.RightPress(point); });
    }
}

void CMorvikView::mouseMoveEvent(QMouseEvent* event) {
    const bool begun = leftDown && leftPress && leftPress->state == Press::State::kBegun;
    const QPoint point = fit.ToTable(event->position());
    if (begun && !actions.Busy()) input.Drag(leftAt, point);
    pointer = event->position();
    LightButton();
}

void CMorvikView::leaveEvent(QEvent*) {
    pointer.reset();
    LightButton();
}

// The button under the pointer is a shade brighter while it can be pressed.
void CMorvikView::LightButton() {
    const QRect now = pointer ? ButtonUnder(fit.ToTable(*pointer), seat, places) : QRect();
    if (now == lightButton) return;
    Repaint(QRegion(now) + lightButton);
    lightButton = now;
}

void CMorvikView::PaintLight(QPainter& painter) const {
    if (lightButton.isEmpty()) return;
    const QRectF button = fit.ToClient(lightButton);
    const double radius = button.height() / 5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 46));
    painter.drawRoundedRect(button.adjusted(1, 1, -1, -1), radius, radius);
}

void CMorvikView::ShowTip(const QHelpEvent& event) {
    const QString tip = TipAt(fit.ToTable(event.pos()), seat, places);
    tip.isEmpty() ? QToolTip::hideText() : QToolTip::showText(event.globalPos(), tip, this);
}

// A button that was down when a flow began goes up with the finger, whatever becomes of the press.
void CMorvikView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint point = fit.ToTable(event->position());
    input.ReleaseButtons();
    if (!std::exchange(leftDown, false)) return;
    const PressInHand press = leftPress;  // another may begin meanwhile
    Lift(press, point);
}

void CMorvikView::Lift(const PressInHand& press, QPoint point) {
    const PressKind kind = places.deal.contains(point) ? PressKind::kDraw : press->kind;
    const bool done = actions.Finish(press, kind, [=, this] { input.Release(point); });
    // The press itself may still be waiting to show its button down.
    if (!done && press->state == Press::State::kWaits) LetButtonsGo();
}

// A quick second press is a press as well, or fast players would lose every other one; but not when
// the first has only ended a count-up.
void CMorvikView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint point = fit.ToTable(event->position());
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
        std::function<void()> show;  // in a flow the key only keeps its place
        if (!actions.Busy()) show = [=, this] { input.PressKey(key); };
        actions.Begin(keysDown[key], kind, show);
    }
}

void CMorvikView::keyReleaseEvent(QKeyEvent* event) {
    const int key = TableKeyOf(event->key(), PlaceOf(*event));
    if (event->isAutoRepeat()) return;
    const PressInHand press = keysDown.take(key);
    if (!press) return;
    input.ReleaseButtons();
    const bool done = actions.Finish(press, press->kind, [=, this] { input.Key(key); });
    if (!done && press->state == Press::State::kWaits) LetButtonsGo();
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
