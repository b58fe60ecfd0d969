#include "ui/reports/AsideWindows.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTime>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/parts/DialogParts.h"
#include "ui/reports/ReportFrame.h"
#include "ui/reports/ReportPage.h"

namespace {

constexpr int kStep = 28;  // logical pixels from one window to the next
constexpr double kShareOfScreen = 0.9;
constexpr int kWidest = 160;  // characters

// A window without a parent, so that the machine's can be brought in front of it.
class AsideWindow : public QWidget {
  public:
    AsideWindow(std::unique_ptr<ReportPage> shown, const QString& name)
        : page(shown.release()), taken(new QLabel(this)) {
        setObjectName(name + "Aside");
        setAttribute(Qt::WA_DeleteOnClose);
        setAttribute(Qt::WA_QuitOnClose, false);  // the program ends with the machine's window
        page->setParent(this);
        taken->setObjectName("taken");
        auto* bottom = new QHBoxLayout;
        bottom->addWidget(taken, 1);
        bottom->addWidget(MakeButton(tr("Refresh"), "refresh", Qt::Key_F5, [this] {
            page->Refresh();
            ShowTime();
        }));
        bottom->addWidget(MakeButton(tr("Close"), "close", Qt::Key_Escape, [this] { close(); }));
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(page, 1);
        layout->addLayout(bottom);
        connect(page, &ReportPage::CaptionChanged, this, [this] { ShowCaption(); });
        ShowCaption();
        ShowTime();
        const QSize widest(WidthOf(*this, kWidest), QWIDGETSIZE_MAX);
        resize(sizeHint().boundedTo(screen()->availableSize() * kShareOfScreen).boundedTo(widest));
        page->KeepIn(*new ReportFrame(*this, name, "asidePlace"));
    }

  private:
    template <typename Action>
    QPushButton* MakeButton(const QString& caption, const char* name, Qt::Key key, Action action) {
        auto* button = new QPushButton(caption, this);
        button->setObjectName(name);
        button->setToolTip(caption + " (" + QKeySequence(key).toString() + ")");
        connect(button, &QPushButton::clicked, this, action);
        new QShortcut(key, this, action);
        return button;
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

// Not deleted yet: a dialog over one of them may be waiting for its answer, further up the stack.
void AsideWindows::CloseAll() {
    for (const QPointer<QWidget>& window : windows) {
        if (!window) continue;
        for (auto* dialog : window->findChildren<QDialog*>()) dialog->reject();
        window->hide();
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
