#include "ui/reports/AsideWindows.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
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
        if (page->CanRefresh()) {
            bottom->addWidget(
                MakeButton(tr("Refresh"), "refresh", Qt::Key_F5, &AsideWindow::Refresh));
        }
        bottom->addWidget(MakeButton(tr("Close"), "close", Qt::Key_Escape, &AsideWindow::Close));
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

  protected:
    // What has the focus may have another use for them, as Esc ends a search.
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_F5 && page->CanRefresh()) return Refresh();
        if (event->key() == Qt::Key_Escape) return Close();
        QWidget::keyPressEvent(event);
    }

  private:
    QPushButton* MakeButton(const QString& caption, const char* name, Qt::Key key,
                            void (AsideWindow::*action)()) {
        auto* button = new QPushButton(caption, this);
        button->setObjectName(name);
        button->setToolTip(caption + " (" + QKeySequence(key).toString() + ")");
        connect(button, &QPushButton::clicked, this, action);
        return button;
    }

    void Refresh() {
        page->Refresh();
        ShowTime();
    }
    void Close() { close(); }

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
