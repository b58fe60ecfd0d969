#include "ui/tables/PrintedTable.h"

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QFontMetricsF>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>

#include "game/reports/ReportText.h"

namespace {

constexpr double kFontSize = 9;      // points
constexpr double kDotsPerInch = 96;  // in which a document measures itself without a printer
constexpr double kPointsPerInch = 72;
constexpr qreal kUprightPoints = 520;  // what an upright page has room for
constexpr double kEdge = 1.01;         // of a table's width, so that its border is on the page

}  // namespace

PrintedTable::PrintedTable(const ReportTable& table) {
    QFont font;
    font.setPointSizeF(kFontSize);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    document.setHtml(QString::fromStdString(Html(table)));
}

bool PrintedTable::IsWide() const {
    return document.idealWidth() * kPointsPerInch / kDotsPerInch > kUprightPoints;
}

// The cells do not wrap: what is wider than the page shows how much smaller it has to be. The line
// at the foot of a page is left to its number.
void PrintedTable::LayOutFor(QPaintDevice& device) {
    document.documentLayout()->setPaintDevice(&device);
    const QSizeF room(device.width(), device.height());
    const qreal foot = QFontMetricsF(document.defaultFont(), &device).lineSpacing();
    document.setPageSize({room.width(), room.height() - foot});
    shrinking = std::max(document.idealWidth() * kEdge / room.width(), 1.0);
    document.setPageSize(room * shrinking - QSizeF(0, foot));
}

void PrintedTable::DrawPage(QPainter& painter, int page) {
    const QSizeF size = document.pageSize();
    const QRectF shown(0, page * size.height(), size.width(), size.height());
    painter.save();
    painter.scale(1 / shrinking, 1 / shrinking);
    if (PageCount() > 1) {
        const QFont font(document.defaultFont(), painter.device());
        painter.setFont(font);
        painter.drawText(QRectF(0, size.height(), size.width(), QFontMetricsF(font).lineSpacing()),
                         Qt::AlignRight | Qt::AlignBottom,
                         QString("%1 / %2").arg(page + 1).arg(PageCount()));
    }
    painter.translate(0, -shown.top());
    painter.setClipRect(shown);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = shown;
    context.palette.setColor(QPalette::Text, Qt::black);  // whatever the desktop's colours are
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

bool PrintedTable::PrintOn(QPagedPaintDevice& device) {
    LayOutFor(device);
    QPainter painter;
    if (!painter.begin(&device)) return false;
    bool first = true;
    for (int page = 0; page < PageCount(); ++page) {
        const QPageRanges wanted = device.pageRanges();
        if (!wanted.isEmpty() && !wanted.contains(page + 1)) continue;
        if (!first) device.newPage();
        first = false;
        DrawPage(painter, page);
    }
    return painter.end();
}
