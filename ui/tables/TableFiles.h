// Takes a report's table out of the program: to the clipboard, to a file, to a printer.
#pragma once
#include <QByteArray>
#include <QString>

struct ReportTable;
class QPrinter;
class QWidget;

// Puts the headings and rows into the clipboard as tab-separated text and as HTML at once.
void CopyTable(const ReportTable& table);

// Asks for a place and writes the whole report there: as CSV, HTML or plain text, by the name or
// the filter chosen. The name is proposed without an extension.
void SaveTable(const ReportTable& table, const QString& name, QWidget* parent);

// The same as a PDF.
void SaveTableAsPdf(const ReportTable& table, const QString& name, QWidget* parent);

// Asks for a printer and how to print, and prints.
void PrintTable(const ReportTable& table, QWidget* parent);

// Prints to a printer that is ready; false when it takes nothing. A wide table is printed across
// the page, and smaller.
bool PrintTableTo(const ReportTable& table, QPrinter& printer);

// The pages of a PDF.
QByteArray TablePdf(const ReportTable& table);
