#include "ui/tables/TableFiles.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMarginsF>
#include <QMimeData>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <array>

#include "game/reports/ReportText.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/Printing.h"
#include "ui/tables/PrintedTable.h"

namespace {

constexpr double kMargin = 12;  // millimetres

std::string TextOf(const ReportTable& table, std::size_t kind) {
    if (kind == 0) return Csv(table);
    return kind == 1 ? Html(table) : PlainText(table);
}

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
    AskAndPrint(printer, "print", parent,
                [&table](QPrinter& to) { return PrintTableTo(table, to); });
}

bool PrintTableTo(const ReportTable& table, QPrinter& printer) {
    return PrintedTable(table).PrintOn(printer);
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
