#include "ui/questions/CombinationsDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

#include "core/text/CombinationText.h"
#include "ui/parts/DialogParts.h"

CombinationsDialog::CombinationsDialog(QWidget* parent) : QDialog(parent) {
    constexpr int kShown = 26;
    constexpr int kLongest = 79;
    setObjectName("combinations");
    setWindowTitle(tr("Combinations"));
    cards = TypingBox(*this, "cards", kShown, kLongest);
    drawn = TypingBox(*this, "drawn", kShown, kLongest);
    result = TypingBox(*this, "result", kShown, kLongest);
    result->setReadOnly(true);

    auto* buttons = new QDialogButtonBox(this);
    auto* calculate = buttons->addButton(tr("Ca&lculate"), QDialogButtonBox::AcceptRole);
    calculate->setObjectName("calculate");
    calculate->setDefault(true);
    auto* done = buttons->addButton(tr("&Done"), QDialogButtonBox::RejectRole);
    done->setObjectName("done");
    connect(calculate, &QPushButton::clicked, this, &CombinationsDialog::Calculate);
    connect(done, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QFormLayout(this);
    layout->addRow(tr("&Number of Cards"), cards);
    layout->addRow(tr("Cards to D&raw"), drawn);
    layout->addRow(tr("&Combinations"), result);
    layout->addRow(buttons);
    MakeRoomForCaption(*this);
    cards->setFocus();
}

void CombinationsDialog::Calculate() {
    result->clear();
    const auto of = AskedWholeNumber(*cards);
    if (!of) return;
    const auto taken = AskedWholeNumber(*drawn);
    if (!taken) return;
    result->setText(QString::fromStdString(CombinationText(*of, *taken)));
    cards->setFocus();
    cards->selectAll();
}
