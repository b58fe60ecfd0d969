#include "ui/reports/AsideWindows.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTime>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/parts/DialogParts.h"
#include "ui/reports/BesideWindow.h"
#include "ui/reports/ReportFrame.h"
#include "ui/reports/ReportPage.h"

namespace {

constexpr int kStep = 28;     // logical pixels from one window to the next
constexpr int kWidest = 160;  // characters

// Without a parent, so that the machine's window can be brought in front of it.
class AsideWindow : public BesideWindow {
  public:
    AsideWindow(std::unique_ptr<ReportPage> shown, const QString& name)
        : BesideWindow(name + "Aside"), page(shown.release()), taken(new QLabel(this)) {
        setAttribute(Qt::WA_DeleteOnClose);
        page->setParent(this);
        taken->setObjectName("taken");
        auto* bottom = new QHBoxLayout;
        bottom->addWidget(taken, 1);
        if (page->CanRefresh()) OfferRefresh(*bottom);
        bottom->addWidget(MakeClose());
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(page, 1);
        layout->addLayout(bottom);
        connect(page, &ReportPage::CaptionChanged, this, [this] { ShowCaption(); });
        ShowCaption();
        ShowTime();
        ResizeOnScreen(sizeHint().boundedTo({WidthOf(*this, kWidest), QWIDGETSIZE_MAX}));
        page->KeepIn(*new ReportFrame(*this, name, "asidePlace"));
    }

  private:
    void OfferRefresh(QLayout& row) {
        auto* button = new QPushButton(tr("Refresh"), this);
        button->setObjectName("refresh");
        button->setToolTip(tr("Refresh (F5)"));
        RefreshBy([this] { Refresh(); });
        connect(button, &QPushButton::clicked, this, [this] { Refresh(); });
        row.addWidget(button);
    }

    void Refresh() {
        page->Refresh();
        ShowTime();
    }

    void ShowCaption() { setWindowTitle(page->Caption()); }
    void ShowTime() {
        taken->setText(tr("As of %1").arg(QTime::currentTime().toString("HH:mm:ss")));
    }

    ReportPage* page;
    QLabel* taken;
};

// Off the places where others stand, as far as the screen reaches.
void MoveBeside(QWidget& window, const std::vector<QPointer<QWidget>>& others) {
    const QRect room = window.screen()->availableGeometry();
    const auto isTaken = [&others](QPoint place) {
        return std::ranges::any_of(others, [place](const QPointer<QWidget>& other) {
            return other && (other->pos() - place).manhattanLength() < kStep;
        });
    };
    QPoint place = window.pos();
    while (isTaken(place) && room.contains(QRect(place + QPoint(kStep, kStep), window.size()))) {
        place += QPoint(kStep, kStep);
    }
    window.move(place);
}

}  // namespace

AsideWindows::AsideWindows(QObject* parent) : QObject(parent) {}

AsideWindows::~AsideWindows() {
    for (const QPointer<QWidget>& window : windows) delete window;
}

void AsideWindows::PutAside(const ReportPage& page, const QString& name) {
    auto* window = new AsideWindow(page.Copy(), name);
    std::erase_if(windows, [](const QPointer<QWidget>& old) { return old.isNull(); });
    if (!windows.empty()) MoveBeside(*window, windows);
    windows.emplace_back(window);
    window->show();
    window->raise();
    window->activateWindow();
}

void AsideWindows::RefuseQuestions() {
    for (const QPointer<QWidget>& window : windows) {
        if (window) RefuseDialogsOver(*window);
    }
}

// Not deleted yet: a dialog over one of them may be on its way back, further up the stack.
void AsideWindows::CloseAll() {
    RefuseQuestions();
    for (const QPointer<QWidget>& window : windows) {
        if (window) window->hide();
    }
}

QPushButton* PutAsideButton(QDialog& dialog, const ReportPage& page, AsideWindows& aside,
                            const QString& name) {
    auto* button =
        ActionButton(dialog, QObject::tr("Put Aside"), "putAside", [&dialog, &page, &aside, name] {
            dialog.accept();  // which notes how it is left
            aside.PutAside(page, name);
        });
    button->setToolTip(
        QObject::tr("Keeps this report in a window of its own, beside which you can play on"));
    return button;
}
