#include "ui/reports/AllGamesWindow.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "ui/parts/DialogParts.h"
#include "ui/reports/ReportFrame.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr int kLookInterval = 100;  // milliseconds
constexpr int kShownCharacters = 160;
constexpr int kShownLines = 40;

}  // namespace

AllGamesWindow::AllGamesWindow(Seat& seat, const DataFilePaths& paths, TableActions given)
    : BesideWindow("allGames"),
      games(seat, paths),
      actions(std::move(given)),
      table(new ReportTableView("games", tr("All games"), this)) {
    setWindowTitle(tr("All Games"));
    table->OfferFilter();
    table->SetFileName(tr("all games"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table, 1);
    layout->addLayout(MakeRunLine());
    layout->addLayout(MakeActionButtons());
    connect(table, &ReportTableView::CurrentRowChanged, this, [this] { UpdateButtons(); });
    connect(table, &ReportTableView::RowActivated, analyze, &QPushButton::click);
    look.setInterval(kLookInterval);
    connect(&look, &QTimer::timeout, this, &AllGamesWindow::LookAtRun);
    ShowTable();
    ShowRun();
    Furnish(kShownCharacters, kShownLines, [this] { Reload(); }).Keep(*table);
}

AllGamesWindow::~AllGamesWindow() = default;

QLayout* AllGamesWindow::MakeRunLine() {
    state = new QLabel(this);
    state->setObjectName("state");
    state->setTextFormat(Qt::PlainText);
    bar = new QProgressBar(this);
    bar->setObjectName("progress");
    bar->setAccessibleName(tr("Percent done"));
    bar->setRange(0, 100);
    missing = new QPushButton(tr("Analyze &Missing"), this);
    missing->setObjectName("analyzeMissing");
    missing->setToolTip(tr("Analyzes all tables that have no figures, in the background"));
    connect(missing, &QPushButton::clicked, this, &AllGamesWindow::AnalyzeMissing);
    cancel = new QPushButton(tr("&Cancel"), this);
    cancel->setObjectName("cancelRun");
    connect(cancel, &QPushButton::clicked, this, [this] { games.Cancel(); });
    auto* row = new QHBoxLayout;
    row->addWidget(state);
    row->addWidget(bar, 1);
    row->addStretch();
    row->addWidget(missing);
    row->addWidget(cancel);
    return row;
}

QLayout* AllGamesWindow::MakeActionButtons() {
    auto* row = new QHBoxLayout;
    play = AddAction(*row, tr("&Play"), "play", actions.play);
    edit = AddAction(*row, tr("&Edit Pay Table"), "edit", actions.edit);
    analyze = AddAction(*row, tr("&Analyze"), "analyze", actions.analyze);
    row->addStretch();
    row->addWidget(MakeClose());
    return row;
}

// A button, and an entry in the context menu of the table.
QPushButton* AllGamesWindow::AddAction(QLayout& row, const QString& caption, const char* name,
                                       const std::function<void(const TableOfGame&)>& action) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [this, action] {
        if (const auto place = games.PlaceOf(table->CurrentRow())) action(*place);
    });
    row.addWidget(button);
    auto* entry = new QAction(QString(caption).remove(u'&'), this);
    connect(entry, &QAction::triggered, button, &QPushButton::click);
    table->addAction(entry);
    return button;
}

// At the first time the table that is played is the chosen one.
void AllGamesWindow::Open() {
    Reload();
    if (table->CurrentRow() < 0) table->SetCurrentRow(games.PlayedId());
    ShowInFront();
    table->setFocus();
}

void AllGamesWindow::Reload() {
    games.Refresh();
    ShowTable();
    ShowRun();
}

void AllGamesWindow::ShowTable() {
    table->SetTable(games.Table());
    UpdateButtons();
}

// A button that is greyed for a while, as by what it has begun itself, gets its focus back.
void AllGamesWindow::UpdateButtons() {
    QWidget* focus = focusWidget();
    GreyButtons();
    if (focus && !focus->isEnabled()) {
        greyedWithFocus = focus;
        table->setFocus();
    } else if (greyedWithFocus && greyedWithFocus->isEnabled()) {
        if (focus && table->isAncestorOf(focus)) greyedWithFocus->setFocus();
        greyedWithFocus = nullptr;
    }
}

void AllGamesWindow::GreyButtons() {
    const auto row = table->CurrentRow();
    const bool chosen = games.PlaceOf(row).has_value() && !actions.isBusy();
    for (QPushButton* button : {play, edit}) button->setEnabled(chosen && actions.mayChange());
    analyze->setEnabled(chosen && games.CanAnalyze(row));
}

// What others have changed meanwhile is seen when the window is looked at again.
void AllGamesWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    games.IsRunning() ? UpdateButtons() : Reload();
}

void AllGamesWindow::AnalyzeMissing() {
    games.AnalyzeMissing();
    look.start();
    ShowRun();
    if (games.IsRunning()) cancel->setFocus();
}

void AllGamesWindow::LookAtRun() {
    const bool hadFocus = cancel->hasFocus();
    if (games.Collect()) ShowTable();
    if (games.IsRunning()) {
        ShowRun();
    } else {
        look.stop();
        Reload();  // tables may have come, changed and gone
    }
    if (!games.IsRunning() && hadFocus) table->setFocus();
}

void AllGamesWindow::ShowRun() {
    const bool running = games.IsRunning();
    const int left = games.CountMissing();
    bar->setVisible(running);
    bar->setValue(static_cast<int>(games.Share() * 100));
    cancel->setVisible(running);
    missing->setVisible(!running);
    missing->setEnabled(left > 0);
    if (running) {
        state->setText(tr("Analyzing, %1 to go").arg(left));
    } else if (!games.IsKept()) {
        state->setText(tr("The figures could not be written yet. Make room on the disk, and see to "
                          "it that you may write %1 and its folder; F5 tries again.")
                           .arg(QString::fromStdString(games.CacheName())));
    } else {
        state->setText(left == 0   ? tr("All tables are analyzed")
                       : left == 1 ? tr("1 table is not analyzed")
                                   : tr("%1 tables are not analyzed").arg(left));
    }
}
