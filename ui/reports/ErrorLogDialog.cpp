#include "ui/reports/ErrorLogDialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "ui/parts/DialogParts.h"
#include "ui/reports/AsideWindows.h"
#include "ui/reports/ReportFrame.h"

namespace {

constexpr const char* kName = "errors";

}  // namespace

ErrorLogDialog::ErrorLogDialog(const GameEngine& engine, const GameFiles& files,
                               PictureStore& store, QWidget* parent, ErrorActions actions,
                               AsideWindows* aside)
    : QDialog(parent) {
    setObjectName("errorLog");
    setWindowTitle(tr("View Error Log"));
    if (actions.deal) {
        actions.deal = [this, deal = std::move(actions.deal)](int index) {
            accept();
            deal(index);
        };
    }
    const auto read = [&engine, &files] { return ReadErrorLog(engine, files); };
    page = new ErrorLogPage(read(), read, std::move(actions), store, this);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    if (aside) bottom->addWidget(PutAsideButton(*this, *page, *aside, kName));
    bottom->addWidget(OkAlone(*this));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(page, 1);
    layout->addLayout(bottom);
    MakeRoomForCaption(*this);
    AddKeys();
    resize(sizeHint().boundedTo(screen()->availableSize() * 0.95));
    page->KeepIn(*new ReportFrame(*this, kName));
    QPushButton* turn = page->ShowsEntry() ? page->TurnButton() : nullptr;
    (turn ? turn : findChild<QPushButton*>("ok"))->setFocus();
}

// A table turns its own pages.
void ErrorLogDialog::AddKeys() {
    const auto add = [this](Qt::Key key, auto index) {
        auto* shortcut = new QShortcut(key, this, [this, index] { page->ShowError(index()); });
        const auto* tabs = findChild<QTabWidget*>("tabs");
        connect(tabs, &QTabWidget::currentChanged, shortcut,
                [this, shortcut] { shortcut->setEnabled(page->ShowsEntry()); });
    };
    add(Qt::Key_PageUp, [this] { return page->Index() - 1; });
    add(Qt::Key_PageDown, [this] { return page->Index() + 1; });
    add(Qt::Key_Home, [] { return 0; });
    add(Qt::Key_End, [this] { return page->LastError(); });
}
