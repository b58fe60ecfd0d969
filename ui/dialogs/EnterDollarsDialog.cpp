#include "ui/dialogs/EnterDollarsDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "game/MachineCommands.h"
#include "ui/dialogs/DialogParts.h"

namespace {

// 0 for anything but digits.
int WholeDollars(const QString& typed) {
    const QString digits = typed.trimmed();
    const bool whole = std::ranges::all_of(digits, [](QChar c) { return c >= u'0' && c <= u'9'; });
    return whole ? digits.toInt() : 0;
}

}  // namespace

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
    const int typed = WholeDollars(amount->text());
    if (typed < 1 || typed > kMostDollars) {
        RefuseInput(*amount, QMessageBox::Warning, tr("Tolvane"),
                    tr("Enter an integer between 1 and %1.").arg(kMostDollars));
        return;
    }
    dollars = typed;
    QDialog::accept();
}
