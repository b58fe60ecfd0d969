// The machine in the window: paints the scene, and takes presses and keys.
#pragma once
#include <QBasicTimer>
#include <QHash>
#include <QHelpEvent>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

#include "game/seat/Seat.h"
#include "ui/art/CardStyle.h"
#include "ui/machine/AccessibleMachine.h"
#include "ui/machine/Layout.h"
#include "ui/machine/MachineFit.h"
#include "ui/machine/MachineInput.h"
#include "ui/machine/Motion.h"
#include "ui/machine/Snapshots.h"

class PictureStore;

class CMorvikView : public QWidget, public AccessibleMachine {
    Q_OBJECT

  public:
    // All outlive the view.
    CMorvikView(Seat& seat, PictureStore& pictures, ActionQueue& actions, KeyCommands commands);

    // Sees to it that what has changed since the last time is painted.
    void ShowScene();

    // All is painted anew when it differs.
    void SetCardStyle(const CardStyle& style);

    // Another pay table has other places; all is painted anew.
    void LayOutMachine();

    QSize sizeHint() const override;

    const Seat& SeatShown() const override { return seat; }
    const MachineLayout& Places() const override { return places; }
    QRect OnScreen(const QRect& place) const override;
    void Tap(QPoint point) override;
    QString Description() const override;

    // No button stays down: what is let go over a dialog that came between is let go there.
    void ForgetPresses();

    // Whether cards turn, lights fade in and digits roll, or all is there at once. The player's
    // wish, on at first; the desktop's and the style's say no as well.
    void SetAnimation(bool on);
    void SetReducedMotion(bool wished);
    // What is painted is the scene at rest, and no timer runs for it.
    bool IsStill() const { return !frameDue.isActive(); }

    // Milliseconds that never go back: the time that all movement takes. A test has its own.
    std::function<std::int64_t()> motionTime;

    // As of the last change of size or pay table. The places count in units of the table.
    MachineFit fit;
    MachineLayout places;

  signals:
    void LaidOut();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    Q_INVOKABLE void TapNow(QPoint point);
    void Lift(const PressInHand& press, QPoint point);
    void Repaint(const QRegion& inTable);
    void LightButton();
    void PaintLight(QPainter& painter) const;
    void ShowTip(const QHelpEvent& event);
    bool MayMove() const;
    QRegion NextFrame();
    void StopMoving();
    void LetButtonsGo();
    void BeginKey(int key);

    Seat& seat;
    CardStyle cardStyle;
    Scene shown;  // is painted, or will be when the window next is
    ActionQueue& actions;
    PictureStore& pictures;
    QtTextMeasure measure;
    MachineInput input;
    QBasicTimer announcementDue;  // runs while a screen reader may not know what is painted
    Motion motion;
    Moment moment;         // is painted, or will be when the window next is
    Snapshots snapshots;   // of what moves
    QBasicTimer frameDue;  // runs while something moves
    bool animation = true;
    bool reducedMotion = false;
    PressInHand leftPress;  // the last one
    PressInHand rightPress;
    bool leftDown = false;
    std::optional<QPointF> pointer;    // while it is over the window, in its coordinates
    QRect lightButton;                 // under it; null when there is none
    QPoint leftAt;                     // where it went down
    QHash<int, PressInHand> keysDown;  // pressed here: a key let go after a dialog is no input
};
