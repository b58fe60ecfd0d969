#include "ui/reports/BesideWindow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>

#include "ui/parts/DialogParts.h"
#include "ui/reports/ReportFrame.h"

namespace {

constexpr double kShareOfScreen = 0.9;

}  // namespace

BesideWindow::BesideWindow(const char* name) {
    setObjectName(name);
    setAttribute(Qt::WA_QuitOnClose, false);  // the program ends with the machine's window
}

ReportFrame& BesideWindow::Furnish(int characters, int lines,
                                   const std::function<void()>& refresh) {
    new QShortcut(Qt::Key_F5, this, refresh);
    new QShortcut(Qt::Key_Escape, this, [this] { close(); });
    const QSize wanted(WidthOf(*this, characters), fontMetrics().lineSpacing() * lines);
    resize(wanted.boundedTo(screen()->availableSize() * kShareOfScreen));
    return *new ReportFrame(*this, objectName());
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
