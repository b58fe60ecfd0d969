#include "ui/reports/ErrorLogPage.h"

#include <QAction>
#include <QComboBox>
#include <QDateTime>
#include <QEvent>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <algorithm>
#include <utility>

#include "game/reports/ErrorLogReport.h"
#include "game/reports/ErrorLogRows.h"
#include "game/reports/HandReport.h"
#include "ui/parts/ChartReasonLabel.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/HoldPatterns.h"
#include "ui/parts/ReportBox.h"
#include "ui/parts/SmallCard.h"
#include "ui/reports/ReportFrame.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr int kTablePage = 1;

int WidestLabel(const QFontMetrics& font, const QString& report) {
    int widest = 0;
    for (const QString& line : report.split(u'\n')) {
        widest = std::max(widest, font.horizontalAdvance(line.section(u'\t', 0, 0)));
    }
    return widest;
}

// The holds stand in the first two lines.
TextSpan PatternOf(const QString& line, int number) {
    constexpr int kHoldLines = 2;
    if (number >= kHoldLines) return {};
    const auto hold = static_cast<int>(line.indexOf(u'\t')) + 1;
    return {hold, static_cast<int>(line.size()) - hold};
}

QPushButton* Button(const QString& caption, const char* name, QWidget* parent,
                    const std::function<void()>& action) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, parent, action);
    return button;
}

}  // namespace

ErrorLogView ReadErrorLog(const GameEngine& engine, const GameFiles& files) {
    return {engine, ReadErrors(engine, files), QDateTime::currentSecsSinceEpoch()};
}

