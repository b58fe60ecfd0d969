#include "ui/reports/HandAnalysisDialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "game/engine/GameEngine.h"
#include "ui/parts/DialogParts.h"
#include "ui/reports/AsideWindows.h"
#include "ui/reports/HandPage.h"
#include "ui/reports/ReportFrame.h"

namespace {

constexpr const char* kName = "hand";
constexpr double kShareOfScreen = 0.9;
constexpr int kWidest = 160;  // characters

}  // namespace

HandAnalysisDialog::HandAnalysisDialog(GameEngine& spare, PictureStore& store, QWidget* parent)
    : HandAnalysisDialog(spare, store, parent, nullptr, nullptr, nullptr) {}

HandAnalysisDialog::HandAnalysisDialog(GameEngine& spare, PictureStore& store, QWidget* parent,
                                       const GameEngine& player, AsideWindows& aside,
                                       StrategyDesk* charts)
    : HandAnalysisDialog(spare, store, parent, &player, &aside, charts) {}

HandAnalysisDialog::HandAnalysisDialog(GameEngine& spare, PictureStore& store, QWidget* parent,
                                       const GameEngine* player, AsideWindows* aside,
                                       StrategyDesk* charts)
    : QDialog(parent) {
    setObjectName("handAnalysis");
    setWindowTitle(tr("Hand Analysis"));
    auto* page = new HandPage(spare, store, player, this);
    if (charts) page->TellReasons(charts);
    connect(page, &HandPage::ChangeCancelled, this, &QDialog::accept);
    auto* buttons = OkAlone(*this);
    auto* end = new QVBoxLayout;
    end->addStretch();
    if (aside) end->addWidget(PutAsideButton(*this, *page, *aside, kName));
    end->addWidget(buttons);
    page->BottomRow().addLayout(end);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(page);

    const QSize widest(WidthOf(*this, kWidest), QWIDGETSIZE_MAX);  // the rest is scrolled
    resize(sizeHint().boundedTo(screen()->availableSize() * kShareOfScreen).boundedTo(widest));
    page->KeepIn(*new ReportFrame(*this, kName));
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}
