#include "ui/reports/StatisticsDialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "ui/parts/DialogParts.h"
#include "ui/reports/AsideWindows.h"
#include "ui/reports/ReportFrame.h"
#include "ui/reports/StatisticsPage.h"

namespace {

constexpr const char* kName = "statistics";
constexpr double kShareOfScreen = 0.95;

}  // namespace

StatisticsDialog::StatisticsDialog(const GameEngine& engine, std::int64_t now, QWidget* parent,
                                   const GameEngine* player, AsideWindows* aside)
    : QDialog(parent) {
    setObjectName(kName);
    setWindowTitle(tr("Game Play Analysis"));
    auto* page = new StatisticsPage(engine, now, player, this);
    auto* buttons = OkAlone(*this);
    buttons->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    if (aside) bottom->addWidget(PutAsideButton(*this, *page, *aside, kName));
    bottom->addWidget(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(page, 1);
    layout->addLayout(bottom);
    const QSize room = screen()->availableSize() * kShareOfScreen;
    page->FitInto(room - (sizeHint() - page->sizeHint()));
    resize(sizeHint().boundedTo(room));
    page->KeepIn(*new ReportFrame(*this, kName));
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}
