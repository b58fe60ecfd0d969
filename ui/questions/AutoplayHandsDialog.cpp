#include "ui/questions/AutoplayHandsDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "core/text/WholeNumber.h"
#include "ui/parts/DialogParts.h"

AutoplayHandsDialog::AutoplayHandsDialog(QWidget* parent) : QDialog(parent) {
    setObjectName("autoplayHands");
    setWindowTitle(tr("Autoplay Hands"));
    auto* label = new QLabel(tr("Enter &number of hands"), this);
    label->setObjectName("label");
    count = TypingBox(*this, "count", 24, 80);
    label->setBuddy(count);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(count);
    layout->addStretch();
    layout->addWidget(OkAndCancel(*this));
    MakeRoomForCaption(*this);
    count->setFocus();
}

void AutoplayHandsDialog::accept() {
    const auto typed = AskedWholeNumber(*count);
    if (!typed) return;
    hands = ReadWholeNumber(*typed).Nearest();
    QDialog::accept();
}
