#include "ui/reports/BesideWindow.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <utility>

#include "ui/parts/DialogParts.h"
#include "ui/reports/ReportFrame.h"

namespace {

constexpr double kShareOfScreen = 0.9;

}  // namespace

BesideWindow::BesideWindow(const QString& name) {
    setObjectName(name);
    setAttribute(Qt::WA_QuitOnClose, false);  // the program ends with the machine's window
}

ReportFrame& BesideWindow::Furnish(int characters, int lines, std::function<void()> onRefresh) {
    RefreshBy(std::move(onRefresh));
    ResizeOnScreen({WidthOf(*this, characters), fontMetrics().lineSpacing() * lines});
    return *new ReportFrame(*this, objectName());
}

void BesideWindow::ResizeOnScreen(QSize wanted) {
    resize(wanted.boundedTo(screen()->availableSize() * kShareOfScreen));
}

void BesideWindow::ShowInFront() {
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

QPushButton* BesideWindow::MakeClose() {
    auto* done = new QPushButton(tr("Close"), this);
    done->setObjectName("close");
    done->setToolTip(tr("Close (Esc)"));
    connect(done, &QPushButton::clicked, this, &QWidget::close);
    return done;
}

QLabel* BesideWindow::MakeWords(const char* name) {
    auto* words = new QLabel(this);
    words->setObjectName(name);
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return words;
}

QLayout* BesideWindow::MakeFoot(QPushButton* command, QProgressBar* bar) {
    bar->setObjectName("progress");
    bar->setAccessibleName(tr("Percent done"));
    bar->hide();
    auto* row = new QHBoxLayout;
    row->addWidget(command);
    row->addWidget(bar, 1);
    row->addStretch();
    row->addWidget(MakeClose());
    return row;
}

void BesideWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F5 && refresh) return refresh();
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}
