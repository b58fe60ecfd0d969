#include "ui/parts/Printing.h"

#include <QPrintDialog>
#include <QPrinter>

#include "ui/parts/DialogParts.h"

void AskAndPrint(QPrinter& printer, const char* dialogName, QWidget* parent,
                 const std::function<bool(QPrinter&)>& print) {
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName(dialogName);
    if (parent) dialog.setWindowModality(Qt::WindowModal);
    if (dialog.exec() != QDialog::Accepted || print(printer)) return;
    const QString file = printer.outputFileName();
    const QString text = file.isEmpty()
                             ? QObject::tr("%1 could not print.").arg(printer.printerName())
                             : QObject::tr("%1 could not be written.").arg(file);
    ShowMessage("printFailed", QMessageBox::Critical, QObject::tr("Print"), text, parent);
}
