#include "ui/questions/AutoplayHandsDialog.h"

#include <QLineEdit>

#include "core/text/WholeNumber.h"
#include "ui/parts/DialogParts.h"

AutoplayHandsDialog::AutoplayHandsDialog(QWidget* parent) : QDialog(parent) {
    setObjectName("autoplayHands");
    setWindowTitle(tr("Autoplay Hands"));
    count = TypingBox(*this, "count", 24, 80);
    LayOutQuestion(*this, tr("Enter &number of hands"), *count);
}

void AutoplayHandsDialog::accept() {
    const auto typed = AskedWholeNumber(*count);
    if (!typed) return;
    hands = ReadWholeNumber(*typed).Nearest();
    QDialog::accept();
}
