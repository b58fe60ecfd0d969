#include "ui/reports/ErrorLogDialog.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <algorithm>

#include "game/engine/GameEngine.h"
#include "game/reports/ErrorLogReport.h"
#include "game/reports/HandReport.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/ReportBox.h"
#include "ui/parts/SmallCard.h"

namespace {

int WidestLabel(const QFontMetrics& font, const QString& report) {
    int widest = 0;
    for (const QString& line : report.split(u'\n')) {
        widest = std::max(widest, font.horizontalAdvance(line.section(u'\t', 0, 0)));
    }
    return widest;
}

}  // namespace

ErrorLogDialog::ErrorLogDialog(const GameEngine& engine, const GameFiles& files,
                               PictureStore& store, QWidget* parent)
    : QDialog(parent), engine(engine), files(files) {
    setObjectName("errorLog");
    setWindowTitle(tr("View Error Log"));
    title = new QLineEdit(this);
    title->setObjectName("title");
    title->setAccessibleName(tr("Entry"));
    title->setReadOnly(true);
    title->setMinimumWidth(WidthOf(*title, 16));
    text = new ReportBox("entry", tr("Play error"), this);

    auto* layout = new QGridLayout(this);
    layout->addWidget(title, 0, 0, Qt::AlignLeft);
    layout->addWidget(text, 1, 0);
    layout->addWidget(MakeSummary(), 0, 1, 2, 1);
    layout->addLayout(MakeHand(store), 2, 0, 1, 2);
    layout->addLayout(MakeButtons(), 3, 0, 1, 2);
    layout->setRowStretch(1, 1);
    MakeRoomForCaption(*this);

    SetTabStops();
    ShowError(0);
    for (ReportBox* box : {text, summary}) {
        box->FitToText();
        box->saveAs = [this] { Save(); };
    }
    AddKeys();
    resize(sizeHint().boundedTo(screen()->availableSize() * 0.95));
    (next->isEnabled() ? next : findChild<QPushButton*>("ok"))->setFocus();
}

QWidget* ErrorLogDialog::MakeSummary() {
    auto* row = RowInGroup(tr("Game Summary"), "gameSummary", this);
    summary = new ReportBox("summary", tr("Game Summary"), this);
    summary->ShowReport(ErrorSummary(engine));
    row->addWidget(summary);
    return row->parentWidget();
}

QLayout* ErrorLogDialog::MakeHand(PictureStore& store) {
    auto* cards = RowInGroup(tr("Starting Hand"), "startingHand", this);
    for (std::size_t i = 0; i < places.size(); ++i) {
        places[i] = new SmallCard(store, cards->parentWidget());
        places[i]->setObjectName(QString("place%1").arg(i));
        cards->addWidget(places[i]);
    }
    auto* layout = new QHBoxLayout;
    layout->addWidget(cards->parentWidget());
    knownCard = AddFirstDrawCard(*layout, engine, store, this);
    layout->addStretch();
    return layout;
}

QLayout* ErrorLogDialog::MakeButtons() {
    auto* layout = new QHBoxLayout;
    previous = ActionButton(*this, tr("&Prev"), "previous", [this] { ShowError(index - 1); });
    next = ActionButton(*this, tr("&Next"), "next", [this] { ShowError(index + 1); });
    for (QPushButton* button : {previous, next}) {
        button->setAutoDefault(true);  // Enter turns on where it has the focus
        layout->addWidget(button);
    }
    layout->addStretch();
    layout->addWidget(OkAlone(*this));
    return layout;
}

void ErrorLogDialog::SetTabStops() {
    const QFontMetrics font(summary->font());
    const QString entry = QString::fromStdString(ErrorText(engine, {}));
    // A label that reached the stop would push its value out of the column.
    const int widest =
        std::max(WidestLabel(font, summary->toPlainText()), WidestLabel(font, entry));
    const int stop =
        std::max(font.horizontalAdvance("Pct Play Errors "), widest + font.horizontalAdvance(u' '));
    for (ReportBox* box : {text, summary}) box->SetTabStops({static_cast<qreal>(stop)});
}

void ErrorLogDialog::AddKeys() {
    new QShortcut(Qt::Key_PageUp, this, [this] { ShowError(index - 1); });
    new QShortcut(Qt::Key_PageDown, this, [this] { ShowError(index + 1); });
    new QShortcut(Qt::Key_Home, this, [this] { ShowError(0); });
    new QShortcut(Qt::Key_End, this, [this] { ShowError(LastError()); });
    title->installEventFilter(this);
}

// A line of text would keep Home and End for its cursor.
bool ErrorLogDialog::eventFilter(QObject* watched, QEvent* event) {
    return event->type() == QEvent::ShortcutOverride || QDialog::eventFilter(watched, event);
}

// The first entry is shown even when the log has been emptied from outside; other pages than it has
// are not turned to.
void ErrorLogDialog::ShowError(int shown) {
    if (shown != 0 && !HasLoggedError(engine, files, shown)) return;
    index = shown;
    const ErrorLogEntry entry = LoggedError(engine, files, index);
    title->setText(QString::fromStdString(ErrorTitle(index)));
    text->ShowReport(ErrorText(engine, entry));
    const auto cards = PlacesOf(engine, entry.hand, entry.draws[0]);
    for (std::size_t i = 0; i < places.size(); ++i) places[i]->SetCard(cards[i]);
    knownCard->SetCard(FaceOf(engine.deck.table, entry.draws[0]));

    const bool nextHadFocus = next->hasFocus();
    const bool previousHadFocus = previous->hasFocus();
    next->setEnabled(HasLoggedError(engine, files, index + 1));
    previous->setEnabled(index >= 1);
    // A key pressed once more at the end must not fall on another button than the opposite one.
    if (nextHadFocus && !next->isEnabled()) previous->setFocus();
    if (previousHadFocus && !previous->isEnabled()) next->setFocus();
}

int ErrorLogDialog::LastError() const {
    int last = 0;
    while (HasLoggedError(engine, files, last + 1)) ++last;
    return last;
}

void ErrorLogDialog::Save() {
    const QString report = title->text() + '\n' + text->toPlainText() + "\n\n" +
                           summary->accessibleName() + '\n' + summary->toPlainText() + '\n';
    const QString game = QString::fromStdString(engine.settings.gameName);
    SaveReport(report.toStdString(), tr("%1 error %2.txt").arg(game, QString::number(index + 1)),
               this);
}
