#include "ui/paytables/LineArea.h"

#include <QEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTimer>

#include "ui/parts/DialogParts.h"

namespace {

constexpr int kPayoutColumn = 3;
constexpr int kFirstFigure = 8;

}  // namespace

LineArea::LineArea(LineRows* rows, QWidget* firstPayout, QWidget* parent)
    : QScrollArea(parent), rows(rows), head(new QWidget(this)) {
    setObjectName("lines");
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    const QStringList captions = LineRows::Headings();
    const QStringList tips = LineRows::HeadingTips();
    for (int column = 0; column < captions.size(); ++column) {
        auto* heading = new QLabel(captions[column], head);
        heading->setToolTip(tips[column]);
        const bool isFigure = column >= kFirstFigure;
        if (isFigure) heading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        headings.append(heading);
        const int gap = isFigure ? WidthOf(*this, 2) : 0;
        rows->SetLeastWidth(column, heading->sizeHint().width() + gap);
    }
    rows->SetLeastWidth(0, WidthOf(*this, 5));
    headings[kPayoutColumn]->setBuddy(firstPayout);  // a way into the lines
    setViewportMargins(0, HeadHeight(), 0, 0);
    setWidget(rows);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &LineArea::PlaceHeadings);
    connect(rows, &LineRows::DraggedTo, this, [this](QPoint place) {
        ensureVisible(horizontalScrollBar()->value(), place.y(), 0, 20);
    });
}

QSize LineArea::sizeHint() const {
    const int frame = 2 * frameWidth();
    return widget()->sizeHint() +
           QSize(frame + verticalScrollBar()->sizeHint().width(), frame + HeadHeight());
}

int LineArea::HeadHeight() const { return fontMetrics().height() + 6; }

void LineArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    PlaceHeadings();
}

bool LineArea::eventFilter(QObject* watched, QEvent* event) {
    const bool handled = QScrollArea::eventFilter(watched, event);
    if (watched != rows) return handled;
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) PlaceHeadings();
    // The columns get their places when the request has been met.
    if (event->type() == QEvent::LayoutRequest)
        QTimer::singleShot(0, this, [this] { PlaceHeadings(); });
    return handled;
}

void LineArea::PlaceHeadings() {
    const QRect seen = viewport()->geometry();
    head->setGeometry(seen.left(), seen.top() - HeadHeight(), seen.width(), HeadHeight());
    for (int column = 0; column < headings.size(); ++column) {
        const QRect place = rows->ColumnRect(column);
        headings[column]->setGeometry(place.left() + rows->x(), 0, place.width(), HeadHeight());
    }
}
