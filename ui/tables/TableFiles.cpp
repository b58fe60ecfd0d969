#include "ui/tables/TableFiles.h"

#include <QBuffer>
#include <QClipboard>
#include <QFont>
#include <QGuiApplication>
#include <QMarginsF>
#include <QMimeData>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>
#include <algorithm>
#include <array>

#include "game/reports/ReportText.h"
#include "ui/parts/FileQuestions.h"

namespace {

constexpr double kUsualFont = 9;  // points
constexpr double kSmallestFont = 4;
constexpr double kMargin = 12;       // millimetres
constexpr double kDotsPerInch = 96;  // in which a document measures itself without a printer
constexpr double kPointsPerInch = 72;
constexpr qreal kUprightPoints = 520;  // what an upright page has room for

std::string TextOf(const ReportTable& table, std::size_t kind) {
    if (kind == 0) return Csv(table);
    return kind == 1 ? Html(table) : PlainText(table);
}

// A table of one page of its own, at its natural width.
class PrintedTable {
  public:
    explicit PrintedTable(const ReportTable& table) {
        UseFont(kUsualFont);
        document.setDocumentMargin(0);
        document.setHtml(QString::fromStdString(Html(table)));
        width = document.idealWidth() * kPointsPerInch / kDotsPerInch;
    }

    bool IsWide() const { return width > kUprightPoints; }

    // The page layout of the device has been set.
    void PrintOn(QPagedPaintDevice& device) {
        const qreal room = device.pageLayout().paintRect(QPageLayout::Point).width();
        if (width > room) UseFont(std::max(kUsualFont * room / width, kSmallestFont));
        document.print(&device);
    }

  private:
    void UseFont(double points) {
        QFont font;
        font.setPointSizeF(points);
        document.setDefaultFont(font);
    }

    QTextDocument document;
    qreal width = 0;  // points
};

void LayOutPage(QPagedPaintDevice& device, const PrintedTable& printed) {
    device.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
    if (printed.IsWide()) device.setPageOrientation(QPageLayout::Landscape);
}

}  // namespace

void CopyTable(const ReportTable& table) {
    auto* data = new QMimeData;
    data->setText(QString::fromStdString(TabSeparated(table)));
    data->setHtml(QString::fromStdString(HtmlTable(table)));
    QGuiApplication::clipboard()->setMimeData(data);
}

void SaveTable(const ReportTable& table, const QString& name, QWidget* parent) {
    const std::array<FileKind, 3> kinds{{{QObject::tr("Comma-separated values (*.csv)"), "csv"},
                                         {QObject::tr("HTML pages (*.html)"), "html"},
                                         {QObject::tr("Text files (*.txt)"), "txt"}}};
    const auto file =
        AskFileToSave(QObject::tr("Save As"), kinds, ProposedFile(name + ".csv"), parent);
    if (file) WriteFileOrTell(file->path, TextOf(table, file->kind), parent);
}

void SaveTableAsPdf(const ReportTable& table, const QString& name, QWidget* parent) {
    const FileKind pdf{QObject::tr("PDF files (*.pdf)"), "pdf"};
    const auto path =
        AskFileToSave(QObject::tr("Save As PDF"), pdf, ProposedFile(name + ".pdf"), parent);
    if (path) WriteFileOrTell(*path, TablePdf(table).toStdString(), parent);
}

void PrintTable(const ReportTable& table, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(table.title));
    LayOutPage(printer, PrintedTable(table));
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName("print");
    if (dialog.exec() == QDialog::Accepted) PrintTableTo(table, printer);
}

void PrintTableTo(const ReportTable& table, QPrinter& printer) {
    PrintedTable(table).PrintOn(printer);
}

QByteArray TablePdf(const ReportTable& table) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QString::fromStdString(table.title));
    writer.setPageSize(QPageSize(QPageSize::A4));
    PrintedTable printed(table);
    LayOutPage(writer, printed);
    printed.PrintOn(writer);
    return bytes;
}
