#include "ui/paytables/RowHandle.h"

#include <QMouseEvent>

RowHandle::RowHandle(int number, QWidget* parent) : QLabel(QString::number(number), parent) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setIndent(6);
}

void RowHandle::SetMovable(bool isMovable) {
    movable = isMovable;
    if (movable) {
        setCursor(Qt::OpenHandCursor);
    } else {
        unsetCursor();
    }
}

void RowHandle::mousePressEvent(QMouseEvent* event) {
    if (dragging) emit GivenUp();
    dragging = !dragging && movable && event->button() == Qt::LeftButton;
    SetMovable(movable);
    if (dragging) setCursor(Qt::ClosedHandCursor);
}

void RowHandle::mouseMoveEvent(QMouseEvent* event) {
    if (dragging) emit Dragged(event->globalPosition().toPoint());
}

void RowHandle::mouseReleaseEvent(QMouseEvent* event) {
    if (!dragging || event->button() != Qt::LeftButton) return;
    dragging = false;
    SetMovable(movable);
    emit Dropped(event->globalPosition().toPoint());
}
