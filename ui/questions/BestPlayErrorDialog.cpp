#include "ui/questions/BestPlayErrorDialog.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "ui/parts/DialogParts.h"
#include "ui/parts/ReportBox.h"

BestPlayErrorDialog::BestPlayErrorDialog(const std::string& message,
                                         std::function<void(QWidget& over)> analysis,
                                         std::function<void()> beep, QWidget* parent)
    : QDialog(parent), analysis(std::move(analysis)), beep(std::move(beep)) {
    setObjectName("bestPlayError");
    setWindowTitle(tr("Best Play Error"));
    auto* text = new ReportBox("message", tr("Play error"), this);
    text->ShowReport(message);
    text->FitToText();

    auto* buttons =
        EndButtons(*this, QDialogButtonBox::Yes | QDialogButtonBox::No, QDialogButtonBox::No);
    if (this->analysis) {
        auto* analyse = buttons->addButton(tr("&Analysis"), QDialogButtonBox::ActionRole);
        analyse->setObjectName("analysis");
        connect(analyse, &QPushButton::clicked, this, [this] { this->analysis(*this); });
    }

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    MakeRoomForCaption(*this);
    buttons->button(QDialogButtonBox::No)->setFocus();
}

void BestPlayErrorDialog::TellReason(StrategyDesk* charts, std::optional<ReasonAsked> asked) {
    auto* reason = new ChartReasonLabel(charts, this);
    static_cast<QVBoxLayout*>(layout())->insertWidget(1, reason);
    reason->Ask(std::move(asked));
}

// The letters answer without Alt too: nothing is typed here.
void BestPlayErrorDialog::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (plain && event->key() == Qt::Key_Y) return accept();
    if (plain && event->key() == Qt::Key_N) return reject();
    QDialog::keyPressEvent(event);
}

void BestPlayErrorDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    PlaceNearTop(*this);
    if (beep) beep();
}
