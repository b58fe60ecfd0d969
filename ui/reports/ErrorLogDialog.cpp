#include "ui/reports/ErrorLogDialog.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "game/engine/GameEngine.h"
#include "game/reports/ErrorLogReport.h"
#include "game/reports/HandReport.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/FirstDrawCard.h"
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
    layout->addWidget(MakeHand(store), 2, 0, 1, 2);
    layout->addWidget(MakeButtons(), 3, 0, 1, 2);
    layout->setRowStretch(1, 1);
    MakeRoomForCaption(*this);

    SetTabStops();
    ShowError(0);
    for (ReportBox* box : {text, summary}) {
        box->FitToText();
        box->saveAs = [this] { Save(); };
    }
    for (QWidget* box : std::initializer_list<QWidget*>{title, text, summary}) {
        box->installEventFilter(this);
    }
    resize(sizeHint().boundedTo(screen()->availableSize() * 0.95));
    (next->isEnabled() ? next : findChild<QPushButton*>("ok"))->setFocus();
}

QWidget* ErrorLogDialog::MakeSummary() {
    auto* group = new QGroupBox(tr("Game Summary"), this);
    summary = new ReportBox("summary", tr("Game Summary"), group);
    summary->ShowReport(ErrorSummary(engine));
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(summary);
    return group;
}

QWidget* ErrorLogDialog::MakeHand(PictureStore& store) {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* hand = new QGroupBox(tr("Starting Hand"), row);
    hand->setObjectName("startingHand");
    auto* cards = new QHBoxLayout;
    for (std::size_t i = 0; i < places.size(); ++i) {
        places[i] = new SmallCard(store, hand);
        places[i]->setObjectName(QString("place%1").arg(i));
        cards->addWidget(places[i]);
    }
    hand->setLayout(cards);
    knownCard = new FirstDrawCard(engine, store, row);
    layout->addWidget(hand);
    layout->addWidget(knownCard);
    layout->addStretch();
    return row;
}

QWidget* ErrorLogDialog::MakeButtons() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    previous = MakePageButton(tr("&Prev"), "previous", -1);
    next = MakePageButton(tr("&Next"), "next", 1);
    layout->addWidget(previous);
    layout->addWidget(next);
    layout->addStretch();
    layout->addWidget(OkAlone(*this));
    return row;
}

QPushButton* ErrorLogDialog::MakePageButton(const QString& caption, const char* name, int step) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [this, step] { ShowError(index + step); });
    return button;
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

bool ErrorLogDialog::TurnPage(const QKeyEvent& event) {
    if (event.modifiers() & ~Qt::KeypadModifier) return false;
    switch (event.key()) {
        case Qt::Key_PageUp:
            ShowError(index - 1);
            return true;
        case Qt::Key_PageDown:
            ShowError(index + 1);
            return true;
        case Qt::Key_Home:
            ShowError(0);
            return true;
        case Qt::Key_End:
            ShowError(LastError());
            return true;
        default:
            return false;
    }
}

bool ErrorLogDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && TurnPage(*static_cast<QKeyEvent*>(event))) return true;
    return QDialog::eventFilter(watched, event);
}

void ErrorLogDialog::keyPressEvent(QKeyEvent* event) {
    if (!TurnPage(*event)) QDialog::keyPressEvent(event);
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