ErrorLogPage::ErrorLogPage(ErrorLogView first, Reader read, ErrorActions actions,
                           PictureStore& store, QWidget* parent)
    : ReportPage(parent),
      shown(std::move(first)),
      read(std::move(read)),
      actions(std::move(actions)),
      store(store) {
    tabs = new QTabWidget(this);
    tabs->setObjectName("tabs");
    // The boxes are fitted before: a page that is in a tab asks for what it did when it came there.
    QWidget* entry = MakeEntryPage();
    SetTabStops();
    ShowEntry();
    for (ReportBox* box : {text, summary}) {
        box->FitToText();
        box->saveAs = [this] { SaveEntry(); };
    }
    tabs->addTab(entry, tr("&Entry"));
    tabs->addTab(MakeTablePage(), tr("&All Entries"));
    kinds = new ReportTableView("kinds", tr("Play errors by kind of hold"), tabs);
    connect(kinds, &ReportTableView::RowActivated, this, &ErrorLogPage::ShowKind);
    tabs->addTab(kinds, tr("&By Kind"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(tabs);
    ShowTables();
}

QWidget* ErrorLogPage::MakeEntryPage() {
    auto* page = new QWidget(tabs);
    page->setObjectName("entryPage");
    title = new QLineEdit(page);
    title->setObjectName("title");
    title->setAccessibleName(tr("Entry"));
    title->setReadOnly(true);
    title->setMinimumWidth(WidthOf(*title, 16));
    title->installEventFilter(this);
    text = new ReportBox("entry", tr("Play error"), page);
    new HoldPatterns(*text->document(), PatternOf);
    auto* layout = new QGridLayout(page);
    layout->addWidget(title, 0, 0, Qt::AlignLeft);
    layout->addWidget(text, 1, 0);
    layout->addWidget(MakeSummary(), 0, 1, 2, 1);
    belowEntry = new QVBoxLayout;
    layout->addLayout(belowEntry, 2, 0, 1, 2);
    layout->addLayout(MakeHand(), 3, 0, 1, 2);
    layout->addLayout(MakeTurnButtons(), 4, 0, 1, 2);
    layout->setRowStretch(1, 1);
    return page;
}

QWidget* ErrorLogPage::MakeSummary() {
    auto* row = RowInGroup(tr("Game Summary"), "gameSummary", this);
    summary = new ReportBox("summary", tr("Game Summary"), this);
    row->addWidget(summary);
    return row->parentWidget();
}

QLayout* ErrorLogPage::MakeHand() {
    auto* cards = RowInGroup(tr("Starting Hand"), "startingHand", this);
    for (std::size_t i = 0; i < places.size(); ++i) {
        places[i] = new SmallCard(store, cards->parentWidget());
        places[i]->setObjectName(QString("place%1").arg(i));
        cards->addWidget(places[i]);
    }
    auto* layout = new QHBoxLayout;
    layout->addWidget(cards->parentWidget());
    knownCard = AddFirstDrawCard(*layout, shown.engine, store, this);
    layout->addStretch();
    return layout;
}

QLayout* ErrorLogPage::MakeTurnButtons() {
    auto* layout = new QHBoxLayout;
    previous = Button(tr("&Prev"), "previous", this, [this] { ShowError(index - 1); });
    next = Button(tr("&Next"), "next", this, [this] { ShowError(index + 1); });
    for (QPushButton* button : {previous, next}) {
        button->setAutoDefault(true);  // Enter turns on where it has the focus
        layout->addWidget(button);
    }
    layout->addStretch();
    return layout;
}

QWidget* ErrorLogPage::MakeTablePage() {
    auto* page = new QWidget(tabs);
    page->setObjectName("entriesPage");
    kind = new QComboBox(page);
    kind->setObjectName("kind");
    kind->setMinimumWidth(WidthOf(*kind, 30));
    connect(kind, &QComboBox::activated, this, [this] { ShowTables(); });
    entries = new ReportTableView("entries", tr("Play errors"), page);
    entries->OfferFilter();
    connect(entries, &ReportTableView::CurrentRowChanged, this, [this] { UpdateActions(); });
    auto* top = new QHBoxLayout;
    top->addWidget(::Caption(tr("&Kind of hold"), kind));
    top->addWidget(kind);
    top->addStretch();
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(top);
    layout->addWidget(entries, 1);
    layout->addLayout(MakeActionButtons());
    return page;
}

QLayout* ErrorLogPage::MakeActionButtons() {
    auto* row = new QHBoxLayout;
    const auto at = [this] { return static_cast<int>(entries->CurrentRow()); };
    if (actions.analyze) {
        const auto analyze = [this, at] { actions.analyze(shown, at(), *window()); };
        AddAction(*row, tr("Analyze &Hand"), "analyzeHand", {}, analyze);
        connect(entries, &ReportTableView::RowActivated, this, analyze);
    }
    if (actions.deal) {
        AddAction(*row, tr("&Deal Hand"), "dealHand", {}, [this, at] { actions.deal(at()); });
    }
    if (actions.forget) {
        AddAction(*row, tr("De&lete"), "deleteError", Qt::Key_Delete, [this] { Forget(); });
    }
    row->addStretch();
    return row;
}

// A button, and an entry in the context menu of the table. While no row is chosen it does nothing.
void ErrorLogPage::AddAction(QLayout& row, const QString& caption, const char* name,
                             const QKeySequence& key, const std::function<void()>& action) {
    const auto doIt = [this, action] {
        if (entries->CurrentRow() >= 0) action();
    };
    auto* button = Button(caption, name, this, doIt);
    row.addWidget(button);
    actionButtons.push_back(button);
    auto* entry = new QAction(QString(caption).remove(u'&'), this);
    entry->setShortcut(key);
    entry->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(entry, &QAction::triggered, button, &QPushButton::click);
    entries->addAction(entry);
}

void ErrorLogPage::SetTabStops() {
    const QFontMetrics font(text->font());
    const auto lines = [](const std::string& report) { return QString::fromStdString(report); };
    // A label that reached the stop would push its value out of the column.
    const int widest = std::max(WidestLabel(font, lines(ErrorSummary(shown.engine))),
                                WidestLabel(font, lines(ErrorText(shown.engine, {}))));
    const int stop =
        std::max(font.horizontalAdvance("Pct Play Errors "), widest + font.horizontalAdvance(u' '));
    for (ReportBox* box : {text, summary}) box->SetTabStops({static_cast<qreal>(stop)});
}

// A line of text would keep Home and End for its cursor.
bool ErrorLogPage::eventFilter(QObject* watched, QEvent* event) {
    return event->type() == QEvent::ShortcutOverride || ReportPage::eventFilter(watched, event);
}

// Other pages than there are, are not turned to.
void ErrorLogPage::ShowError(int wanted) {
    if (wanted < 0 || wanted > LastError()) return;
    index = wanted;
    ShowEntry();
}

int ErrorLogPage::LastError() const {
    return std::max(static_cast<int>(shown.errors.size()) - 1, 0);
}

bool ErrorLogPage::ShowsEntry() const { return tabs->currentIndex() == 0; }

QPushButton* ErrorLogPage::TurnButton() const { return next->isEnabled() ? next : nullptr; }

// The first entry is shown even when the log has been emptied.
void ErrorLogPage::ShowEntry() {
    const GameEngine& engine = shown.engine;
    index = std::min(index, LastError());
    const auto at = static_cast<std::size_t>(index);
    const ErrorLogEntry entry = at < shown.errors.size() ? shown.errors[at] : ErrorLogEntry{};
    title->setText(QString::fromStdString(ErrorTitle(index)));
    text->ShowReport(ErrorText(engine, entry));
    summary->ShowReport(ErrorSummary(engine));
    const auto cards = PlacesOf(engine, entry.hand, entry.draws[0]);
    for (std::size_t i = 0; i < places.size(); ++i) places[i]->SetCard(cards[i]);
    knownCard->parentWidget()->setVisible(IsSneakPeak(engine));
    knownCard->SetCard(FaceOf(engine.deck.table, entry.draws[0]));
    ShowReason();

    const bool nextHadFocus = next->hasFocus();
    const bool previousHadFocus = previous->hasFocus();
    next->setEnabled(index < LastError());
    previous->setEnabled(index >= 1);
    // A key pressed once more at the end must not fall on another button than the opposite one.
    if (nextHadFocus && !next->isEnabled()) previous->setFocus();
    if (previousHadFocus && !previous->isEnabled()) next->setFocus();
}

void ErrorLogPage::TellReasons(StrategyDesk* desk) {
    charts = desk;
    reason = new ChartReasonLabel(charts, this);
    belowEntry->addWidget(reason);
    ShowReason();
}

void ErrorLogPage::ShowReason() {
    if (!reason) return;
    const auto at = static_cast<std::size_t>(index);
    if (at >= shown.errors.size()) return reason->Ask(std::nullopt);
    const ErrorLogEntry& entry = shown.errors[at];
    reason->Ask(AskedOf(shown.engine, entry.hand, entry.player));
}

void ErrorLogPage::ShowTables() {
    const ReportTable byKind = ErrorKindTable(shown.engine, shown.errors, shown.taken);
    const QString wanted = kind->currentIndex() > 0 ? kind->currentText() : QString();
    kind->clear();
    kind->addItem(tr("All"));
    for (const ReportRow& row : byKind.rows) {
        kind->addItem(QString::fromStdString(row.cells.front().text));
    }
    kind->setCurrentIndex(wanted.isEmpty() ? 0 : std::max(kind->findText(wanted), 0));
    ReportTable all = ErrorTable(shown.engine, shown.errors, shown.taken);
    const std::string only = kind->currentText().toStdString();
    entries->SetTable(kind->currentIndex() == 0 ? all : OnlyKind(std::move(all), only));
    kinds->SetTable(byKind);
    const auto& rows = entries->Table().rows;
    if (entries->CurrentRow() < 0 && !rows.empty()) entries->SetCurrentRow(rows.front().id);
    const QString game = QString::fromStdString(shown.engine.settings.gameName);
    entries->SetFileName(tr("%1 errors").arg(game));
    kinds->SetFileName(tr("%1 errors by kind").arg(game));
    UpdateActions();
}

void ErrorLogPage::ShowKind(std::int64_t row) {
    kind->setCurrentIndex(static_cast<int>(row) + 1);
    ShowTables();
    tabs->setCurrentIndex(kTablePage);
    entries->setFocus();
}

void ErrorLogPage::UpdateActions() {
    const bool chosen = entries->CurrentRow() >= 0;
    const bool mayChange = !actions.mayChange || actions.mayChange();
    for (QWidget* button : actionButtons) {
        const bool changes = button->objectName() != "analyzeHand";
        const QString reason =
            changes && !mayChange ? tr("Not while a hand is in play: draw first") : QString();
        button->setEnabled(chosen && reason.isEmpty());
        button->setToolTip(reason);
    }
}

void ErrorLogPage::Forget() {
    const auto row = static_cast<int>(entries->CurrentRow());
    const int answer = ShowMessage(
        "deleteError", QMessageBox::Question, tr("Error Log"),
        tr("Delete error %1 from the log? The count of errors and their cost stay.").arg(row + 1),
        this, QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes) return;
    actions.forget(row);
    Refresh();
    entries->SetCurrentRow(std::min(row, LastError()));
}

QString ErrorLogPage::Caption() const {
    return tr("Error Log: %1, table %2")
        .arg(QString::fromStdString(shown.engine.settings.gameName),
             QString::number(shown.engine.settings.activeTable));
}

std::unique_ptr<ReportPage> ErrorLogPage::Copy() const {
    ErrorActions looking;
    looking.analyze = looking.analyzeAside = actions.analyzeAside;
    auto copy = std::make_unique<ErrorLogPage>(shown, read, looking, store, nullptr);
    if (charts) copy->TellReasons(charts);
    copy->ShowError(index);
    return copy;
}

void ErrorLogPage::Refresh() {
    shown = read();
    SetTabStops();
    ShowEntry();
    ShowTables();
    emit CaptionChanged();
}

void ErrorLogPage::KeepIn(ReportFrame& frame) {
    frame.Keep(*tabs);
    frame.Keep(*entries);
    frame.Keep(*kinds);
}

void ErrorLogPage::SaveEntry() {
    const QString report = title->text() + '\n' + text->toPlainText() + "\n\n" +
                           summary->accessibleName() + '\n' + summary->toPlainText() + '\n';
    const QString game = QString::fromStdString(shown.engine.settings.gameName);
    SaveReport(report.toStdString(), tr("%1 error %2.txt").arg(game, QString::number(index + 1)),
               this);
}
