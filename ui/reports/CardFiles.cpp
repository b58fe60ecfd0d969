#include "ui/reports/CardFiles.h"

#include <QBuffer>
#include <QFont>
#include <QFontInfo>
#include <QMarginsF>
#include <QObject>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSvgRenderer>
#include <algorithm>
#include <array>

#include "core/strategy/CardDrawing.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/Printing.h"

namespace {

constexpr double kMillimetresPerInch = 25.4;

// Qt takes a list of fonts for the name of one, which it does not find.
void Draw(const ChartCard& card, QPainter& painter, double dotsPerInch) {
    QByteArray svg = QByteArray::fromStdString(CardAsSvg(card));
    const QByteArray font = QFontInfo(QFont(QStringLiteral("Helvetica"))).family().toUtf8();
    svg.replace(QByteArray::fromStdString(std::string(kCardFonts)), font);
    QSvgRenderer drawing(svg);
    const double dots = dotsPerInch / kMillimetresPerInch;
    drawing.render(&painter, QRectF(0, 0, kCardWidth * dots, kCardHeight * dots));
}

// The fonts of every PDF have all letters of the card.
bool IsWestern(const ChartCard& card) {
    const QString text = QString::fromStdString(card.title + card.pays);
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() <= 0xFF; });
}

std::string TextOf(const ChartCard& card, std::size_t kind) {
    if (kind == 0) return CardPdf(card).toStdString();
    return kind == 1 ? CardAsSvg(card) : CardAsText(card);
}

}  // namespace

void SaveCard(const ChartCard& card, const QString& name, QWidget* parent) {
    const std::array<FileKind, 3> kinds{{{QObject::tr("PDF files (*.pdf)"), "pdf"},
                                         {QObject::tr("SVG drawings (*.svg)"), "svg"},
                                         {QObject::tr("Text files (*.txt)"), "txt"}}};
    const auto file =
        AskFileToSave(QObject::tr("Save Card"), kinds, ProposedFile(name + ".pdf"), parent);
    if (file) WriteFileOrTell(file->path, TextOf(card, file->kind), parent);
}

void PrintCard(const ChartCard& card, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(card.title));
    AskAndPrint(printer, "printCardDialog", parent,
                [&card](QPrinter& to) { return PrintCardTo(card, to); });
}

bool PrintCardTo(const ChartCard& card, QPrinter& printer) {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    Draw(card, painter, printer.resolution());
    return painter.end();
}

QByteArray CardPdf(const ChartCard& card) {
    if (IsWestern(card)) return QByteArray::fromStdString(CardAsPdf(card));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QString::fromStdString(card.title));
    writer.setPageSize(QPageSize(QSizeF(kCardWidth, kCardHeight), QPageSize::Millimeter,
                                 QObject::tr("Card"), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    Draw(card, painter, writer.resolution());
    painter.end();
    return bytes;
}
