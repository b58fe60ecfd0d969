// The number of a line, by which the line can be dragged to another place.
#pragma once
#include <QLabel>

class RowHandle : public QLabel {
    Q_OBJECT

  public:
    RowHandle(int number, QWidget* parent);

    // Whether the line may be dragged.
    void SetMovable(bool movable);

  signals:
    // The pointer's place on the screen.
    void Dragged(QPoint place);
    void Dropped(QPoint place);
    void GivenUp();  // by another button of the mouse

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    bool movable = false;
    bool dragging = false;
};
