// A report's table on paper: as wide as it is, and made smaller as a whole where a page has less
// room, so that no column is cut off. Pages are numbered where there are several.
#pragma once
#include <QTextDocument>

struct ReportTable;
class QPagedPaintDevice;
class QPaintDevice;
class QPainter;

class PrintedTable {
  public:
    explicit PrintedTable(const ReportTable& table);

    // Whether an upright page has too little room for it at its own size.
    bool IsWide() const;

    // To be called before what follows. The device's page layout has been set.
    void LayOutFor(QPaintDevice& device);
    int PageCount() const { return document.pageCount(); }
    void DrawPage(QPainter& painter, int page);  // the first is 0

    // All of it, or the pages that the device has been told to print. False when it takes nothing.
    bool PrintOn(QPagedPaintDevice& device);

  private:
    QTextDocument document;
    qreal shrinking = 1;  // units of the document for each dot of the device
};
