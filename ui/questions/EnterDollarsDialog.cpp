#include "ui/questions/EnterDollarsDialog.h"

#include <QLineEdit>

#include "core/text/Numbers.h"
#include "core/text/WholeNumber.h"
#include "game/engine/Money.h"
#include "ui/parts/DialogParts.h"

EnterDollarsDialog::EnterDollarsDialog(int proposed, QWidget* parent) : QDialog(parent) {
    setObjectName("enterDollars");
    setWindowTitle(tr("Dialog"));
    amount = TypingBox(*this, "amount", 24, 80);
    amount->setText(QString::number(proposed));
    amount->selectAll();
    LayOutQuestion(*this, tr("Enter &Dollar Amount"), *amount);
}

void EnterDollarsDialog::accept() {
    const int typed = ParseInt(PlainWholeNumber(amount->text().toStdString()).value_or("0"));
    if (typed < 1 || typed > kMostDollars) {
        RefuseInput(*amount, QMessageBox::Warning, tr("Tolvane"),
                    tr("Enter an integer between 1 and %1.").arg(kMostDollars));
        return;
    }
    dollars = typed;
    QDialog::accept();
}
