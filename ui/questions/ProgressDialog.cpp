#include "ui/questions/ProgressDialog.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/parts/DialogParts.h"

namespace {

constexpr qint64 kMillisecondsPerFrame = 33;
constexpr int kMostCallsPerLook = 64;

}  // namespace

ProgressDialog::ProgressDialog(const std::string& text, QWidget* parent) : QDialog(parent) {
    setObjectName("progress");
    setWindowTitle(tr("Progress Meter"));
    setWindowModality(Qt::WindowModal);
    line = new QLineEdit(QString::fromStdString(text), this);
    line->setObjectName("text");
    line->setAccessibleName(tr("Progress"));
    line->setReadOnly(true);
    line->setMinimumWidth(WidthOf(*this, 44));
    bar = new QProgressBar(this);
    bar->setObjectName("bar");
    bar->setAccessibleName(tr("Percent done"));
    bar->setRange(0, 100);
    bar->setValue(0);
    auto* buttons = EndButtons(*this, QDialogButtonBox::Cancel, QDialogButtonBox::Cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(line);
    layout->addWidget(bar);
    layout->addStretch();
    layout->addWidget(buttons);
    MakeRoomForCaption(*this);
    buttons->button(QDialogButtonBox::Cancel)->setFocus();
}

bool ProgressDialog::Show(const std::string& text, int percent) {
    if (cancelled) return false;
    if (!IsTimeToLook()) return true;
    if (sinceShown.isValid() && sinceShown.elapsed() < kMillisecondsPerFrame) return true;
    line->setText(QString::fromStdString(text));
    bar->setValue(std::clamp(percent, 0, 100));
    sinceShown.start();
    QCoreApplication::processEvents();
    return !cancelled;
}

// Reading the clock takes longer than a hand of autoplay's share of the meter may: frequent callers
// are looked at every few calls only, and seldom ones at once.
bool ProgressDialog::IsTimeToLook() {
    if (++callsSkipped < callsPerLook) return false;
    callsSkipped = 0;
    const bool frequent = sinceLooked.isValid() && sinceLooked.elapsed() < 1;
    callsPerLook = frequent ? std::min(callsPerLook * 2, kMostCallsPerLook) : 1;
    sinceLooked.start();
    return true;
}

void ProgressDialog::reject() {
    cancelled = true;
    QDialog::reject();
}
