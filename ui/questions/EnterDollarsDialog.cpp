#include "ui/questions/EnterDollarsDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "core/text/Numbers.h"
#include "core/text/WholeNumber.h"
#include "game/engine/Money.h"
#include "ui/parts/DialogParts.h"

EnterDollarsDialog::EnterDollarsDialog(int proposed, QWidget* parent) : QDialog(parent) {
    setObjectName("enterDollars");
    setWindowTitle(tr("Dialog"));
    auto* label = new QLabel(tr("Enter &Dollar Amount"), this);
    label->setObjectName("label");
    amount = TypingBox(*this, "amount", 24, 80);
    amount->setText(QString::number(proposed));
    amount->selectAll();
    label->setBuddy(amount);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(amount);
    layout->addStretch();
    layout->addWidget(OkAndCancel(*this));
    MakeRoomForCaption(*this);
    amount->setFocus();
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
