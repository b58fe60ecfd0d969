// The lines of the pay table manager in a box that scrolls, under headings that do not scroll away.
#pragma once
#include <QScrollArea>

#include "ui/paytables/LineRows.h"

class LineArea : public QScrollArea {
    Q_OBJECT

  public:
    // Takes the rows; the heading of the payouts leads to the first of them.
    LineArea(LineRows* rows, QWidget* firstPayout, QWidget* parent);

    // As large as what it holds where the screen allows.
    QSize sizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    int HeadHeight() const;
    void PlaceHeadings();

    LineRows* rows;
    QWidget* head;
    QList<QLabel*> headings;
};
